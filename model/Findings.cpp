#include "model/Findings.h"

#include <cmath>
#include <map>

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "model/FindingList.h"

namespace designspec {
namespace {

// A source is trimmed when it is read.
void FindInSources(const CriterionInfo& criterion, const void* object, FindingList& found)
{
    for (const Field& field : criterion.fields)
        if (field.kind == FieldKind::Text &&
            field.Of<CString>(object) != Trim(field.Of<CString>(object)))
            found.Note(CString(criterion.name) + L"." + field.key, L"首尾的空白不会保存");
}

} // namespace

std::wstring NumberText(double value)
{
    constexpr double kLargestInFull = 1e15;
    const bool whole = value == std::trunc(value) && std::fabs(value) < kLargestInFull;
    return whole ? Format(L"%.0f", value) : ToWide(DoubleToText(value));
}

std::wstring At(const std::wstring& path, const std::wstring& key)
{
    return path + L"[" + key + L"]";
}

std::wstring At(const std::wstring& path, double key)
{
    return At(path, NumberText(key));
}

std::wstring At(const std::wstring& path, double min, double max)
{
    return At(path, NumberText(min) + L"~" + NumberText(max));
}

std::wstring AboveText(const std::wstring& what, double value, const std::wstring& other,
                       double otherValue)
{
    return Format(L"%s为 %s, 大于%s %s", what, NumberText(value), other, NumberText(otherValue));
}

// The editor's boxes break some texts into lines.
std::wstring Finding::Line() const
{
    std::wstring line = text;
    std::erase(line, L'\n');
    return line;
}

std::vector<Finding> NewFindings(const std::vector<Finding>& before, std::vector<Finding> after)
{
    std::map<std::pair<std::wstring_view, std::wstring_view>, int> times;
    for (const Finding& one : before)
        ++times[{one.path, one.text}];
    std::erase_if(after, [&times](const Finding& one) {
        const auto known = times.find({one.path, one.text});
        return known != times.end() && known->second-- > 0;
    });
    return after;
}

std::wstring NewFault(const CDesignSpecification& before, const CDesignSpecification& after)
{
    for (const Finding& finding : NewFindings(Findings(before), Findings(after)))
        if (finding.IsRefusedWhenTyped()) return finding.Line();
    return {};
}

std::vector<Finding> Findings(const CDesignSpecification& specification)
{
    FindingList found;
    ForEachCriterion([&](const auto& one) {
        const auto& criterion = specification.*one.member;
        const CriterionInfo& info = *FindCriterion(one.name);
        FindInSources(info, &criterion, found);
        FindInTables(info, &criterion, found);
        Find(criterion, specification, found);
    });
    return found.Take();
}

} // namespace designspec
