#include "roads/RoadJson.h"

#include <algorithm>

#include <nlohmann/json.hpp>

#include "base/Number.h"
#include "base/Text.h"

using namespace designspec;

namespace roadcheck {

namespace {

using Json = nlohmann::ordered_json;

// Bytes of a name that are no UTF-8 are shown by the library's replacement character.
Json Text(const std::wstring& text)
{
    return ToUtf8(text);
}

Json PlaceJson(const Alignment& road, double from, double to)
{
    return {{"from", from},
            {"to", to},
            {"stationFrom", Text(road.stations.Text(from))},
            {"stationTo", Text(road.stations.Text(to))}};
}

Json FindingJson(const Alignment& road, const Finding& finding)
{
    Json json = {
        {"rule", Text(finding.rule->id)},
        {"severity", SeverityName(finding.rule->severity)},
        {"element", {{"kind", Text(finding.element.kind)}, {"index", finding.element.index}}}};
    json.update(PlaceJson(road, finding.from, finding.to));
    json["speed"] = finding.speed ? Json(finding.speed) : Json();
    json["value"] = finding.value;
    json["limit"] = finding.limit;
    json["unit"] = Text(finding.unit);
    json["criterion"] = Text(finding.criterion);
    json["source"] = Text(finding.source);
    json["message"] = Text(finding.message);
    return json;
}

Json UncheckedJson(const Alignment& road, const Unchecked& one)
{
    Json json = {{"rule", one.rule ? Text(one.rule->id) : Json()}, {"why", Text(one.why)}};
    json.update(PlaceJson(road, one.from, one.to));
    return json;
}

Json ElementsJson(const Alignment& road)
{
    const auto count = [&](PlanKind kind) {
        return std::count_if(road.plan.begin(), road.plan.end(),
                             [&](const PlanElement& one) { return one.kind == kind; });
    };
    const auto curves = std::count_if(road.vertical.begin(), road.vertical.end(),
                                      [](const VerticalPoint& one) { return one.length > 0; });
    return {{"lines", count(PlanKind::Line)},
            {"curves", count(PlanKind::Arc)},
            {"spirals", count(PlanKind::Spiral)},
            {"grades", road.vertical.empty() ? 0 : road.vertical.size() - 1},
            {"verticalCurves", curves}};
}

Json RoadJson(const CheckedRoad& one)
{
    const Alignment& road = one.road;
    Json json = {{"name", Text(road.name)},
                 {"length", road.length},
                 {"stationFrom", Text(road.stations.Text(0))},
                 {"stationTo", Text(road.stations.Text(road.length))},
                 {"elements", ElementsJson(road)},
                 {"findings", Json::array()},
                 {"unchecked", Json::array()}};
    for (const Finding& finding : one.report.findings)
        json["findings"].push_back(FindingJson(road, finding));
    for (const Unchecked& unchecked : one.report.unchecked)
        json["unchecked"].push_back(UncheckedJson(road, unchecked));
    return json;
}

class CsvLine {
public:
    explicit CsvLine(std::string& all) : m_all(all) {}
    CsvLine& Add(const std::wstring& text)
    {
        std::string cell = ToUtf8(text);
        // What a spreadsheet would compute.
        if (!cell.empty() && std::string_view("=+-@\t\r").find(cell[0]) != std::string_view::npos)
            cell.insert(0, 1, '\'');
        Put(cell);
        return *this;
    }
    CsvLine& Add(double number)
    {
        Put(DoubleToText(number));
        return *this;
    }
    void End() { m_all += "\r\n"; }

private:
    void Put(const std::string& cell)
    {
        if (!m_first) m_all += ',';
        m_first = false;
        if (cell.find_first_of("\",\r\n") == std::string::npos) {
            m_all += cell;
            return;
        }
        m_all += '"';
        for (const char c : cell)
            m_all += c == '"' ? std::string("\"\"") : std::string(1, c);
        m_all += '"';
    }

    std::string& m_all;
    bool m_first = true;
};

} // namespace

std::string JsonReport(const std::vector<CheckedFile>& files)
{
    Json all = {{"files", Json::array()}};
    for (const CheckedFile& file : files) {
        Json json = {{"file", Text(file.path)}, {"alignments", Json::array()}};
        for (const CheckedRoad& one : file.roads)
            json["alignments"].push_back(RoadJson(one));
        all["files"].push_back(json);
    }
    const FindingCounts counts = CountFindings(files);
    all["errors"] = counts.errors;
    all["warnings"] = counts.warnings;
    all["notes"] = counts.notes;
    return all.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string CsvReport(const std::vector<CheckedFile>& files)
{
    std::string all = "\xEF\xBB\xBF";
    CsvLine heading(all);
    for (const wchar_t* const name :
         {L"文件", L"路线", L"程度", L"规则", L"起点桩号", L"终点桩号", L"车速(km/h)", L"值",
          L"限值", L"单位", L"条目", L"数据来源", L"说明"})
        heading.Add(name);
    heading.End();
    for (const CheckedFile& file : files)
        for (const CheckedRoad& one : file.roads) {
            const Stationing& stations = one.road.stations;
            const auto begin = [&](const wchar_t* severity, const Rule* rule, double from,
                                   double to) {
                CsvLine line(all);
                line.Add(file.path).Add(one.road.name).Add(severity);
                line.Add(std::wstring(rule ? rule->id : L""));
                line.Add(stations.Text(from)).Add(stations.Text(to));
                return line;
            };
            for (const Finding& f : one.report.findings) {
                CsvLine line = begin(SeverityLabel(f.rule->severity), f.rule, f.from, f.to);
                if (f.speed)
                    line.Add(f.speed);
                else
                    line.Add(std::wstring());
                line.Add(f.value).Add(f.limit).Add(std::wstring(f.unit)).Add(f.criterion);
                line.Add(f.source).Add(f.message).End();
            }
            for (const Unchecked& u : one.report.unchecked) {
                CsvLine line = begin(L"未检核", u.rule, u.from, u.to);
                for (int i = 0; i < 6; ++i)
                    line.Add(std::wstring());
                line.Add(u.why).End();
            }
        }
    return all;
}

} // namespace roadcheck
