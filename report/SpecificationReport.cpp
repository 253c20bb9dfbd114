#include "report/SpecificationReport.h"

#include <algorithm>

#include "base/Format.h"
#include "base/Html.h"
#include "base/Text.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "report/PageComparison.h"

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

constexpr wchar_t kNone[] = L"–";

// The value, and where it differs that of the other one behind it.
std::wstring Cell(const ComparedValue& value)
{
    const std::wstring text = HtmlText(value.value.value_or(value.IsSame() ? L"" : kNone));
    if (value.IsSame()) return L"<td>" + text + L"</td>";
    return Format(L"<td class=\"differs\">%s <small>[%s]</small></td>", text,
                  HtmlText(value.other.value_or(kNone)));
}

std::wstring LimitTable(const std::vector<ComparedPage::Limit>& limits)
{
    if (limits.empty()) return {};
    std::wstring html = L"<table class=\"limits\">\n";
    for (const ComparedPage::Limit& limit : limits)
        html += Format(L"<tr><td>%s</td>%s</tr>\n", HtmlText(limit.caption), Cell(limit.value));
    return html + L"</table>\n";
}

// Letters that a text takes, a Chinese one for two.
std::size_t WidthOf(const CString& text)
{
    return static_cast<std::size_t>(DisplayWidth(text));
}

std::size_t WidthOf(const ComparedValue& value)
{
    const std::size_t own = value.value ? WidthOf(*value.value) : 0;
    return value.IsSame() ? own : own + 4 + WidthOf(value.other.value_or(kNone));
}

// How many columns from `first` on fit on a sheet beside the captions; at least one.
std::size_t CountFitting(const ComparedTable& table, std::size_t first)
{
    constexpr std::size_t kSheet = 104, kRim = 3;
    std::size_t used = WidthOf(table.corner);
    for (const ComparedTable::Line& line : table.lines)
        used = std::max(used, WidthOf(line.caption));
    std::size_t count = 0;
    for (std::size_t at = first; at < table.columns.size(); ++at, ++count) {
        std::size_t width = WidthOf(table.columns[at]);
        for (const ComparedTable::Line& line : table.lines)
            width = std::max(width, WidthOf(line.cells[at]));
        used += width + kRim;
        if (used > kSheet && count > 0) break;
    }
    return count;
}

std::wstring Columns(const ComparedTable& table, std::size_t first, std::size_t count)
{
    std::wstring html = L"<table>\n<thead><tr><th>" + HtmlText(table.corner) + L"</th>";
    for (std::size_t i = first; i < first + count; ++i)
        html += L"<th>" + HtmlText(table.columns[i]) + L"</th>";
    html += L"</tr></thead>\n<tbody>\n";
    for (const ComparedTable::Line& line : table.lines) {
        html += L"<tr><td>" + HtmlText(line.caption) + L"</td>";
        for (std::size_t i = first; i < first + count; ++i)
            html += Cell(line.cells[i]);
        html += L"</tr>\n";
    }
    return html + L"</tbody>\n</table>\n";
}

std::wstring Table(const ComparedTable& table)
{
    std::wstring html;
    if (!table.heading.empty()) html = L"<h4>" + HtmlText(table.heading) + L"</h4>\n";
    if (table.lines.empty() && table.heading.empty()) return L"<p>(无数据)</p>\n";
    if (table.columns.empty() && !table.lines.empty()) return html + Columns(table, 0, 0);
    for (std::size_t first = 0; first < table.columns.size();) {
        const std::size_t count = CountFitting(table, first);
        html += Columns(table, first, count);
        first += count;
    }
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

struct Chapter {
    const CDesignSpecification* specification;
    std::vector<ComparedPage> pages;
};

std::wstring CountText(int differences)
{
    return differences == 0 ? std::wstring() : Format(L" <small>%d 处不同</small>", differences);
}

std::wstring Contents(const std::vector<Chapter>& chapters)
{
    std::wstring html = L"<nav>\n<h2>目录</h2>\n";
    for (std::size_t i = 0; i < chapters.size(); ++i) {
        html += Format(L"<p><a href=\"#s%d\">%s</a></p>\n<ul>\n", i + 1,
                       HtmlText(chapters[i].specification->Name()));
        for (std::size_t k = 0; k < chapters[i].pages.size(); ++k)
            html += Format(L"<li><a href=\"#%s\">%s</a>%s</li>\n", Anchor(i, k),
                           HtmlText(chapters[i].pages[k].criterion->label),
                           CountText(chapters[i].pages[k].CountDifferences()));
        html += L"</ul>\n";
    }
    return html + L"</nav>\n";
}

std::wstring ChapterText(const Chapter& chapter, std::size_t number)
{
    const CDesignSpecification& one = *chapter.specification;
    std::wstring html = Format(L"<article id=\"s%d\">\n<h2>%s</h2>\n<p>GUID: %s</p>\n", number + 1,
                               HtmlText(one.Name()), VMRDPub::GUIDToStr(one.ID()));
    for (std::size_t i = 0; i < chapter.pages.size(); ++i)
        html += Page(chapter.pages[i], Anchor(number, i));
    return html + L"</article>\n";
}

} // namespace

std::string HtmlReport(const std::vector<const CDesignSpecification*>& specifications,
                       const ReportOptions& options)
{
    std::vector<Chapter> chapters;
    for (const CDesignSpecification* one : specifications)
        chapters.push_back({one, ComparePages(*one, options.comparedWith)});
    std::wstring html = kHead + Format(L"<p>打印时间: %s</p>\n", LocalTime(options.made));
    if (options.comparedWith)
        html += Format(L"<p>与“%s”比较: 不同的值有底色,其后方括号中是“%s”的值,"
                       L"“%s”表示没有。</p>\n",
                       HtmlText(options.comparedWith->Name()),
                       HtmlText(options.comparedWith->Name()), std::wstring(kNone));
    html += Contents(chapters);
    for (std::size_t i = 0; i < chapters.size(); ++i)
        html += ChapterText(chapters[i], i);
    return ToUtf8(html + L"</body>\n</html>\n");
}

} // namespace designspec
