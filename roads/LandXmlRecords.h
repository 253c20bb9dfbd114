// What a LandXML file says of its roads, in its own units and words; roads/AlignmentBuilder.h makes
// alignments of it. Parts of such a file stand in any order, so all is gathered first.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "roads/XmlEvents.h"

namespace roadcheck {

// The first two numbers of a point: northing and easting, or the other way round.
struct RecordPoint {
    double first = 0, second = 0;
};

// An element with its attributes and the place in the file.
struct Record {
    std::string name; // of the element
    XmlAttributes attributes;
    int line = 0;

    // Empty when it is missing.
    std::string Text(std::string_view attribute) const;
};

struct PlanRecord : Record {
    explicit PlanRecord(const Record& record) : Record(record) {}

    std::optional<RecordPoint> start, end, center;
};

// An element whose text is numbers: a point of a profile, a place of a superelevation.
struct ValueRecord : Record {
    explicit ValueRecord(const Record& record) : Record(record) {}

    std::vector<double> values;
};

struct ProfileRecord : Record {
    explicit ProfileRecord(const Record& record) : Record(record) {}

    std::vector<ValueRecord> points;
};

struct AlignmentRecord : Record {
    explicit AlignmentRecord(const Record& record) : Record(record) {}

    std::vector<PlanRecord> plan;
    std::vector<Record> equations;
    std::vector<ProfileRecord> profiles;
    std::vector<std::vector<ValueRecord>> superelevations;
};

struct RoadwayRecord : Record {
    explicit RoadwayRecord(const Record& record) : Record(record) {}

    std::vector<Record> speeds;
    std::vector<Record> lanes;
};

struct LandXmlRecords {
    std::optional<Record> units; // the element below Units: Metric or Imperial
    std::vector<AlignmentRecord> alignments;
    std::vector<RoadwayRecord> roadways;
};

// False when the file could not be read to its end or is no LandXML; a problem says why. What had
// been read until then stands in `records`.
bool ReadLandXml(const std::wstring& path, LandXmlRecords& records, designspec::Problems& problems,
                 const std::atomic<bool>* cancel = nullptr);

} // namespace roadcheck
