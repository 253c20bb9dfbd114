// Shows the trace log: newest line below, errors alone if wished, lines copied as text.
#pragma once

#include <QSortFilterProxyModel>
#include <QTableView>

class TraceLog;

class TracePanel : public QWidget {
    Q_OBJECT

public:
    explicit TracePanel(TraceLog& log, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void ShowErrorsOnly(bool only);
    void Copy() const;

    QTableView* m_table;
    QSortFilterProxyModel* m_shown;
};
