// Values of specifications side by side, a row each, for a table.
#pragma once

#include <QAbstractTableModel>

#include "compare/DifferenceChoices.h"

namespace designspec {

class DifferenceModel : public QAbstractTableModel {
public:
    enum Column { kTitle, kPlace, kLeft, kChoice, kRight, kWas, kBy };
    struct Headings {
        QString left;
        QString right;
    };

    // The choices live as long as the model.
    explicit DifferenceModel(const DifferenceChoices& choices, QObject* parent = nullptr);

    void SetHeadings(const Headings& headings) { m_headings = headings; }
    // Those of the values; with the page before the title where they are of several.
    void Show(std::vector<std::size_t> values, bool withPage);
    const std::vector<std::size_t>& Shown() const { return m_shown; }
    // The choices are other ones now.
    void Renew();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // As it is shown: — for a side that has no such value.
    static QString TextOf(const std::optional<CString>& value);
    // ← and → of what is taken, ≠ and = of what is not; of three whose counts.
    static QString ChoiceText(const DifferenceChoices& choices, std::size_t value);
    // Whether the text of that column is of a side that is not as it was, or counts.
    static bool IsTaken(const DifferenceChoices& choices, std::size_t value, Column column);

private:
    QString Text(std::size_t value, int column) const;
    QString ToolTip(std::size_t value, int column) const;

    const DifferenceChoices& m_choices;
    Headings m_headings;
    std::vector<std::size_t> m_shown;
    bool m_withPage = false;
};

} // namespace designspec
