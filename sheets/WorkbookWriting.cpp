#include "sheets/WorkbookWriting.h"

#include <ctime>
#include <map>

#include <sys/mman.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "sheets/CellText.h"
#include "sheets/Together.h"

namespace designspec {

namespace {

// Widths and heights in the units of spreadsheets: characters and points.
constexpr double kLineHeight = 15;
constexpr int kWidestCaption = 48;
constexpr int kNarrowest = 8;
constexpr int kWidest = 28;
constexpr int kSourceWidth = 60;  // of a text that stands alone
constexpr int kFewestColumns = 6; // that such a text goes over

constexpr char kNumberDigits[] = "%.15g"; // that every spreadsheet program keeps
constexpr uint8_t kA4 = 9;

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

enum class Look { Title, Heading, Caption, Value, Different, Text };

// The workbook under the library's own hands. The first error stays.
class Workbook {
public:
    explicit Workbook(const std::string& path) : m_book(workbook_new(path.c_str())) {}
    ~Workbook()
    {
        if (m_book) workbook_close(m_book);
    }
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    lxw_workbook* Book() { return m_book; }
    void Check(lxw_error error)
    {
        if (m_error == LXW_NO_ERROR) m_error = error;
    }
    lxw_error Close()
    {
        Check(m_book ? workbook_close(m_book) : LXW_ERROR_CREATING_XLSX_FILE);
        m_book = nullptr;
        return m_error;
    }
    // `zero` is what a 0 says besides.
    lxw_format* Format(Look look, const CString& zero = {})
    {
        lxw_format*& format = m_formats[{look, zero}];
        if (!format) format = MakeFormat(look, zero);
        return format;
    }

private:
    lxw_format* MakeFormat(Look look, const CString& zero)
    {
        lxw_format* format = workbook_add_format(m_book);
        format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
        if (look == Look::Title || look == Look::Heading) format_set_bold(format);
        if (look == Look::Title) format_set_font_size(format, 14);
        if (look != Look::Title) format_set_border(format, LXW_BORDER_THIN);
        if (look == Look::Heading) format_set_bg_color(format, 0xDDE6F0);
        if (look == Look::Different) format_set_bg_color(format, 0xFFF2B3);
        if (look == Look::Heading || look == Look::Value || look == Look::Different)
            format_set_align(format, LXW_ALIGN_CENTER);
        if (look == Look::Text || look == Look::Caption) format_set_align(format, LXW_ALIGN_LEFT);
        if (look != Look::Title) format_set_text_wrap(format);
        if (!zero.empty())
            format_set_num_format(format,
                                  ToUtf8(L"General;-General;\"0 (" + zero + L")\"").c_str());
        return format;
    }

    lxw_workbook* m_book;
    lxw_error m_error = LXW_NO_ERROR;
    std::map<std::pair<Look, CString>, lxw_format*> m_formats;
};

// A sheet that is filled from top to bottom.
class Sheet {
public:
    Sheet(Workbook& book, const CString& name)
        : m_book(book), m_sheet(workbook_add_worksheet(book.Book(), ToUtf8(name).c_str()))
    {
        if (!m_sheet) book.Check(LXW_ERROR_MEMORY_MALLOC_FAILED);
        if (!m_sheet) return;
        worksheet_set_paper(m_sheet, kA4);
        worksheet_set_landscape(m_sheet);
        worksheet_fit_to_pages(m_sheet, 1, 0);
        worksheet_set_margins(m_sheet, 0.5, 0.5, 0.7, 0.7);
        worksheet_set_footer(m_sheet, "&L&A&R&P / &N");
    }

    bool IsThere() const { return m_sheet; }
    int Row() const { return m_row; }
    void NextRow() { ++m_row; }

    void Text(int column, const CString& text, Look look, bool sizes = true)
    {
        m_book.Check(worksheet_write_string(m_sheet, RowNumber(), ColumnNumber(column),
                                            ToUtf8(CellText(text)).c_str(), m_book.Format(look)));
        if (sizes) Widen(column, DisplayWidth(text));
    }
    void Blank(int column, Look look)
    {
        m_book.Check(
            worksheet_write_blank(m_sheet, RowNumber(), ColumnNumber(column), m_book.Format(look)));
    }
    // A number as a number, where that keeps it; `field` may say what it means.
    void Number(int column, const Value& value, Look look, const Field* field = nullptr)
    {
        const CString text = ValueText(value);
        double number = 0;
        if (const auto* whole = std::get_if<std::int32_t>(&value)) number = *whole;
        if (const auto* decimal = std::get_if<double>(&value)) number = *decimal;
        if (std::holds_alternative<CString>(value) || !IsKept(number))
            return Text(column, text, look);
        const CString zero = field && field->zeroMeans ? field->zeroMeans : L"";
        m_book.Check(worksheet_write_number(m_sheet, RowNumber(), ColumnNumber(column), number,
                                            m_book.Format(look, zero)));
        Widen(column, DisplayWidth(field ? ReadableText(*field, value) : text));
    }
    // A long text over several columns, as high as it needs.
    void LongText(int column, const CString& text, int lastColumn)
    {
        const CString cell = CellText(text);
        m_book.Check(worksheet_merge_range(m_sheet, RowNumber(), ColumnNumber(column), RowNumber(),
                                           ColumnNumber(lastColumn), "",
                                           m_book.Format(Look::Text)));
        Text(column, text, Look::Text, false);
        const int lines = 1 + DisplayWidth(cell) / kSourceWidth;
        if (lines > 1)
            m_book.Check(worksheet_set_row(m_sheet, RowNumber(), lines * kLineHeight, nullptr));
    }
    void RepeatRow() { m_book.Check(worksheet_repeat_rows(m_sheet, RowNumber(), RowNumber())); }
    // What stands above the present row and left of the column stays in sight.
    void Freeze(int column) { worksheet_freeze_panes(m_sheet, RowNumber(), ColumnNumber(column)); }

    // When all is written.
    void SetWidths(int captions)
    {
        for (const auto& [column, width] : m_widths) {
            const int widest = column < captions ? kWidestCaption : kWidest;
            const int chosen = std::min(std::max(width + 2, kNarrowest), widest);
            m_book.Check(worksheet_set_column(m_sheet, ColumnNumber(column), ColumnNumber(column),
                                              chosen, nullptr));
        }
    }

private:
    static bool IsKept(double number)
    {
        char text[32];
        std::snprintf(text, sizeof text, kNumberDigits, number);
        return std::abs(number) < 1e300 && (number == 0 || std::abs(number) > 1e-300) &&
               std::strtod(text, nullptr) == number;
    }
    lxw_row_t RowNumber() const { return static_cast<lxw_row_t>(m_row); }
    static lxw_col_t ColumnNumber(int column)
    {
        return static_cast<lxw_col_t>(std::min(column, 0xFFFF)); // beyond its limit it refuses
    }
    void Widen(int column, int width) { m_widths[column] = std::max(m_widths[column], width); }

    Workbook& m_book;
    lxw_worksheet* m_sheet;
    int m_row = 0;
    std::map<int, int> m_widths;
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
                const Look look = same ? Look::Value : Look::Different;
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
            const Look look = differs ? Look::Different : Look::Value;
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
    Sheet m_sheet;
};

// What the workbook is of.
void WriteFirstSheet(Workbook& book, const Specifications& specifications,
                     const WorkbookStamp& stamp)
{
    Sheet sheet(book, kFirstSheet);
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

WorkbookStamp StampOf(const CString& program)
{
    const std::time_t now = std::time(nullptr);
    std::tm day{};
    localtime_r(&now, &day);
    return {Format(L"%04d-%02d-%02d", day.tm_year + 1900, day.tm_mon + 1, day.tm_mday), program};
}

} // namespace designspec
