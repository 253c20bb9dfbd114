#include "roadcheck/FindingsFilter.h"

#include "roadcheck/FindingsModel.h"

namespace roadcheck {

FindingsFilter::FindingsFilter(FindingsModel& findings, QObject* parent)
    : QSortFilterProxyModel(parent), m_findings(findings)
{
    setSourceModel(&findings);
    setSortRole(FindingsModel::kSortRole);
    setDynamicSortFilter(true);
}

void FindingsFilter::SetShown(RuleSeverity severity, bool isShown)
{
    m_severities[static_cast<size_t>(severity)] = isShown;
    invalidateFilter();
}

void FindingsFilter::SetRule(const Rule* rule)
{
    m_rule = rule;
    invalidateFilter();
}

void FindingsFilter::SetText(const QString& text)
{
    m_text = text.trimmed();
    invalidateFilter();
}

std::vector<bool> FindingsFilter::Shown() const
{
    std::vector<bool> shown(m_findings.Findings().size());
    for (int row = 0; row < rowCount(); ++row)
        shown[static_cast<size_t>(mapToSource(index(row, 0)).row())] = true;
    return shown;
}

bool FindingsFilter::filterAcceptsRow(int row, const QModelIndex&) const
{
    const Finding& finding = m_findings.Findings()[static_cast<size_t>(row)];
    if (!m_severities[static_cast<size_t>(finding.rule->severity)]) return false;
    if (m_rule && finding.rule != m_rule) return false;
    if (m_text.isEmpty()) return true;
    for (int column = 0; column < FindingsModel::kColumns; ++column)
        if (m_findings.index(row, column).data().toString().contains(m_text, Qt::CaseInsensitive))
            return true;
    return false;
}

// Findings that are alike in the column stand in order of place.
bool FindingsFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    if (QSortFilterProxyModel::lessThan(left, right)) return true;
    if (QSortFilterProxyModel::lessThan(right, left)) return false;
    return (left.row() < right.row()) == (sortOrder() == Qt::AscendingOrder);
}

} // namespace roadcheck
