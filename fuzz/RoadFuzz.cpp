// A road file of any bytes: what is read of it is a road without gaps, and can be checked and
// reported.
#include <cmath>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/Fuzz.h"
#include "roads/HtmlReport.h"
#include "roads/RoadFileReading.h"
#include "roads/RoadJson.h"

using namespace roadcheck;

namespace {

// A file of these bytes, without a place on disk.
class FileInMemory {
public:
    explicit FileInMemory(std::string_view bytes) : m_file(memfd_create("road", MFD_CLOEXEC))
    {
        Require(m_file >= 0);
        Require(write(m_file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
        lseek(m_file, 0, SEEK_SET);
    }
    ~FileInMemory() { close(m_file); }
    FileInMemory(const FileInMemory&) = delete;
    FileInMemory& operator=(const FileInMemory&) = delete;

    std::wstring Path() const { return L"/proc/self/fd/" + std::to_wstring(m_file); }

private:
    int m_file;
};

void RequireARoad(const Alignment& road)
{
    double at = 0;
    for (const PlanElement& one : road.plan) {
        Require(one.length > kNoLength && std::isfinite(one.length));
        Require(std::fabs(one.from - at) <= 1e-9 * std::fabs(at));
        Require(one.radiusStart > 0 && one.radiusEnd > 0);
        Require(one.IsCurved() == (one.turn != Turn::None));
        at = one.To();
    }
    for (size_t i = 1; i < road.vertical.size(); ++i)
        Require(road.vertical[i].at - road.vertical[i - 1].at > kNoLength);
}

} // namespace

FUZZ(bytes)
{
    static const CDesignSpecification specification;
    const FileInMemory file(bytes);
    const RoadFile read = ReadRoadFile(file.Path());
    for (const Alignment& road : read.alignments)
        RequireARoad(road);
    Require(!read.alignments.empty() || designspec::HasError(read.problems));

    CheckOptions options;
    options.speeds.push_back({SpeedChoice::Stretch{0, 500}, 60});
    options.car = L"普通汽车";
    const std::vector<CheckedFile> checked = {
        CheckRoadFile(file.Path(), {}, specification, options)};
    JsonReport(checked);
    CsvReport(checked);
    HtmlReport(checked, specification, options);
    return 0;
}
