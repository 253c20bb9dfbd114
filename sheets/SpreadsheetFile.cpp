#include "sheets/SpreadsheetFile.h"

#include <algorithm>

#include "base/Format.h"
#include "base/Text.h"
#include "base/XmlCheck.h"
#include "sheets/Archive.h"
#include "sheets/CsvReading.h"
#include "sheets/OdsReading.h"
#include "sheets/XlsxReading.h"

namespace designspec {

namespace {

// What a file may come to, as text: so much, and so much for each of its bytes.
constexpr std::size_t kContentBytes = 4 << 20;
constexpr std::size_t kContentTimes = 32;
constexpr std::size_t kMostContentBytes = 24 << 20; // a hundred times what any workbook takes
constexpr std::size_t kCells = 100000;              // of all sheets

constexpr wchar_t kBroken[] = L"不是完整的 .xlsx 或 .ods 文件";

std::size_t MostContent(std::string_view bytes)
{
    return std::min(kContentBytes + kContentTimes * bytes.size(), kMostContentBytes);
}

bool IsArchive(std::string_view bytes)
{
    return bytes.starts_with("PK");
}

// Workbooks of before 2007.
bool IsOldWorkbook(std::string_view bytes)
{
    return bytes.starts_with("\xD0\xCF\x11\xE0");
}

// Nothing but the cells: no pictures, no macros, no pivot tables.
bool IsWanted(std::string_view name)
{
    return IsXlsxPart(name) || IsOdsPart(name);
}

CString XmlProblem(const ArchivePart& part)
{
    std::size_t offset = 0;
    if (!IsUtf8(part.bytes, offset)) return L"不是 UTF-8";
    const auto fault = CheckXml(part.bytes);
    return fault ? fault->cause : CString();
}

// What is wrong with the parts of a workbook, or an empty text.
CString ProblemOf(const std::vector<ArchivePart>& parts)
{
    for (const ArchivePart& part : parts) {
        if (const CString problem = XmlProblem(part); !problem.empty())
            return Format(L"%s: %s", ToWide(part.name), problem);
    }
    return {};
}

CString ReadWorkbook(std::string_view bytes, ContentBudget& budget, std::vector<SheetGrid>& sheets)
{
    const std::size_t most = MostContent(bytes);
    auto parts = ReadArchive(bytes, most, IsWanted);
    if (!parts || parts->empty()) return kBroken;
    if (CString problem = ProblemOf(*parts); !problem.empty()) return problem;
    sheets = ReadXlsx(*parts, budget);
    if (sheets.empty()) sheets = ReadOds(*parts, budget);
    return sheets.empty() ? kBroken : CString();
}

CString ReadText(std::string_view bytes, ContentBudget& budget, std::vector<SheetGrid>& sheets)
{
    auto sheet = ReadCsv(bytes, budget);
    if (!sheet) return L"不是电子表格: 既不是 .xlsx、.ods,也不是 .csv 文字";
    sheets.push_back(std::move(*sheet));
    return {};
}

} // namespace

std::vector<SheetGrid> ReadSpreadsheet(std::string_view bytes, const CString& path,
                                       Problems& problems)
{
    std::vector<SheetGrid> sheets;
    ContentBudget budget(kCells, MostContent(bytes));
    CString problem;
    try {
        problem = IsOldWorkbook(bytes) ? L"是旧的 .xls 文件,请另存为 .xlsx"
                  : IsArchive(bytes)   ? ReadWorkbook(bytes, budget, sheets)
                                       : ReadText(bytes, budget, sheets);
    } catch (const TooMuchContent&) {
        sheets.clear();
        problem = L"内容与文件大小不相称,或远多于一个设计规范,没有读取";
    }
    if (!problem.empty()) AddProblem(problems, Severity::Error, path, 0, problem);
    return sheets;
}

} // namespace designspec
