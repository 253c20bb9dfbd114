// Groups, pages and tables of the values in which specifications differ, with how many differ in
// each.
#pragma once

#include <QTreeWidget>

#include "compare/DifferenceChoices.h"

namespace designspec {

class DifferenceTree : public QTreeWidget {
    Q_OBJECT

public:
    explicit DifferenceTree(QWidget* parent = nullptr);

    // Made anew for other specifications. The choices live until the next ones come.
    void Show(const DifferenceChoices& choices);
    // Only what has one of these is to be seen; the numbers tell those that differ, and how many
    // of them are taken.
    void Filter(const std::vector<bool>& isShown);
    // Those below the current item, in their order.
    std::vector<std::size_t> Current() const;
    // Whether they are of one page.
    bool IsWithinPage() const;
    QString CurrentText() const;

signals:
    void Moved();

private:
    enum Column { kText, kCount };

    QTreeWidgetItem* Child(QTreeWidgetItem* parent, const QString& text);
    void Add(QTreeWidgetItem* item, std::size_t value);
    const std::vector<std::size_t>& ValuesOf(const QTreeWidgetItem* item) const;
    void FilterItem(QTreeWidgetItem* item, const std::vector<bool>& isShown) const;

    const DifferenceChoices* m_choices = nullptr;
    std::vector<std::vector<std::size_t>> m_values; // of each item, with those below it
};

} // namespace designspec
