#include "roadcheck/FindingsFilter.h"

#include <string_view>
#include <utility>

#include "roadcheck/FindingsModel.h"

namespace roadcheck {

namespace {

bool IsLess(const Finding& a, const Finding& b, int column)
{
    switch (column) {
    case FindingsModel::Severity:
        return a.rule->severity < b.rule->severity;
    case FindingsModel::Station:
        return a.from < b.from;
    case FindingsModel::Element:
        return std::pair(std::wstring_view(a.element.kind), a.element.index) <
               std::pair(std::wstring_view(b.element.kind), b.element.index);
    case FindingsModel::RuleTitle:
        return std::wstring_view(a.rule->title) < b.rule->title;
    case FindingsModel::Value:
        return a.value < b.value;
    case FindingsModel::Limit:
        return a.limit < b.limit;
    case FindingsModel::Speed:
        return a.speed < b.speed;
    case FindingsModel::Source:
        return a.source < b.source;
    default:
        return a.message < b.message;
    }
}

} // namespace

FindingsFilter::FindingsFilter(FindingsModel& findings, QObject* parent)
    : QSortFilterProxyModel(parent), m_findings(findings)
{
    setSourceModel(&findings);
    setDynamicSortFilter(true);
}

// All rows are looked through at once: to take many out one by one would take minutes.
void FindingsFilter::SetShown(RuleSeverity severity, bool isShown)
{
    m_severities[static_cast<size_t>(severity)] = isShown;
    invalidate();
}

void FindingsFilter::SetRule(const Rule* rule)
{
    m_rule = rule;
    invalidate();
}

void FindingsFilter::SetText(const QString& text)
{
    m_text = text.trimmed();
    invalidate();
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
    const Finding& a = m_findings.Findings()[static_cast<size_t>(left.row())];
    const Finding& b = m_findings.Findings()[static_cast<size_t>(right.row())];
    if (IsLess(a, b, left.column())) return true;
    if (IsLess(b, a, left.column())) return false;
    return (left.row() < right.row()) == (sortOrder() == Qt::AscendingOrder);
}

} // namespace roadcheck
