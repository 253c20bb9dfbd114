// The design speeds of a road in a small table: from, to (stations) and km/h.
#pragma once

#include <optional>

#include <QTableWidget>

#include "roads/Alignment.h"
#include "roads/CheckOptions.h"

namespace roadcheck {

// There is always an empty row more, for the next stretch. Del takes rows out; when none is left,
// those of the file come back. A station that is left empty is the road's end on that side.
class SpeedTableEditor : public QTableWidget {
    Q_OBJECT

public:
    explicit SpeedTableEditor(QWidget* parent = nullptr);

    // Shows what was entered for the road before, or what its file says when that is empty.
    void SetRoad(const Alignment& road, const QString& entered);
    // What was entered, a row a line, from, to and speed apart by tabs; empty while it is what the
    // file says.
    QString Text() const;
    // Nothing while it is what the file says, or when something in it cannot be read.
    std::vector<SpeedChoice> Choices() const;
    // What cannot be read, for the user; empty: nothing.
    QString Problem() const;

    QSize sizeHint() const override;

signals:
    // By the user.
    void Changed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum Column { From, To, Speed, kColumns };

    QString Cell(int row, int column) const;
    QString CellProblem(int row, int column) const;
    bool IsEmptyRow(int row) const;
    void Fill(const QString& text);
    void RemoveSelected();
    void Tidy();
    QString Content() const;

    QString m_ofFile;               // what the file says
    double m_first = 0, m_last = 0; // the stations of the road's ends
};

} // namespace roadcheck
