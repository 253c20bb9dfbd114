#include "roads/HtmlReport.h"

#include <algorithm>

#include "base/AxisTicks.h"
#include "base/Format.h"
#include "base/Html.h"
#include "base/Text.h"
#include "roads/Checking.h"
#include "roads/Diagram.h"

using namespace designspec;

namespace roadcheck {

namespace {

constexpr const wchar_t* kSeverityClasses[] = {L"error", L"warning", L"note"};

const wchar_t* ClassOf(RuleSeverity severity)
{
    return kSeverityClasses[static_cast<size_t>(severity)];
}

// Pixels of a diagram; the page scales it.
constexpr double kWidth = 720, kHeight = 210, kLeft = 40, kRight = 28, kTop = 26, kBottom = 42;
constexpr double kStationRoom = 80; // of a station below the axis

class SvgWriter {
public:
    SvgWriter(const Alignment& road, const AlignmentReport& report, const Diagram& diagram)
        : m_road(road), m_report(report), m_diagram(diagram),
          m_length(std::max(road.length, kNoLength)), m_span(diagram.Span())
    {
    }

    std::wstring Write()
    {
        m_svg = Format(L"<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %g %g\" "
                       L"font-family=\"sans-serif\" font-size=\"11\" role=\"img\">\n"
                       L"<title>%s</title>\n",
                       kWidth, kHeight, HtmlText(m_diagram.title));
        for (const DiagramBand& band : m_diagram.bands)
            m_svg += Format(L"<rect class=\"band\" x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" "
                            L"height=\"%.1f\" fill=\"#2a9d4b\" fill-opacity=\"0.15\"/>\n",
                            X(band.from), Y(band.high), X(band.to) - X(band.from),
                            Y(band.low) - Y(band.high));
        Grid();
        Findings();
        for (const auto& line : m_diagram.lines)
            Line(line);
        m_svg += Format(L"<text x=\"%g\" y=\"16\" font-weight=\"bold\">%s (%s)</text>\n</svg>\n",
                        kLeft, HtmlText(m_diagram.title), HtmlText(m_diagram.unit));
        return m_svg;
    }

private:
    double X(double at) const { return kLeft + (kWidth - kLeft - kRight) * at / m_length; }
    double Y(double value) const
    {
        return kTop +
               (kHeight - kTop - kBottom) * (m_span.high - value) / (m_span.high - m_span.low);
    }

    void Grid()
    {
        const double step = StepOf(m_span.high - m_span.low, 6);
        for (const double value : MultiplesOf(step, m_span.low, m_span.high))
            m_svg += Format(L"<path d=\"M%g %.1fH%g\" stroke=\"%s\"/><text x=\"%g\" y=\"%.1f\" "
                            L"text-anchor=\"end\">%s</text>\n",
                            kLeft, Y(value), kWidth - kRight,
                            std::wstring(value == 0 ? L"#888" : L"#ddd"), kLeft - 4, Y(value) + 4,
                            NumberText(value));
        const double along = StepOf(m_length, 8);
        double free = 0; // where the next text may stand: an equation brings two together
        for (const double at : m_road.stations.RoundPlaces(0, m_length, along)) {
            m_svg += Format(L"<path d=\"M%.1f %gV%g\" stroke=\"#ddd\"/>\n", X(at), kTop,
                            kHeight - kBottom);
            if (X(at) < free) continue;
            m_svg += Format(L"<text x=\"%.1f\" y=\"%g\" text-anchor=\"middle\">%s</text>\n", X(at),
                            kHeight - kBottom + 30,
                            StationText(m_road.stations.At(at), std::min(DecimalsOf(along), 3)));
            free = X(at) + kStationRoom;
        }
    }

    // Below the curve, in a row for each severity: told apart without colours as well.
    void Findings()
    {
        for (const size_t index : m_diagram.findings)
            Mark(m_report.findings[index]);
    }

    void Mark(const Finding& finding)
    {
        constexpr const wchar_t* kColours[] = {L"#d1242f", L"#d97706", L"#2563eb"};
        constexpr double kRow = 5, kThickness[] = {4.5, 3, 2};
        const auto severity = static_cast<size_t>(finding.rule->severity);
        m_svg +=
            Format(L"<rect x=\"%.1f\" y=\"%g\" width=\"%.1f\" height=\"%g\" fill=\"%s\">"
                   L"<title>%s</title></rect>\n",
                   X(finding.from), kHeight - kBottom + 2 + kRow * static_cast<double>(severity),
                   std::max(X(finding.to) - X(finding.from), 2.0), kThickness[severity],
                   std::wstring(kColours[severity]), HtmlText(finding.message));
    }

    void Line(const std::vector<DiagramPoint>& line)
    {
        m_svg += L"<polyline fill=\"none\" stroke=\"#111\" stroke-width=\"1.5\" points=\"";
        for (const DiagramPoint& point : line)
            m_svg += Format(L"%.1f,%.1f ", X(point.at), Y(point.value));
        m_svg += L"\"/>\n";
    }

    const Alignment& m_road;
    const AlignmentReport& m_report;
    const Diagram& m_diagram;
    const double m_length;
    const ValueSpan m_span;
    std::wstring m_svg;
};

constexpr const wchar_t* kHead =
    L"<!DOCTYPE html>\n<html lang=\"zh-CN\">\n<head>\n<meta charset=\"utf-8\">\n"
    L"<meta name=\"viewport\" "
    L"content=\"width=device-width\">\n<title>道路检核报告</title>\n<style>\n"
    L"body{font:14px/1.5 sans-serif;margin:2em auto;max-width:72em;padding:0 1em;color:#111}\n"
    L"table{border-collapse:collapse;width:100%}\n"
    L"th,td{border-bottom:1px solid #ddd;padding:.25em .6em;text-align:left;vertical-align:top}\n"
    L"th,td.place,td.error,td.warning,td.note{white-space:nowrap}thead{display:table-header-group}"
    L"tr{break-inside:avoid}\n"
    L".error{color:#b91c1c}.warning{color:#b45309}.note{color:#1d4ed8}\n"
    L"svg{display:block;width:100%;break-inside:avoid;margin:.5em 0}h2{break-after:avoid}\n"
    L"@media print{body{margin:0;max-width:none;font-size:10pt}section{break-before:page}"
    L"section:first-of-type{break-before:auto}}\n"
    L"</style>\n</head>\n<body>\n<h1>道路检核报告</h1>\n";

std::wstring Place(const Alignment& road, double from, double to)
{
    return Format(L"<td class=\"place\">%s ~ %s</td>", road.stations.Text(from),
                  road.stations.Text(to));
}

std::wstring FindingTable(const CheckedRoad& one)
{
    if (one.report.findings.empty()) return L"<p>没有发现。</p>\n";
    std::wstring html = L"<table>\n<thead><tr><th>桩号</th><th>程度</th><th>规则</th><th>说明</th>"
                        L"<th>数据来源</th></tr></thead>\n<tbody>\n";
    for (const Finding& f : one.report.findings)
        html += Format(L"<tr>%s<td class=\"%s\">%s</td><td>%s</td><td>%s</td><td>%s</td></tr>\n",
                       Place(one.road, f.from, f.to), std::wstring(ClassOf(f.rule->severity)),
                       std::wstring(SeverityLabel(f.rule->severity)), HtmlText(f.rule->title),
                       HtmlText(f.message), HtmlText(f.source));
    return html + L"</tbody>\n</table>\n";
}

std::wstring UncheckedTable(const CheckedRoad& one)
{
    if (one.report.unchecked.empty()) return {};
    std::wstring html = L"<h3>未检核</h3>\n<table>\n<thead><tr><th>桩号</th><th>规则</th>"
                        L"<th>原因</th></tr></thead>\n<tbody>\n";
    for (const Unchecked& u : one.report.unchecked)
        html += Format(L"<tr>%s<td>%s</td><td>%s</td></tr>\n", Place(one.road, u.from, u.to),
                       HtmlText(u.rule ? u.rule->title : L"全部"), HtmlText(u.why));
    return html + L"</tbody>\n</table>\n";
}

} // namespace

std::string SvgDiagram(const Alignment& road, const AlignmentReport& report, const Diagram& diagram)
{
    return ToUtf8(SvgWriter(road, report, diagram).Write());
}

std::string HtmlReport(const std::vector<CheckedFile>& files,
                       const CDesignSpecification& specification, const CheckOptions& options)
{
    const FindingCounts counts = CountFindings(files);
    std::wstring html = kHead;
    html += Format(L"<p>设计规范: %s。错误 %d, 警告 %d, 提示 %d。</p>\n",
                   HtmlText(specification.Name()), counts.errors, counts.warnings, counts.notes);
    for (const CheckedFile& file : files) {
        for (const Problem& problem : file.problems)
            html += Format(L"<p class=\"%s\">%s</p>\n",
                           std::wstring(problem.severity == Severity::Error ? L"error" : L"note"),
                           HtmlText(problem.Text()));
        for (const CheckedRoad& one : file.roads) {
            html += Format(L"<section>\n<h2>%s: %s</h2>\n<p>%s ~ %s</p>\n", HtmlText(file.path),
                           HtmlText(one.road.name), one.road.stations.Text(0),
                           one.road.stations.Text(one.road.length));
            if (one.hasSpeed) {
                for (const Diagram& diagram :
                     DiagramsOf(one.road, specification, options, one.report))
                    html += SvgWriter(one.road, one.report, diagram).Write();
                html += FindingTable(one) + UncheckedTable(one);
            } else {
                html += L"<p class=\"error\">没有设计车速。</p>\n";
            }
            html += L"</section>\n";
        }
    }
    return ToUtf8(html + L"</body>\n</html>\n");
}

} // namespace roadcheck
