#include "roads/RoadSource.h"

#include <cmath>

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Number.h"
#include "base/Text.h"

using namespace designspec;

namespace roadcheck {

namespace {

// A radius from here on, m, is a straight's: on 10 km such a curve is a millimetre off the
// straight.
constexpr double kStraightFrom = 1e9;

bool IsInfinity(std::string_view text)
{
    for (const wchar_t* const word : {L"inf", L"+inf", L"-inf", L"infinity", L"-infinity"})
        if (EqualNoCase(ToWide(text), word)) return true;
    return false;
}

} // namespace

RoadSource::RoadSource(const std::wstring& path, const LandXmlRecords& records, Problems& problems)
    : m_path(path), m_problems(problems), m_units(UnitsOf(records.units, path, problems))
{
    m_eastingFirst = IsEastingFirst(records); // asks points as if they were not
}

// The curves tell: those that say which way they turn, and show it by their points.
bool RoadSource::IsEastingFirst(const LandXmlRecords& records) const
{
    int northing = 0, easting = 0;
    for (const AlignmentRecord& alignment : records.alignments)
        for (const PlanRecord& element : alignment.plan) {
            const Turn turn = Rotation(element);
            if (element.name != "Curve" || turn == Turn::None) continue;
            if (!element.start || !element.center || !element.end) continue;
            const Turn shown =
                TurnOfArc(*Point(element.start), *Point(element.center), *Point(element.end));
            if (shown != Turn::None) ++(shown == turn ? northing : easting);
        }
    return easting > northing;
}

std::optional<double> RoadSource::Number(const Record& record, std::string_view attribute) const
{
    const std::string text = ToUtf8(Trim(ToWide(record.Text(attribute))));
    if (text.empty()) return {};
    double number = 0;
    if (ParseDouble(text, number)) return number;
    Error(record.line,
          Format(L"%s 的 %s=“%s”不是数", ToWide(record.name), ToWide(attribute), ToWide(text)));
    return {};
}

std::optional<double> RoadSource::Length(const Record& record, std::string_view attribute) const
{
    const std::optional<double> number = Number(record, attribute);
    return number ? std::optional(*number * m_units.length) : std::nullopt;
}

std::optional<double> RoadSource::Radius(const Record& record, std::string_view attribute) const
{
    if (IsInfinity(record.Text(attribute))) return kStraight;
    const std::optional<double> number = Length(record, attribute);
    if (!number) return {};
    const double radius = std::fabs(*number);
    return radius < kNoLength || radius > kStraightFrom ? kStraight : radius;
}

Turn RoadSource::Rotation(const Record& record) const
{
    const std::wstring rotation = ToWide(record.Text("rot"));
    return EqualNoCase(rotation, L"cw")    ? Turn::Right
           : EqualNoCase(rotation, L"ccw") ? Turn::Left
                                           : Turn::None;
}

std::optional<PlanPoint> RoadSource::Point(const std::optional<RecordPoint>& point) const
{
    if (!point) return {};
    const double first = point->first * m_units.length, second = point->second * m_units.length;
    return m_eastingFirst ? PlanPoint{first, second} : PlanPoint{second, first};
}

void RoadSource::Note(int line, const std::wstring& text) const
{
    AddProblem(m_problems, Severity::Note, m_path, line, text);
}

void RoadSource::Error(int line, const std::wstring& text) const
{
    AddProblem(m_problems, Severity::Error, m_path, line, text);
}

} // namespace roadcheck
