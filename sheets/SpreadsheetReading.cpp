#include "sheets/SpreadsheetReading.h"

#include <set>

#include "base/File.h"
#include "base/Format.h"
#include "model/Arrangement.h"
#include "sheets/PageReading.h"
#include "sheets/SpreadsheetFile.h"
#include "sheets/WorkbookWriting.h"

namespace designspec {

namespace {
constexpr std::size_t kLargestFile = 64 << 20; // a thousand times what a workbook takes
}

SpreadsheetReading SpreadsheetReading::OfFile(const CString& path)
{
    std::string bytes;
    designspec::Problems problems;
    if (ReadWholeFile(path, bytes, kLargestFile, problems)) return {bytes, path};
    SpreadsheetReading reading;
    reading.m_path = path;
    reading.m_problems = std::move(problems);
    return reading;
}

SpreadsheetReading::SpreadsheetReading(std::string_view bytes, CString path)
    : m_path(std::move(path))
{
    for (SheetGrid& sheet : ReadSpreadsheet(bytes, m_path, m_problems)) {
        const CString& title = sheet.At(0, 0);
        if (title == kTogetherTitle)
            AddProblem(m_problems, Severity::Error, m_path, 0,
                       L"是几个设计规范的对照,不能读入;请用各自的电子表格");
        else if (title == kFirstSheet)
            ReadFirstSheet(sheet);
        else if (!sheet.IsEmpty())
            m_pages.push_back(std::move(sheet));
    }
}

void SpreadsheetReading::ReadFirstSheet(const SheetGrid& sheet)
{
    for (const auto& [row, cells] : sheet.Rows()) {
        if (sheet.At(row, 0) == kNameCaption) m_name = sheet.At(row, 1);
        if (sheet.At(row, 0) == kIdentityCaption) m_identity = sheet.At(row, 1);
    }
}

void SpreadsheetReading::ApplyTo(CDesignSpecification& specification)
{
    if (HasError(m_problems)) return;
    std::set<const CriterionInfo*> read;
    for (const SheetGrid& sheet : m_pages) {
        const auto page = PageReading::Of(sheet);
        if (!page) {
            if (m_pages.size() > 1)
                AddProblem(m_problems, Severity::Note, m_path, 0,
                           sheet.Name() + L": 认不出是哪一页,没有读取");
            continue;
        }
        if (!read.insert(&page->Criterion()).second)
            AddProblem(
                m_problems, Severity::Error, m_path, 0,
                Format(L"%s: “%s”页有两张表", sheet.Name(), CString(page->Criterion().label)));
        page->ApplyTo(specification, m_path, m_problems);
    }
    if (read.empty())
        AddProblem(m_problems, Severity::Error, m_path, 0,
                   L"没有认出任何一页;请在表名或第一格写上页名,如“圆曲线半径”");
    Arrange(specification);
}

} // namespace designspec
