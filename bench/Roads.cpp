// road_bench: what reading and checking roads costs, beside the parser alone.
#include <filesystem>
#include <fstream>
#include <thread>

#include <benchmark/benchmark.h>
#include <libxml/parser.h>

#include "base/Text.h"
#include "bench/Bench.h"
#include "roads/RoadFileReading.h"
#include "roads/RoadVerification.h"

using namespace designspec;
using namespace roadcheck;

namespace {

namespace fs = std::filesystem;

// A folder that goes with the program.
class Folder {
public:
    Folder()
    {
        std::string folder = (fs::temp_directory_path() / "road_bench-XXXXXX").string();
        Require(mkdtemp(folder.data()) != nullptr, "no temporary folder");
        m_path = folder;
    }
    ~Folder() { fs::remove_all(m_path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    fs::path operator/(const std::string& name) const { return m_path / name; }

private:
    fs::path m_path;
};

const Folder& TheFolder()
{
    static const Folder folder;
    return folder;
}

// An alignment of as many elements: straight, spiral, arc, spiral, and a grade for each of these.
std::string AlignmentOf(int elements, const std::string& name)
{
    std::string plan, profile;
    double at = 0;
    for (int i = 0; i < elements / 4; ++i) {
        const std::string turn = i % 2 ? "\" rot=\"cw\"" : "\" rot=\"ccw\"";
        const std::string radius = std::to_string(300 + i % 700);
        plan += "<Line length=\"400\"/>\n<Spiral length=\"70\" radiusStart=\"INF\" radiusEnd=\"" +
                radius + turn + "/>\n<Curve length=\"200\" radius=\"" + radius + turn +
                "/>\n<Spiral length=\"70\" radiusStart=\"" + radius + "\" radiusEnd=\"INF" + turn +
                "/>\n";
        profile += "<ParaCurve length=\"120\">" + std::to_string(at) + " " +
                   std::to_string(i % 2 ? 110 : 100) + "</ParaCurve>\n";
        at += 740;
    }
    return "<Alignment name=\"" + name + "\" staStart=\"0\"><CoordGeom>" + plan +
           "</CoordGeom><Profile><ProfAlign>" + profile + "</ProfAlign></Profile></Alignment>";
}

std::string FileWith(const std::string& alignments, const std::string& terrain = {})
{
    return "<?xml version=\"1.0\"?><LandXML version=\"1.2\"><Surfaces><Surface><Definition><Pnts>" +
           terrain + "</Pnts></Definition></Surface></Surfaces><Alignments>" + alignments +
           "</Alignments></LandXML>";
}

std::string Write(const std::string& name, const std::string& text)
{
    const fs::path path = TheFolder() / name;
    std::ofstream file(path, std::ios::binary);
    file << text;
    Require(static_cast<bool>(file.flush()), "not written: " + path.string());
    return path.string();
}

// 64 MiB of terrain beside one alignment of a thousand elements.
const std::string& BigFile()
{
    static const std::string path = [] {
        std::string terrain;
        for (int i = 0; terrain.size() < (64 << 20); ++i)
            terrain += "<P id=\"" + std::to_string(i) + "\">4321098.765 " +
                       std::to_string(i % 1000) + ".125 87.654</P>\n";
        return Write("big.xml", FileWith(AlignmentOf(1000, "A"), terrain));
    }();
    return path;
}

void ReadWithReader(benchmark::State& state)
{
    for (auto _ : state) {
        const RoadFile file = ReadRoadFile(ToWide(BigFile()));
        Require(file.alignments.size() == 1 && !HasError(file.problems), "the road was not read");
    }
}

void ReadWithParserAlone(benchmark::State& state)
{
    xmlSAXHandler sax = {};
    sax.initialized = XML_SAX2_MAGIC;
    sax.startElementNs = [](void* context, const xmlChar*, const xmlChar*, const xmlChar*, int,
                            const xmlChar**, int, int,
                            const xmlChar**) { ++*static_cast<int*>(context); };
    sax.endElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*) {};
    sax.characters = [](void*, const xmlChar*, int) {};
    for (auto _ : state) {
        int elements = 0;
        Require(xmlSAXUserParseFile(&sax, &elements, BigFile().c_str()) == 0, "not parsed");
        benchmark::DoNotOptimize(elements);
    }
}

// Time an element; reading is not in it.
void CheckElements(benchmark::State& state)
{
    const RoadFile file = ReadRoadFile(
        ToWide(Write("long.xml", FileWith(AlignmentOf(static_cast<int>(state.range(0)), "A")))));
    Require(file.alignments.size() == 1, "the road was not read");
    const CDesignSpecification specification;
    CheckOptions options;
    options.speeds.push_back({{}, 60});
    for (auto _ : state)
        benchmark::DoNotOptimize(CheckAlignment(file.alignments[0], specification, options));
    state.counters["per element"] = benchmark::Counter(
        static_cast<double>(state.range(0)),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// As many stretches of design speed on one road.
void CheckManySpeeds(benchmark::State& state)
{
    RoadFile file = ReadRoadFile(ToWide(Write("speeds.xml", FileWith(AlignmentOf(1000, "A")))));
    Require(file.alignments.size() == 1, "the road was not read");
    Alignment& road = file.alignments[0];
    const double each = road.length / static_cast<double>(state.range(0));
    for (int64_t i = 0; i < state.range(0); ++i) {
        const double from = each * static_cast<double>(i);
        road.speeds.push_back({from, from + each, i % 2 ? 60 : 80});
    }
    const CDesignSpecification specification;
    for (auto _ : state)
        benchmark::DoNotOptimize(CheckAlignment(road, specification, {}));
}

// A thousand files with that many jobs, on the clock.
void CheckFiles(benchmark::State& state)
{
    static const std::vector<std::wstring> paths = [] {
        const std::string text = FileWith(AlignmentOf(400, "A"));
        std::vector<std::wstring> all;
        for (int i = 0; i < 1000; ++i)
            all.push_back(ToWide(Write("road" + std::to_string(i) + ".xml", text)));
        return all;
    }();
    const CDesignSpecification specification;
    CheckOptions options;
    options.speeds.push_back({{}, 60});
    for (auto _ : state)
        benchmark::DoNotOptimize(
            CheckRoadFiles(paths, {}, specification, options, static_cast<int>(state.range(0))));
}

} // namespace

BENCHMARK(ReadWithParserAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadWithReader)->Unit(benchmark::kMillisecond);
BENCHMARK(CheckElements)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(CheckManySpeeds)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(CheckFiles)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
