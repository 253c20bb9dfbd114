#include "print/PaperRows.h"

#include <algorithm>

#include "base/Format.h"
#include "base/Text.h"
#include "platform/mfc/QtText.h"

namespace designspec {

namespace {

constexpr double kIndent = 14 * kUnitsPerPoint;  // of the pages in the contents
constexpr double kNumbers = 40 * kUnitsPerPoint; // for the numbers of sheets there
// No column takes more of a sheet: the captions of lines and one column find room in any case.
constexpr double kWidestColumn = 0.5;
// A row that takes more of a sheet stands line by line, as nothing else can be done with it.
constexpr double kHighestRow = 0.6;

class RowMaker {
public:
    RowMaker(const PaperFonts& fonts, double width, double height)
        : m_fonts(fonts), m_width(width), m_height(height)
    {
    }

    std::vector<PaperRow> Make(const ReportContents& report);

private:
    struct Look {
        const PaperFont& font;
        double before = 0;
        bool keepsNext = false;
        double left = 0;
    };

    std::size_t AddText(const CString& text, const Look& look);
    void AddEntry(const QString& text, double left);
    void AddContents(const ReportContents& report);
    void AddChapter(const ReportChapter& chapter);
    void AddPage(const ComparedPage& page);
    void AddLimits(const std::vector<ComparedPage::Limit>& limits, Qt::Alignment alignment);
    void AddTable(const ComparedTable& table);
    void AddColumns(const ComparedTable& table, const ColumnRange& columns);

    PaperCell MakeCell(const CString& text, Qt::Alignment alignment = Qt::AlignRight,
                       PaperCell::Ground ground = PaperCell::Ground::None) const;
    void AddTableRow(std::vector<PaperCell> cells, const std::vector<double>& widths,
                     std::ptrdiff_t head);
    struct Part {
        qsizetype first, count, of;
    };
    void AddPart(const std::vector<PaperCell>& cells, const Part& part, std::ptrdiff_t head);

    double ColumnWidth(const CString& text) const;
    SheetMeasure Measure() const;
    std::vector<double> Widths(const ComparedTable& table, const ColumnRange& columns) const;
    PaperRow& Last() { return m_rows.back(); }

    const PaperFonts& m_fonts;
    const double m_width, m_height;
    std::vector<PaperRow> m_rows;
    std::vector<std::size_t> m_entries, m_listed; // rows of the contents, and what they lead to
};

PaperCell::Ground GroundOf(const ComparedValue& value)
{
    return value.IsSame() ? PaperCell::Ground::None : PaperCell::Ground::Marked;
}

std::size_t RowMaker::AddText(const CString& text, const Look& look)
{
    const double width = m_width - look.left;
    const QStringList lines = look.font.Wrap(ToShown(text), width);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        PaperRow row{&look.font, look.font.LineHeight()};
        row.before = i == 0 ? look.before : 0;
        row.keepsNext = look.keepsNext || i + 1 < lines.size();
        row.cells.push_back({look.left, width, {lines[i]}});
        m_rows.push_back(std::move(row));
    }
    return m_rows.size() - static_cast<std::size_t>(lines.size());
}

void RowMaker::AddEntry(const QString& text, double left)
{
    const double before = left == 0 ? 5 * kUnitsPerPoint : 0;
    const QStringList lines = m_fonts.text.Wrap(text, m_width - left - kNumbers);
    PaperRow row{&m_fonts.text, m_fonts.text.LineHeight() * static_cast<double>(lines.size()),
                 before};
    row.keepsNext = left == 0; // the first of its pages
    row.cells.push_back({left, m_width - left - kNumbers, lines});
    m_entries.push_back(m_rows.size());
    m_rows.push_back(std::move(row));
}

void RowMaker::AddContents(const ReportContents& report)
{
    AddText(kReportTitle, {m_fonts.title});
    AddText(L"打印时间: " + report.made, {m_fonts.text, 4 * kUnitsPerPoint});
    if (!report.comparison.empty()) AddText(report.comparison, {m_fonts.text});
    AddText(kContentsTitle, {m_fonts.section, 12 * kUnitsPerPoint, true});
    for (const ReportChapter& chapter : report.chapters) {
        AddEntry(ToShown(chapter.name), 0);
        for (const ComparedPage& page : chapter.pages) {
            const CString count = CountText(page.CountDifferences());
            AddEntry(ToQString(page.criterion->label + (count.empty() ? count : L"  " + count)),
                     kIndent);
        }
    }
}

void RowMaker::AddChapter(const ReportChapter& chapter)
{
    const std::size_t first = AddText(chapter.name, {m_fonts.chapter, 0, true});
    m_rows[first].startsSheet = true;
    m_rows[first].level = 0;
    m_rows[first].title = ToShown(chapter.name);
    m_listed.push_back(first);
    AddText(L"GUID: " + chapter.id, {m_fonts.text});
    for (const ComparedPage& page : chapter.pages)
        AddPage(page);
}

void RowMaker::AddPage(const ComparedPage& page)
{
    const std::size_t first =
        AddText(page.criterion->label, {m_fonts.section, 14 * kUnitsPerPoint, true});
    m_rows[first].level = 1;
    m_rows[first].title = ToQString(page.criterion->label);
    m_listed.push_back(first);
    AddLimits(page.limits, Qt::AlignRight);
    for (const ComparedTable& table : page.tables)
        AddTable(table);
    AddLimits(page.sources, Qt::AlignLeft);
}

PaperCell RowMaker::MakeCell(const CString& text, Qt::Alignment alignment,
                             PaperCell::Ground ground) const
{
    return {0, 0, {ToShown(text)}, alignment, ground};
}

double RowMaker::ColumnWidth(const CString& text) const
{
    return std::min(m_fonts.text.WidthOf(ToShown(text)) + 2 * kCellRim, m_width * kWidestColumn);
}

SheetMeasure RowMaker::Measure() const
{
    return {m_width, [this](const CString& text) { return ColumnWidth(text); }};
}

// The lines from `first` on of a row that has so many.
void RowMaker::AddPart(const std::vector<PaperCell>& cells, const Part& part, std::ptrdiff_t head)
{
    PaperRow row{&m_fonts.text, m_fonts.text.LineHeight() * static_cast<double>(part.count)};
    row.isTable = true;
    row.head = head;
    row.continues = part.first > 0;
    row.goesOn = part.first + part.count < part.of;
    row.height += (row.continues ? 0 : kLineRim) + (row.goesOn ? 0 : kLineRim);
    row.cells = cells;
    for (PaperCell& cell : row.cells)
        cell.lines = cell.lines.mid(part.first, part.count);
    m_rows.push_back(std::move(row));
}

// The cells hold their texts whole.
void RowMaker::AddTableRow(std::vector<PaperCell> cells, const std::vector<double>& widths,
                           std::ptrdiff_t head)
{
    double left = 0;
    qsizetype lines = 1;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        cells[i].left = left;
        cells[i].width = widths[i];
        // What was measured fits, whatever adding did to it.
        cells[i].lines = m_fonts.text.Wrap(cells[i].lines.front(), widths[i] - 2 * kCellRim + 1);
        if (cells[i].lines.size() > 1) cells[i].alignment = Qt::AlignLeft;
        lines = std::max(lines, cells[i].lines.size());
        left += widths[i];
    }
    const bool isWhole =
        static_cast<double>(lines) * m_fonts.text.LineHeight() <= m_height * kHighestRow;
    const qsizetype count = isWhole ? lines : 1;
    for (qsizetype first = 0; first < lines; first += count)
        AddPart(cells, {first, count, lines}, head);
}

void RowMaker::AddLimits(const std::vector<ComparedPage::Limit>& limits, Qt::Alignment alignment)
{
    if (limits.empty()) return;
    double captions = 0, values = 0;
    for (const ComparedPage::Limit& limit : limits) {
        captions = std::max(captions, ColumnWidth(limit.caption));
        values =
            std::max(values, m_fonts.text.WidthOf(ToShown(CellText(limit.value))) + 2 * kCellRim);
    }
    const std::vector<double> widths = {captions, std::min(values, m_width - captions)};
    const std::size_t first = m_rows.size();
    for (const ComparedPage::Limit& limit : limits)
        AddTableRow({MakeCell(limit.caption, Qt::AlignLeft),
                     MakeCell(CellText(limit.value), alignment, GroundOf(limit.value))},
                    widths, -1);
    m_rows[first].before = 5 * kUnitsPerPoint;
}

void RowMaker::AddTable(const ComparedTable& table)
{
    if (table.lines.empty() && table.heading.empty()) {
        AddText(kNoData, {m_fonts.text, 5 * kUnitsPerPoint});
        return;
    }
    const std::vector<ColumnRange> parts = CutColumns(table, Measure());
    if (!table.heading.empty())
        AddText(table.heading, {m_fonts.heading, 8 * kUnitsPerPoint, !parts.empty()});
    for (const ColumnRange& columns : parts)
        AddColumns(table, columns);
}

std::vector<double> RowMaker::Widths(const ComparedTable& table, const ColumnRange& columns) const
{
    std::vector<double> widths = {ColumnWidth(table.corner)};
    for (std::size_t i = 0; i < columns.count; ++i)
        widths.push_back(ColumnWidth(table.columns[columns.first + i]));
    for (const ComparedTable::Line& line : table.lines) {
        widths[0] = std::max(widths[0], ColumnWidth(line.caption));
        for (std::size_t i = 0; i < columns.count; ++i)
            widths[i + 1] =
                std::max(widths[i + 1], ColumnWidth(CellText(line.cells[columns.first + i])));
    }
    return widths;
}

void RowMaker::AddColumns(const ComparedTable& table, const ColumnRange& columns)
{
    const std::vector<double> widths = Widths(table, columns);
    const auto head = static_cast<std::ptrdiff_t>(m_rows.size());
    const auto caption = PaperCell::Ground::Caption;
    std::vector<PaperCell> cells = {MakeCell(table.corner, Qt::AlignLeft, caption)};
    for (std::size_t i = 0; i < columns.count; ++i)
        cells.push_back(MakeCell(table.columns[columns.first + i], Qt::AlignRight, caption));
    AddTableRow(std::move(cells), widths, -1);
    m_rows[static_cast<std::size_t>(head)].before = 5 * kUnitsPerPoint;
    Last().keepsNext = !table.lines.empty();
    for (const ComparedTable::Line& line : table.lines) {
        cells = {MakeCell(line.caption, Qt::AlignLeft)};
        for (std::size_t i = 0; i < columns.count; ++i) {
            const ComparedValue& value = line.cells[columns.first + i];
            cells.push_back(MakeCell(CellText(value), Qt::AlignRight, GroundOf(value)));
        }
        AddTableRow(std::move(cells), widths, head);
    }
}

std::vector<PaperRow> RowMaker::Make(const ReportContents& report)
{
    AddContents(report);
    for (const ReportChapter& chapter : report.chapters)
        AddChapter(chapter);
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        m_rows[m_entries[i]].target = static_cast<std::ptrdiff_t>(m_listed[i]);
    return std::move(m_rows);
}

} // namespace

std::vector<PaperRow> MakeRows(const ReportContents& report, const PaperFonts& fonts, double width,
                               double height)
{
    return RowMaker(fonts, width, height).Make(report);
}

} // namespace designspec
