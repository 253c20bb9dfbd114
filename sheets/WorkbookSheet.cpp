#include "sheets/WorkbookSheet.h"

#include <algorithm>
#include <cmath>

#include "base/Text.h"
#include "sheets/CellText.h"

namespace designspec {

namespace {

// Widths and heights in the units of spreadsheets: characters and points.
constexpr double kLineHeight = 15;
constexpr int kWidestCaption = 48;
constexpr int kNarrowest = 8;
constexpr int kWidest = 28;
constexpr int kSourceWidth = 60; // of a text that stands alone

constexpr char kNumberDigits[] = "%.15g"; // that every spreadsheet program keeps
constexpr uint8_t kA4 = 9;

bool IsKept(double number)
{
    char text[32];
    std::snprintf(text, sizeof text, kNumberDigits, number);
    return std::abs(number) < 1e300 && (number == 0 || std::abs(number) > 1e-300) &&
           std::strtod(text, nullptr) == number;
}

lxw_col_t ColumnNumber(int column)
{
    return static_cast<lxw_col_t>(std::min(column, 0xFFFF)); // beyond its limit it refuses
}

} // namespace

Workbook::Workbook(const std::string& path) : m_book(workbook_new(path.c_str())) {}

Workbook::~Workbook()
{
    if (m_book) workbook_close(m_book);
}

lxw_error Workbook::Close()
{
    Check(m_book ? workbook_close(m_book) : LXW_ERROR_CREATING_XLSX_FILE);
    m_book = nullptr;
    return m_error;
}

lxw_format* Workbook::Format(Look look, const CString& zero)
{
    lxw_format*& format = m_formats[{look, zero}];
    if (!format) format = MakeFormat(look, zero);
    return format;
}

lxw_format* Workbook::MakeFormat(Look look, const CString& zero)
{
    lxw_format* format = workbook_add_format(m_book);
    format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
    if (look == Look::Title || look == Look::Heading) format_set_bold(format);
    if (look == Look::Title) format_set_font_size(format, 14);
    if (look != Look::Title) format_set_border(format, LXW_BORDER_THIN);
    if (look == Look::Heading) format_set_bg_color(format, 0xDDE6F0);
    if (look == Look::Different) format_set_bg_color(format, 0xFFF2B3);
    if (look == Look::Heading || look == Look::Cell || look == Look::Different)
        format_set_align(format, LXW_ALIGN_CENTER);
    if (look == Look::Text || look == Look::Caption) format_set_align(format, LXW_ALIGN_LEFT);
    if (look != Look::Title) format_set_text_wrap(format);
    if (!zero.empty())
        format_set_num_format(format, ToUtf8(L"General;-General;\"0 (" + zero + L")\"").c_str());
    return format;
}

WorkbookSheet::WorkbookSheet(Workbook& book, const CString& name)
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

void WorkbookSheet::Text(int column, const CString& text, Look look, bool sizes)
{
    m_book.Check(worksheet_write_string(m_sheet, RowNumber(), ColumnNumber(column),
                                        ToUtf8(CellText(text)).c_str(), m_book.Format(look)));
    if (sizes) Widen(column, DisplayWidth(text));
}

void WorkbookSheet::Blank(int column, Look look)
{
    m_book.Check(
        worksheet_write_blank(m_sheet, RowNumber(), ColumnNumber(column), m_book.Format(look)));
}

void WorkbookSheet::Number(int column, const Value& value, Look look, const Field* field)
{
    const CString text = ValueText(value);
    double number = 0;
    if (const auto* whole = std::get_if<std::int32_t>(&value)) number = *whole;
    if (const auto* decimal = std::get_if<double>(&value)) number = *decimal;
    if (std::holds_alternative<CString>(value) || !IsKept(number)) return Text(column, text, look);
    const CString zero = field && field->zeroMeans ? field->zeroMeans : L"";
    m_book.Check(worksheet_write_number(m_sheet, RowNumber(), ColumnNumber(column), number,
                                        m_book.Format(look, zero)));
    Widen(column, DisplayWidth(field ? ReadableText(*field, value) : text));
}

void WorkbookSheet::LongText(int column, const CString& text, int lastColumn)
{
    const CString cell = CellText(text);
    m_book.Check(worksheet_merge_range(m_sheet, RowNumber(), ColumnNumber(column), RowNumber(),
                                       ColumnNumber(lastColumn), "", m_book.Format(Look::Text)));
    Text(column, text, Look::Text, false);
    const int lines = 1 + DisplayWidth(cell) / kSourceWidth;
    if (lines > 1)
        m_book.Check(worksheet_set_row(m_sheet, RowNumber(), lines * kLineHeight, nullptr));
}

void WorkbookSheet::RepeatRow()
{
    m_book.Check(worksheet_repeat_rows(m_sheet, RowNumber(), RowNumber()));
}

void WorkbookSheet::Freeze(int column)
{
    worksheet_freeze_panes(m_sheet, RowNumber(), ColumnNumber(column));
}

void WorkbookSheet::SetWidths(int captions)
{
    for (const auto& [column, width] : m_widths) {
        const int widest = column < captions ? kWidestCaption : kWidest;
        const int chosen = std::min(std::max(width + 2, kNarrowest), widest);
        m_book.Check(worksheet_set_column(m_sheet, ColumnNumber(column), ColumnNumber(column),
                                          chosen, nullptr));
    }
}

void WorkbookSheet::Widen(int column, int width)
{
    m_widths[column] = std::max(m_widths[column], width);
}

} // namespace designspec
