#include "report/ReportContents.h"

#include <algorithm>

#include "base/Format.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

constexpr wchar_t kNone[] = L"–";

CString ComparisonText(const CDesignSpecification* other)
{
    if (!other) return {};
    return Format(L"与“%s”比较: 不同的值有底色,其后方括号中是“%s”的值,“%s”表示没有。",
                  other->Name(), other->Name(), CString(kNone));
}

// How many columns from `first` on fit on a sheet beside the captions; at least one.
std::size_t CountFitting(const ComparedTable& table, std::size_t first, const SheetMeasure& measure)
{
    double used = measure.column(table.corner);
    for (const ComparedTable::Line& line : table.lines)
        used = std::max(used, measure.column(line.caption));
    std::size_t count = 0;
    for (std::size_t at = first; at < table.columns.size(); ++at, ++count) {
        double width = measure.column(table.columns[at]);
        for (const ComparedTable::Line& line : table.lines)
            width = std::max(width, measure.column(CellText(line.cells[at])));
        used += width;
        if (used > measure.sheet && count > 0) break;
    }
    return count;
}

} // namespace

ReportContents ContentsOf(const std::vector<const CDesignSpecification*>& specifications,
                          const ReportOptions& options)
{
    ReportContents contents{LocalTime(options.made), ComparisonText(options.comparedWith), {}};
    for (const CDesignSpecification* one : specifications)
        contents.chapters.push_back(
            {one->Name(), VMRDPub::GUIDToStr(one->ID()), ComparePages(*one, options.comparedWith)});
    return contents;
}

CString OwnText(const ComparedValue& value)
{
    return value.value.value_or(value.IsSame() ? L"" : kNone);
}

CString OtherText(const ComparedValue& value)
{
    return value.other.value_or(value.IsSame() ? L"" : kNone);
}

CString CellText(const ComparedValue& value)
{
    return value.IsSame() ? OwnText(value) : OwnText(value) + L" [" + OtherText(value) + L"]";
}

CString CountText(int differences)
{
    return differences == 0 ? CString() : Format(L"%d 处不同", differences);
}

std::vector<ColumnRange> CutColumns(const ComparedTable& table, const SheetMeasure& measure)
{
    if (table.columns.empty() && !table.lines.empty()) return {{0, 0}};
    std::vector<ColumnRange> ranges;
    for (std::size_t first = 0; first < table.columns.size(); first += ranges.back().count)
        ranges.push_back({first, CountFitting(table, first, measure)});
    return ranges;
}

} // namespace designspec
