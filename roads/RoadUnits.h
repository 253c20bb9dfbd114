// The units of a LandXML file.
#pragma once

#include <optional>

#include "roads/LandXmlRecords.h"

namespace roadcheck {

struct RoadUnits {
    double length = 1;          // m a unit
    double speed = 1;           // km/h a unit
    double angle = 1;           // degrees a unit
    bool isSexagesimal = false; // an angle of 45.3025 is 45° 30' 25"
};

// Metres, km/h and decimal degrees where the file does not say otherwise; miles an hour where it
// says Imperial and nothing of speeds. A word that is no unit adds an error to `problems`.
RoadUnits UnitsOf(const std::optional<Record>& units, const std::wstring& path,
                  designspec::Problems& problems);

// Degrees of an angle of the file.
double Degrees(const RoadUnits& units, double angle);
// km/h a unit of speed of that name; nothing for one that is not known.
std::optional<double> SpeedUnit(std::string_view name);

} // namespace roadcheck
