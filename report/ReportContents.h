// What stands in a report of specifications, whatever it is written as.
#pragma once

#include <functional>

#include "base/Moment.h"
#include "report/PageComparison.h"

namespace designspec {

struct ReportOptions {
    const CDesignSpecification* comparedWith = nullptr; // whose values stand where they differ
    Moment made = Now();
};

struct ReportChapter {
    CString name;
    CString id; // GUID: {…}
    std::vector<ComparedPage> pages;
};

struct ReportContents {
    CString made;       // when
    CString comparison; // what marked values are; empty when nothing is compared
    std::vector<ReportChapter> chapters;
};

inline constexpr wchar_t kReportTitle[] = L"道路设计规范";
inline constexpr wchar_t kContentsTitle[] = L"目录";
inline constexpr wchar_t kNoData[] = L"(无数据)"; // in place of a table without heading and lines

// A chapter for each specification, in their order.
ReportContents ContentsOf(const std::vector<const CDesignSpecification*>& specifications,
                          const ReportOptions& options);

// The value as it stands in a cell, and that of the other one; a dash for none where both differ.
CString OwnText(const ComparedValue& value);
CString OtherText(const ComparedValue& value);
// Both: 290, and where they differ 290 [170].
CString CellText(const ComparedValue& value);
// 2 处不同; empty for none.
CString CountText(int differences);

// How wide a sheet and the texts on it are, in a unit of the caller's.
struct SheetMeasure {
    double sheet;
    std::function<double(const CString& text)> column; // that has this as its widest text
};

// Columns of a table that stand side by side.
struct ColumnRange {
    std::size_t first, count;
};
// A table too wide for a sheet goes on below, with the captions of its lines again: which columns
// stand where. One range without columns for a table that has lines alone; none for an empty one.
std::vector<ColumnRange> CutColumns(const ComparedTable& table, const SheetMeasure& measure);

} // namespace designspec
