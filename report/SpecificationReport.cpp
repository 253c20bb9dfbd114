#include "report/SpecificationReport.h"

#include "base/Format.h"
#include "base/Html.h"
#include "base/Text.h"

namespace designspec {

namespace {

constexpr const wchar_t* kHead =
    L"<!DOCTYPE html>\n<html lang=\"zh-CN\">\n<head>\n<meta charset=\"utf-8\">\n"
    L"<meta name=\"viewport\" "
    L"content=\"width=device-width\">\n<title>道路设计规范</title>\n<style>\n"
    L"body{font:14px/1.5 sans-serif;margin:2em auto;max-width:64em;padding:0 1em;color:#111}\n"
    L"table{border-collapse:collapse;margin:.5em 0 1em}\n"
    L"th,td{border:1px solid #999;padding:.2em .6em;text-align:right;white-space:nowrap}\n"
    L"th:first-child,td:first-child{text-align:left;font-weight:normal}"
    L"th{background:#eee;font-weight:normal}\n"
    L"table.limits td{white-space:normal}\n"
    L"td.differs{background:#fde68a}small{color:#92400e}\n"
    L"h2,h3,h4{break-after:avoid}tr{break-inside:avoid}thead{display:table-header-group}\n"
    L"@page{size:A4;margin:18mm 15mm;"
    L"@bottom-center{content:counter(page) \" / \" counter(pages)}}\n"
    L"@media print{body{margin:0;max-width:none;font-size:9.5pt}"
    L"article{break-before:page}a{color:inherit;text-decoration:none}"
    L"th,td.differs{print-color-adjust:exact;-webkit-print-color-adjust:exact}}\n"
    L"</style>\n</head>\n<body>\n<h1>道路设计规范</h1>\n";

// The value, and where it differs that of the other one behind it.
std::wstring Cell(const ComparedValue& value)
{
    const std::wstring text = HtmlText(OwnText(value));
    if (value.IsSame()) return L"<td>" + text + L"</td>";
    return Format(L"<td class=\"differs\">%s <small>[%s]</small></td>", text,
                  HtmlText(OtherText(value)));
}

std::wstring LimitTable(const std::vector<ComparedPage::Limit>& limits)
{
    if (limits.empty()) return {};
    std::wstring html = L"<table class=\"limits\">\n";
    for (const ComparedPage::Limit& limit : limits)
        html += Format(L"<tr><td>%s</td>%s</tr>\n", HtmlText(limit.caption), Cell(limit.value));
    return html + L"</table>\n";
}

// In letters, a Chinese one for two, with the rim of a cell.
SheetMeasure Letters()
{
    constexpr double kSheet = 107, kRim = 3;
    return {kSheet, [](const CString& text) { return DisplayWidth(text) + kRim; }};
}

std::wstring Columns(const ComparedTable& table, const ColumnRange& columns)
{
    const std::size_t end = columns.first + columns.count;
    std::wstring html = L"<table>\n<thead><tr><th>" + HtmlText(table.corner) + L"</th>";
    for (std::size_t i = columns.first; i < end; ++i)
        html += L"<th>" + HtmlText(table.columns[i]) + L"</th>";
    html += L"</tr></thead>\n<tbody>\n";
    for (const ComparedTable::Line& line : table.lines) {
        html += L"<tr><td>" + HtmlText(line.caption) + L"</td>";
        for (std::size_t i = columns.first; i < end; ++i)
            html += Cell(line.cells[i]);
        html += L"</tr>\n";
    }
    return html + L"</tbody>\n</table>\n";
}

std::wstring Table(const ComparedTable& table)
{
    if (table.lines.empty() && table.heading.empty())
        return Format(L"<p>%s</p>\n", CString(kNoData));
    std::wstring html;
    if (!table.heading.empty()) html = L"<h4>" + HtmlText(table.heading) + L"</h4>\n";
    for (const ColumnRange& columns : CutColumns(table, Letters()))
        html += Columns(table, columns);
    return html;
}

std::wstring Anchor(std::size_t specification, std::size_t page)
{
    return Format(L"s%d-%d", specification + 1, page + 1);
}

std::wstring Page(const ComparedPage& page, const std::wstring& anchor)
{
    std::wstring html =
        Format(L"<section id=\"%s\">\n<h3>%s</h3>\n", anchor, HtmlText(page.criterion->label));
    html += LimitTable(page.limits);
    for (const ComparedTable& table : page.tables)
        html += Table(table);
    return html + LimitTable(page.sources) + L"</section>\n";
}

std::wstring Contents(const std::vector<ReportChapter>& chapters)
{
    std::wstring html = Format(L"<nav>\n<h2>%s</h2>\n", CString(kContentsTitle));
    for (std::size_t i = 0; i < chapters.size(); ++i) {
        html +=
            Format(L"<p><a href=\"#s%d\">%s</a></p>\n<ul>\n", i + 1, HtmlText(chapters[i].name));
        for (std::size_t k = 0; k < chapters[i].pages.size(); ++k) {
            const CString count = CountText(chapters[i].pages[k].CountDifferences());
            html += Format(L"<li><a href=\"#%s\">%s</a>%s</li>\n", Anchor(i, k),
                           HtmlText(chapters[i].pages[k].criterion->label),
                           count.empty() ? count : L" <small>" + count + L"</small>");
        }
        html += L"</ul>\n";
    }
    return html + L"</nav>\n";
}

std::wstring ChapterText(const ReportChapter& chapter, std::size_t number)
{
    std::wstring html = Format(L"<article id=\"s%d\">\n<h2>%s</h2>\n<p>GUID: %s</p>\n", number + 1,
                               HtmlText(chapter.name), chapter.id);
    for (std::size_t i = 0; i < chapter.pages.size(); ++i)
        html += Page(chapter.pages[i], Anchor(number, i));
    return html + L"</article>\n";
}

} // namespace

std::string HtmlReport(const std::vector<const CDesignSpecification*>& specifications,
                       const ReportOptions& options)
{
    const ReportContents report = ContentsOf(specifications, options);
    std::wstring html = kHead + Format(L"<p>打印时间: %s</p>\n", report.made);
    if (!report.comparison.empty()) html += L"<p>" + HtmlText(report.comparison) + L"</p>\n";
    html += Contents(report.chapters);
    for (std::size_t i = 0; i < report.chapters.size(); ++i)
        html += ChapterText(report.chapters[i], i);
    return ToUtf8(html + L"</body>\n</html>\n");
}

} // namespace designspec
