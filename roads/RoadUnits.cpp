#include "roads/RoadUnits.h"

#include <cmath>
#include <numbers>

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"

using namespace designspec;

namespace roadcheck {

namespace {

struct Unit {
    std::string_view name;
    double size;
};

// m. The survey foot is 1200/3937 m by definition, the international one 0.3048 m.
constexpr Unit kLengths[] = {
    {"meter", 1},
    {"metre", 1},
    {"millimeter", 0.001},
    {"centimeter", 0.01},
    {"kilometer", 1000},
    {"foot", 0.3048},
    {"feet", 0.3048},
    {"internationalFoot", 0.3048},
    {"inch", 0.0254},
    {"mile", 1609.344},
    {"USSurveyFoot", 1200.0 / 3937},
};

// km/h.
constexpr Unit kSpeeds[] = {
    {"kilometersPerHour", 1},
    {"kilometresPerHour", 1},
    {"km/h", 1},
    {"kph", 1},
    {"milesPerHour", 1.609344},
    {"mph", 1.609344},
    {"m/s", 3.6},
    {"metersPerSecond", 3.6},
    {"metresPerSecond", 3.6},
    {"feetPerSecond", 0.3048 * 3.6},
    {"ft/s", 0.3048 * 3.6},
};

// Degrees; the sexagesimal one is taken apart in Degrees.
constexpr std::string_view kSexagesimal = "decimal dd.mm.ss";
constexpr Unit kAngles[] = {
    {"decimal degrees", 1},
    {"radians", 180 / std::numbers::pi},
    {"grads", 0.9},
    {kSexagesimal, 1},
};

template <size_t Count>
std::optional<double> SizeOf(const Unit (&units)[Count], std::string_view name)
{
    for (const Unit& unit : units)
        if (EqualNoCase(ToWide(unit.name), ToWide(name))) return unit.size;
    return {};
}

} // namespace

std::optional<double> SpeedUnit(std::string_view name)
{
    return SizeOf(kSpeeds, name);
}

double Degrees(const RoadUnits& units, double angle)
{
    if (!units.isSexagesimal) return angle * units.angle;
    const double whole = std::trunc(angle);
    // What a decimal number holds of "30" may be a little less.
    const double minutes = std::trunc((angle - whole) * 100 + std::copysign(1e-6, angle));
    const double seconds = ((angle - whole) * 100 - minutes) * 100;
    return whole + minutes / 60 + seconds / 3600;
}

RoadUnits UnitsOf(const std::optional<Record>& record, const std::wstring& path, Problems& problems)
{
    RoadUnits units;
    if (!record) return units;
    const auto take = [&](const char* attribute, const auto& known, double& size) {
        const std::string name = record->Text(attribute);
        if (name.empty()) return false;
        const std::optional<double> found = SizeOf(known, name);
        if (found)
            size = *found;
        else
            AddProblem(problems, Severity::Error, path, record->line,
                       Format(L"单位 %s=“%s”无法识别", ToWide(attribute), ToWide(name)));
        return true;
    };
    if (record->name == "Imperial") units = {kLengths[5].size, 1.609344};
    take("linearUnit", kLengths, units.length);
    take("angularUnit", kAngles, units.angle);
    units.isSexagesimal = record->Text("angularUnit") == kSexagesimal;
    if (!take("speedUnit", kSpeeds, units.speed)) take("velocityUnit", kSpeeds, units.speed);
    return units;
}

} // namespace roadcheck
