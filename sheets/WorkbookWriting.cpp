#include "sheets/WorkbookWriting.h"

#include <algorithm>
#include <ctime>

#include <sys/mman.h>
#include <unistd.h>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "sheets/Together.h"
#include "sheets/WorkbookSheet.h"

namespace designspec {

namespace {

constexpr int kFewestColumns = 6; // that a source goes over

// A file that has no place on disk: what is written to it comes back as bytes.
class MemoryFile {
public:
    MemoryFile() : m_file(memfd_create("workbook", MFD_CLOEXEC)) {}
    ~MemoryFile()
    {
        if (m_file >= 0) close(m_file);
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::wstring Path() const { return L"/proc/self/fd/" + std::to_wstring(m_file); }

private:
    int m_file;
};

using Specifications = std::vector<const CDesignSpecification*>;

// The sheet of one page.
class PageSheet {
public:
    PageSheet(Workbook& book, std::vector<const PageLayout*> pages, const Specifications& of)
        : m_pages(std::move(pages)), m_of(of), m_first(of.size() > 1 ? 2 : 1),
          m_sheet(book, m_pages[0]->criterion->label)
    {
        if (!m_sheet.IsThere()) return;
        m_sheet.Text(0, m_pages[0]->criterion->label, Look::Title, false);
        m_sheet.NextRow();
        WriteLimits();
        const std::vector<TogetherTable> tables = PutTogether(m_pages);
        if (tables.size() > 1 || tables.empty() || tables[0].IsNone()) m_sheet.Freeze(m_first);
        for (const TogetherTable& table : tables)
            WriteTable(table, tables.size() == 1);
        WriteSources();
        m_sheet.SetWidths(m_first);
    }

private:
    bool IsTogether() const { return m_of.size() > 1; }
    void WriteCaption(const CString& caption, std::size_t of)
    {
        m_sheet.Text(0, caption, Look::Caption);
        if (IsTogether()) m_sheet.Text(1, m_of[of]->Name(), Look::Caption);
    }

    void WriteLimits()
    {
        for (std::size_t i = 0; i < m_pages[0]->limits.size(); ++i)
            for (std::size_t of = 0; of < m_pages.size(); ++of) {
                const PageLayout::Limit& limit = m_pages[of]->limits[i];
                WriteCaption(limit.caption, of);
                const bool same = limit.value == m_pages[0]->limits[i].value;
                const Look look = same ? Look::Cell : Look::Different;
                if (limit.field->kind == FieldKind::Bool)
                    m_sheet.Text(m_first, ReadableText(*limit.field, limit.value), look);
                else
                    m_sheet.Number(m_first, limit.value, look, limit.field);
                m_sheet.NextRow();
            }
    }

    void WriteTable(const TogetherTable& table, bool isOnly)
    {
        if (!table.heading.empty()) {
            m_sheet.Text(0, table.heading, Look::Title, false);
            m_sheet.NextRow();
        }
        if (table.IsNone()) return;
        m_sheet.Text(0, table.corner, Look::Heading);
        if (IsTogether()) m_sheet.Text(1, kFirstSheet, Look::Heading);
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            m_sheet.Number(Column(i), table.columns[i], Look::Heading);
        if (isOnly) m_sheet.RepeatRow();
        m_sheet.NextRow();
        if (isOnly) m_sheet.Freeze(m_first);
        for (const TogetherTable::Line& line : table.lines)
            for (const TogetherTable::Part& part : line.parts)
                WriteLine(line, part);
    }

    void WriteLine(const TogetherTable::Line& line, const TogetherTable::Part& part)
    {
        WriteCaption(line.caption, part.of);
        for (std::size_t i = 0; i < part.cells.size(); ++i) {
            const bool differs = TogetherTable::Differs(line, i, m_of.size());
            const Look look = differs ? Look::Different : Look::Cell;
            if (part.cells[i])
                m_sheet.Number(Column(i), *part.cells[i], look);
            else
                m_sheet.Blank(Column(i), look);
        }
        m_sheet.NextRow();
    }

    void WriteSources()
    {
        for (std::size_t i = 0; i < m_pages[0]->sources.size(); ++i)
            for (std::size_t of = 0; of < m_pages.size(); ++of) {
                const PageLayout::Limit& source = m_pages[of]->sources[i];
                WriteCaption(source.caption, of);
                m_sheet.LongText(m_first, std::get<CString>(source.value),
                                 m_first + kFewestColumns);
                m_sheet.NextRow();
            }
    }

    int Column(std::size_t i) const { return m_first + static_cast<int>(i); }

    std::vector<const PageLayout*> m_pages; // of each specification
    const Specifications& m_of;
    int m_first; // column of values
    WorkbookSheet m_sheet;
};

// What the workbook is of.
void WriteFirstSheet(Workbook& book, const Specifications& specifications,
                     const WorkbookStamp& stamp)
{
    WorkbookSheet sheet(book, kFirstSheet);
    if (!sheet.IsThere()) return;
    const auto line = [&](const CString& caption, const CString& text) {
        sheet.Text(0, caption, Look::Caption);
        sheet.Text(1, text, Look::Text);
        sheet.NextRow();
    };
    sheet.Text(0, specifications.size() > 1 ? kTogetherTitle : kFirstSheet, Look::Title, false);
    sheet.NextRow();
    for (const CDesignSpecification* one : specifications) {
        line(kNameCaption, one->Name());
        line(kIdentityCaption, VMRDPub::GUIDToStr(one->ID()));
    }
    line(L"日期", stamp.date);
    line(L"程序", stamp.program);
    sheet.SetWidths(2);
}

lxw_error WriteSheets(const std::string& path, const Specifications& specifications,
                      const WorkbookStamp& stamp)
{
    Workbook book(path);
    if (!book.Book()) return LXW_ERROR_CREATING_XLSX_FILE;
    WriteFirstSheet(book, specifications, stamp);
    std::vector<std::vector<PageLayout>> pages;
    for (const CDesignSpecification* one : specifications)
        pages.push_back(LayOut(*one));
    for (std::size_t page = 0; page < pages[0].size(); ++page) {
        std::vector<const PageLayout*> same;
        for (const auto& own : pages)
            same.push_back(&own[page]);
        PageSheet(book, std::move(same), specifications);
    }
    return book.Close();
}

CString CauseOf(lxw_error error)
{
    switch (error) {
    case LXW_ERROR_WORKSHEET_INDEX_OUT_OF_RANGE:
        return L"表格太大,电子表格容纳不下";
    case LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED:
        return L"有文字超过 32767 个字符,电子表格容纳不下";
    default:
        return L"写不了电子表格: " + ToWide(lxw_strerror(error));
    }
}

} // namespace

bool WriteWorkbook(const CString& path, const Specifications& specifications,
                   const WorkbookStamp& stamp, Problems& problems)
{
    const MemoryFile file;
    std::string bytes;
    const lxw_error error = WriteSheets(ToUtf8(file.Path()), specifications, stamp);
    if (error != LXW_NO_ERROR) {
        AddProblem(problems, Severity::Error, path, 0, CauseOf(error));
        return false;
    }
    return ReadWholeFile(file.Path(), bytes, problems) && WriteWholeFile(path, bytes, problems);
}

CString WorkbookIn(const CString& folder, const CDesignSpecification& specification)
{
    const CString name = specification.Name() + kWorkbookEnding;
    return IsFileName(name) ? folder + L"/" + name : CString();
}

bool WriteWorkbooks(const CString& folder,
                    const std::vector<const CDesignSpecification*>& specifications,
                    const WorkbookStamp& stamp, Problems& problems)
{
    if (!CreateFolder(folder, problems)) return false;
    return std::all_of(specifications.begin(), specifications.end(),
                       [&](const CDesignSpecification* one) {
                           const CString path = WorkbookIn(folder, *one);
                           if (path.empty())
                               AddProblem(problems, Severity::Error, folder, 0,
                                          Format(L"“%s”不能作文件名", Printable(one->Name())));
                           return !path.empty() && WriteWorkbook(path, {one}, stamp, problems);
                       });
}

WorkbookStamp StampOf(const CString& program)
{
    const std::time_t now = std::time(nullptr);
    std::tm day{};
    localtime_r(&now, &day);
    return {Format(L"%04d-%02d-%02d", day.tm_year + 1900, day.tm_mon + 1, day.tm_mday), program};
}

} // namespace designspec
