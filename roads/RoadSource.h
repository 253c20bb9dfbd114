// What the parts of one LandXML file are read with: its units, its order of coordinates, and where
// what is odd about it goes.
#pragma once

#include <optional>

#include "roads/Geometry.h"
#include "roads/LandXmlRecords.h"
#include "roads/RoadUnits.h"

namespace roadcheck {

class RoadSource {
public:
    // Units and order of coordinates are those of the records.
    RoadSource(const std::wstring& path, const LandXmlRecords& records,
               designspec::Problems& problems);

    const RoadUnits& Units() const { return m_units; }

    // A number of the file as it stands there; nothing when the attribute is missing or empty. One
    // that cannot be read is told, and is nothing as well.
    std::optional<double> Number(const Record& record, std::string_view attribute) const;
    // m.
    std::optional<double> Length(const Record& record, std::string_view attribute) const;
    // m above 0, or kStraight: of "INF", 0 and 1E+308 alike, which programs write for a straight.
    std::optional<double> Radius(const Record& record, std::string_view attribute) const;
    // "cw" and "ccw"; None for anything else.
    Turn Rotation(const Record& record) const;
    std::optional<PlanPoint> Point(const std::optional<RecordPoint>& point) const;

    void Note(int line, const std::wstring& text) const;
    void Error(int line, const std::wstring& text) const;

private:
    bool IsEastingFirst(const LandXmlRecords& records) const;

    const std::wstring& m_path;
    designspec::Problems& m_problems;
    RoadUnits m_units;
    bool m_eastingFirst = false;
};

} // namespace roadcheck
