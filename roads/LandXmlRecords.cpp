#include "roads/LandXmlRecords.h"

#include "base/Number.h"
#include "base/Text.h"

using namespace designspec;

namespace roadcheck {

std::string Record::Text(std::string_view attribute) const
{
    const std::string* const value = attributes.Find(attribute);
    return value ? *value : std::string();
}

namespace {

// Where in the file the reading is.
enum class Place {
    File,
    Root,
    Units,
    UnitSystem,
    Alignments,
    Alignment,
    Plan,
    PlanElement,
    PlanPoint,
    Equation,
    Profile,
    DesignProfile,
    ProfilePoint,
    Superelevation,
    SuperelevationValue,
    Roadways,
    Roadway,
    Speeds,
    Speed,
    Lanes,
    Lane,
};

// What is wanted of each place; all else is passed over.
constexpr struct {
    Place in;
    std::string_view name;
    Place to;
} kWays[] = {
    {Place::File, "LandXML", Place::Root},
    {Place::Root, "Units", Place::Units},
    {Place::Units, "Metric", Place::UnitSystem},
    {Place::Units, "Imperial", Place::UnitSystem},
    {Place::Root, "Alignments", Place::Alignments},
    {Place::Alignments, "Alignment", Place::Alignment},
    {Place::Alignment, "CoordGeom", Place::Plan},
    {Place::Plan, "Line", Place::PlanElement},
    {Place::Plan, "Curve", Place::PlanElement},
    {Place::Plan, "Spiral", Place::PlanElement},
    {Place::Plan, "IrregularLine", Place::PlanElement},
    {Place::Plan, "Chain", Place::PlanElement},
    {Place::PlanElement, "Start", Place::PlanPoint},
    {Place::PlanElement, "End", Place::PlanPoint},
    {Place::PlanElement, "Center", Place::PlanPoint},
    {Place::Alignment, "StaEquation", Place::Equation},
    {Place::Alignment, "Profile", Place::Profile},
    {Place::Profile, "ProfAlign", Place::DesignProfile},
    {Place::DesignProfile, "PVI", Place::ProfilePoint},
    {Place::DesignProfile, "ParaCurve", Place::ProfilePoint},
    {Place::DesignProfile, "UnsymParaCurve", Place::ProfilePoint},
    {Place::DesignProfile, "CircCurve", Place::ProfilePoint},
    {Place::Alignment, "Superelevation", Place::Superelevation},
    {Place::Superelevation, "BeginRunoutSta", Place::SuperelevationValue},
    {Place::Superelevation, "BeginRunoffSta", Place::SuperelevationValue},
    {Place::Superelevation, "FullSuperSta", Place::SuperelevationValue},
    {Place::Superelevation, "FullSuperelev", Place::SuperelevationValue},
    {Place::Superelevation, "RunoffSta", Place::SuperelevationValue},
    {Place::Superelevation, "StartofRunoutSta", Place::SuperelevationValue},
    {Place::Superelevation, "EndofRunoutSta", Place::SuperelevationValue},
    {Place::Root, "Roadways", Place::Roadways},
    {Place::Roadways, "Roadway", Place::Roadway},
    {Place::Roadway, "Speeds", Place::Speeds},
    {Place::Speeds, "DesignSpeed", Place::Speed},
    {Place::Roadway, "Lanes", Place::Lanes},
    {Place::Lanes, "ThruLane", Place::Lane},
    {Place::Lanes, "PassingLane", Place::Lane},
};

// The numbers that the text begins with, between blanks or commas.
std::vector<double> Numbers(std::string_view text)
{
    constexpr std::string_view kBetween = " \t\r\n,";
    std::vector<double> numbers;
    while (true) {
        const size_t begin = text.find_first_not_of(kBetween);
        if (begin == text.npos) return numbers;
        const size_t end = std::min(text.find_first_of(kBetween, begin), text.size());
        double number = 0;
        if (!ParseDouble(text.substr(begin, end - begin), number)) return numbers;
        numbers.push_back(number);
        text.remove_prefix(end);
    }
}

class RecordReader : public XmlHandler {
public:
    explicit RecordReader(LandXmlRecords& records) : m_records(records) {}

    bool Wants(std::string_view name) override
    {
        for (const auto& way : kWays)
            if (way.in == m_places.back() && way.name == name) {
                m_next = way.to;
                return true;
            }
        return false;
    }

    void Start(std::string_view name, const XmlAttributes& attributes, int line) override
    {
        m_places.push_back(m_next);
        const Record record = {std::string(name), attributes, line};
        switch (m_next) {
        case Place::Root:
            m_isLandXml = true;
            break;
        case Place::UnitSystem:
            m_records.units = record;
            break;
        case Place::Alignment:
            m_records.alignments.emplace_back(record);
            break;
        case Place::PlanElement:
            Alignment().plan.emplace_back(record);
            break;
        case Place::Equation:
            Alignment().equations.push_back(record);
            break;
        case Place::DesignProfile:
            Alignment().profiles.emplace_back(record);
            break;
        case Place::ProfilePoint:
            Alignment().profiles.back().points.emplace_back(record);
            break;
        case Place::Superelevation:
            Alignment().superelevations.emplace_back();
            break;
        case Place::SuperelevationValue:
            Alignment().superelevations.back().emplace_back(record);
            break;
        case Place::Roadway:
            m_records.roadways.emplace_back(record);
            break;
        case Place::Speed:
            m_records.roadways.back().speeds.push_back(record);
            break;
        case Place::Lane:
            m_records.roadways.back().lanes.push_back(record);
            break;
        default:
            break;
        }
    }

    void End(std::string_view name, std::string_view text) override
    {
        const Place place = m_places.back();
        m_places.pop_back();
        switch (place) {
        case Place::PlanPoint:
            TakePoint(name, text);
            break;
        case Place::ProfilePoint:
            Alignment().profiles.back().points.back().values = Numbers(text);
            break;
        case Place::SuperelevationValue:
            Alignment().superelevations.back().back().values = Numbers(text);
            break;
        default:
            break;
        }
    }

    bool IsLandXml() const { return m_isLandXml; }

private:
    AlignmentRecord& Alignment() { return m_records.alignments.back(); }

    void TakePoint(std::string_view name, std::string_view text)
    {
        const std::vector<double> numbers = Numbers(text);
        if (numbers.size() < 2) return;
        PlanRecord& element = Alignment().plan.back();
        (name == "Start" ? element.start
         : name == "End" ? element.end
                         : element.center) = RecordPoint{numbers[0], numbers[1]};
    }

    LandXmlRecords& m_records;
    std::vector<Place> m_places = {Place::File};
    Place m_next = Place::File;
    bool m_isLandXml = false;
};

} // namespace

bool ReadLandXml(const std::wstring& path, LandXmlRecords& records, Problems& problems,
                 const std::atomic<bool>* cancel)
{
    RecordReader reader(records);
    if (!ReadXmlEvents(path, reader, problems, cancel)) return false;
    if (reader.IsLandXml()) return true;
    AddProblem(problems, Severity::Error, path, 0, L"不是 LandXML 文件");
    return false;
}

} // namespace roadcheck
