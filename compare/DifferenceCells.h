// The values of one table as a small grid with its speeds: a line for each side of each row.
#pragma once

#include <QTableWidget>

#include "compare/DifferenceChoices.h"

namespace designspec {

class DifferenceCells : public QTableWidget {
    Q_OBJECT

public:
    explicit DifferenceCells(QWidget* parent = nullptr);

    // The grid in which the value stands, its cell the current one; hidden when it stands in none.
    // Rows without a difference only when they are wanted. What is shown already stays.
    void Show(const DifferenceChoices& choices, std::size_t value, bool onlyDifferent);
    void Hide();
    // The choices are other ones now.
    void Renew();
    std::vector<std::size_t> Selected() const;

signals:
    void Moved(std::size_t value);

private:
    struct Row {
        CString caption;
        std::vector<std::size_t> values;
    };

    std::vector<Row> RowsOf(const CString& grid, bool onlyDifferent) const;
    void Fill(const std::vector<Row>& rows);
    void FillCell(int line, int column, std::size_t value);
    void SetCurrent(std::size_t value);
    int Sides() const { return m_choices->IsOfThree() ? 3 : 2; }

    const DifferenceChoices* m_choices = nullptr;
    CString m_grid;
    bool m_onlyDifferent = false;
};

} // namespace designspec
