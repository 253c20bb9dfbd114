#include "roads/RoadFileReading.h"

#include <algorithm>
#include <cmath>

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "roads/PlanReading.h"
#include "roads/ProfileReading.h"

using namespace designspec;

namespace roadcheck {

namespace {

class AlignmentReader {
public:
    AlignmentReader(const LandXmlRecords& records, const AlignmentRecord& record,
                    const RoadSource& source)
        : m_records(records), m_record(record), m_source(source),
          m_start(source.Length(record, "staStart").value_or(0))
    {
    }

    Alignment Read()
    {
        m_alignment.name = Trim(ToWide(m_record.Text("name")));
        m_alignment.line = m_record.line;
        m_alignment.plan = ReadPlan(m_record, m_source, m_start);
        TakeProfile();
        TakeLength();
        TakeEquations();
        for (const std::vector<ValueRecord>& one : m_record.superelevations)
            TakeSuperelevation(one);
        std::stable_sort(
            m_alignment.superelevations.begin(), m_alignment.superelevations.end(),
            [](const CrossSlopes& a, const CrossSlopes& b) { return a.front().at < b.front().at; });
        for (const RoadwayRecord& roadway : m_records.roadways)
            if (IsMeant(roadway)) TakeRoadway(roadway);
        return std::move(m_alignment);
    }

private:
    void TakeProfile();
    void TakeLength();
    void TakeEquations();
    void TakeSuperelevation(const std::vector<ValueRecord>& values);
    bool IsMeant(const RoadwayRecord& roadway) const;
    void TakeRoadway(const RoadwayRecord& roadway);
    void TakeSpeed(const Record& record);
    void TakeLane(const Record& record);
    double From(const Record& record) const;
    double To(const Record& record) const;

    const LandXmlRecords& m_records;
    const AlignmentRecord& m_record;
    const RoadSource& m_source;
    const double m_start; // station of the alignment's start, m
    Alignment m_alignment;
};

void AlignmentReader::TakeProfile()
{
    if (m_record.profiles.empty()) return;
    const ProfileRecord& first = m_record.profiles.front();
    m_alignment.profile = ToWide(first.Text("name"));
    if (m_record.profiles.size() > 1)
        m_source.Note(first.line,
                      Format(L"路线“%s”有 %d 个设计纵断面,采用第一个“%s”", m_alignment.name,
                             m_record.profiles.size(), m_alignment.profile));
    m_alignment.vertical = ReadProfile(first, m_source, m_start);
}

// The plan's length; without a plan the end of the profile. A file that says another one is told.
void AlignmentReader::TakeLength()
{
    const std::optional<double> said = m_source.Length(m_record, "length");
    if (!m_alignment.plan.empty())
        m_alignment.length = m_alignment.plan.back().To();
    else if (!m_alignment.vertical.empty())
        m_alignment.length = m_alignment.vertical.back().at;
    if (said && !m_alignment.plan.empty() && std::fabs(*said - m_alignment.length) > 10 * kNoLength)
        m_source.Note(m_record.line, Format(L"路线“%s”长 %.3f m,文件中写作 %.3f m",
                                            m_alignment.name, m_alignment.length, *said));
}

void AlignmentReader::TakeEquations()
{
    std::vector<StationEquation> equations;
    for (const Record& record : m_record.equations) {
        const std::optional<double> back = m_source.Length(record, "staBack");
        const std::optional<double> inside = m_source.Length(record, "staInternal");
        const std::optional<double> ahead = m_source.Length(record, "staAhead");
        if (!ahead || (!inside && !back)) {
            m_source.Error(record.line, L"断链缺少桩号");
            continue;
        }
        StationEquation equation;
        equation.at = inside.value_or(back.value_or(0)) - m_start;
        equation.ahead = *ahead;
        equation.step = record.Text("staIncrement") == "decreasing" ? -1 : 1;
        equations.push_back(equation);
    }
    std::stable_sort(equations.begin(), equations.end(),
                     [](const auto& a, const auto& b) { return a.at < b.at; });
    m_alignment.stations = Stationing(m_start);
    for (const StationEquation& equation : equations)
        m_alignment.stations.Add(equation);
}

// A curve's superelevation: level at the beginning of the runoff, full between two places, level
// again where the runout begins.
void AlignmentReader::TakeSuperelevation(const std::vector<ValueRecord>& values)
{
    const auto value = [&](std::string_view name) -> std::optional<double> {
        for (const ValueRecord& one : values)
            if (one.name == name && !one.values.empty()) return one.values[0];
        return {};
    };
    const std::optional<double> full = value("FullSuperelev");
    if (!full) return;
    CrossSlopes slopes;
    const auto put = [&](std::string_view name, double slope) {
        if (const auto station = value(name))
            slopes.push_back({*station * m_source.Units().length - m_start, slope});
    };
    put("BeginRunoffSta", 0);
    put("FullSuperSta", std::fabs(*full));
    put("RunoffSta", std::fabs(*full));
    put("StartofRunoutSta", 0);
    std::stable_sort(slopes.begin(), slopes.end(),
                     [](const CrossSlope& a, const CrossSlope& b) { return a.at < b.at; });
    if (!slopes.empty()) m_alignment.superelevations.push_back(std::move(slopes));
}

// Names may hold blanks, and so may the list of them.
bool AlignmentReader::IsMeant(const RoadwayRecord& roadway) const
{
    const std::wstring names = Trim(ToWide(roadway.Text("alignmentRefs")));
    if (names.empty() || names == m_alignment.name) return true;
    const std::vector<std::wstring> each = SplitText(names, L" \t\r\n");
    return std::find(each.begin(), each.end(), m_alignment.name) != each.end();
}

void AlignmentReader::TakeRoadway(const RoadwayRecord& roadway)
{
    for (const Record& record : roadway.speeds)
        TakeSpeed(record);
    for (const Record& record : roadway.lanes)
        TakeLane(record);
}

double AlignmentReader::From(const Record& record) const
{
    const std::optional<double> station = m_source.Length(record, "staStart");
    return station ? *station - m_start : 0;
}

double AlignmentReader::To(const Record& record) const
{
    const std::optional<double> station = m_source.Length(record, "staEnd");
    return station ? *station - m_start : m_alignment.length;
}

void AlignmentReader::TakeSpeed(const Record& record)
{
    const std::optional<double> speed = m_source.Number(record, "speed");
    if (!speed) return;
    std::string name = record.Text("speedUnit");
    double unit = m_source.Units().speed;
    if (!name.empty()) {
        if (const auto known = SpeedUnit(name))
            unit = *known;
        else
            return m_source.Error(record.line, Format(L"车速的单位“%s”无法识别", ToWide(name)));
    }
    const double kmh = std::round(*speed * unit);
    if (!(kmh >= 1 && kmh <= 1000))
        return m_source.Error(record.line, Format(L"设计车速 %g 不在 1 到 1000 km/h 之间", *speed));
    m_alignment.speeds.push_back({From(record), To(record), static_cast<int>(kmh)});
}

void AlignmentReader::TakeLane(const Record& record)
{
    const std::optional<double> width = m_source.Length(record, "width");
    if (!width || *width <= 0) return;
    const std::wstring side = ToWide(record.Text("side"));
    const double from = From(record), to = To(record);
    const auto put = [&](Turn where, double share) {
        m_alignment.lanes.push_back({from, to, *width * share, where});
    };
    if (EqualNoCase(side, L"left")) return put(Turn::Left, 1);
    if (EqualNoCase(side, L"right")) return put(Turn::Right, 1);
    // "both" is a lane on either side; one without a side lies on the axis.
    const double share = EqualNoCase(side, L"both") ? 1 : 0.5;
    put(Turn::Left, share);
    put(Turn::Right, share);
}

bool IsEmpty(const Alignment& alignment)
{
    return alignment.plan.empty() && alignment.vertical.size() < 2;
}

} // namespace

RoadFile ReadRoadFile(const std::wstring& path, const std::atomic<bool>* cancel)
{
    RoadFile file;
    file.path = path;
    LandXmlRecords records;
    const bool whole = ReadLandXml(path, records, file.problems, cancel);
    const RoadSource source(file.path, records, file.problems);
    for (const AlignmentRecord& record : records.alignments) {
        Alignment alignment = AlignmentReader(records, record, source).Read();
        if (IsEmpty(alignment))
            source.Note(record.line, Format(L"路线“%s”没有线形", alignment.name));
        else
            file.alignments.push_back(std::move(alignment));
    }
    if (whole && file.alignments.empty()) source.Error(0, L"文件中没有路线");
    return file;
}

} // namespace roadcheck
