// The findings that are shown: by severity, rule and text, in the order of a column.
#pragma once

#include <array>

#include <QSortFilterProxyModel>

#include "roads/Rules.h"

namespace roadcheck {

class FindingsModel;

class FindingsFilter : public QSortFilterProxyModel {
    Q_OBJECT

public:
    FindingsFilter(FindingsModel& findings, QObject* parent);

    void SetShown(RuleSeverity severity, bool isShown);
    // Null: those of all rules.
    void SetRule(const Rule* rule);
    // Those that have it in one of their columns, in any case.
    void SetText(const QString& text);

    // For each finding of the model, whether it is shown.
    std::vector<bool> Shown() const;

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    FindingsModel& m_findings;
    std::array<bool, 3> m_severities = {true, true, true};
    const Rule* m_rule = nullptr;
    QString m_text;
};

} // namespace roadcheck
