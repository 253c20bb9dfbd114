// history_bench: what versions cost, with as many specifications as doubles and fifty versions of
// each, and with as many versions as doubles.
#include <filesystem>
#include <fstream>

#include "base/Format.h"
#include "base/Text.h"
#include "bench/Bench.h"
#include "bench/Doubling.h"
#include "bench/MemoryFolder.h"
#include "library/SpecificationFolder.h"
#include "library/SpecificationHistory.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

namespace fs = std::filesystem;

constexpr int kVersions = 50;

// A project's folder of styles, with as many specifications and versions of each.
class Project {
public:
    Project(std::int64_t specifications, std::int64_t versions)
    {
        fs::create_directory(m_folder / "规范");
        for (std::int64_t i = 0; i < specifications; ++i)
            Make(Format(L"城市道路设计规范%d", i), versions);
    }
    ~Project() { fs::remove_all(m_folder); }
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;

    CString Path() const { return ToWide((m_folder / "规范").string()); }

private:
    // As saves have left them, each with another value.
    void Make(const CString& name, std::int64_t versions) const
    {
        CDesignSpecification made;
        made.SetName(name.c_str());
        SpecificationFolder one{L""};
        one.Add(std::make_unique<CDesignSpecification>(made));
        const CString id = VMRDPub::GUIDToStr(made.ID());
        const fs::path history = m_folder / "规范/历史" / ToUtf8(id);
        fs::create_directories(history);
        const fs::path now = m_folder / "规范" / (ToUtf8(name + id) + ".hds");
        Require(one.Export(ToWide(now.string()), {}).done, "a file could not be written");
        const std::string bytes = Read(now);
        const std::string value = "MaxLen=\"20\"";
        const size_t at = bytes.find(value);
        Require(at != std::string::npos, "another file");
        for (std::int64_t i = 1; i <= versions; ++i) {
            const CString file = Format(L"%06d-20990101T000000Z-%016x-%016x-a.hds", i, i, i + 1);
            std::string version = bytes;
            version.replace(at, value.size(), "MaxLen=\"" + std::to_string(100 + i) + "\"");
            std::ofstream(history / ToUtf8(file)) << version;
        }
    }
    static std::string Read(const fs::path& path)
    {
        std::ifstream stream(path);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    fs::path m_folder = MakeMemoryFolder();
};

// One that is loaded, of the project.
class Loaded {
public:
    Loaded(std::int64_t specifications, std::int64_t versions)
        : m_project(specifications, versions), folder(m_project.Path())
    {
        Require(folder.Load().done && folder.Count() == specifications, "one is missing");
    }
    CDesignSpecification& One() const { return *folder.Item(folder.Count() / 2); }

private:
    Project m_project;

public:
    SpecificationFolder folder;
};

void Save(benchmark::State& state, Loaded& loaded, const char* name)
{
    double mark = 1000;
    MeasureGrowth(state, name, [&] {
        for (int i = 0; i < 20; ++i) {
            loaded.One().BeelineLen.MaxLen = ++mark;
            const Outcome outcome = loaded.folder.Save(loaded.One());
            Require(outcome.done && outcome.problems.empty(), "it could not be saved");
        }
    });
}

void SaveAmongMany(benchmark::State& state)
{
    Loaded loaded(state.range(0), kVersions);
    Save(state, loaded, "among many");
}

void SaveWithMany(benchmark::State& state)
{
    Loaded loaded(1, state.range(0));
    Save(state, loaded, "with many");
}

void List(benchmark::State& state)
{
    const Loaded loaded(state.range(0), kVersions);
    MeasureGrowth(state, "list", [&] {
        Problems problems;
        const auto versions = VersionsOf(loaded.folder, loaded.One().ID(), problems);
        Require(versions.size() == kVersions && problems.empty(), "a version is missing");
    });
}

void Tell(benchmark::State& state)
{
    const Loaded loaded(state.range(0), kVersions);
    MeasureGrowth(state, "tell", [&] {
        Problems problems;
        const auto states = StatesOf(loaded.folder, loaded.One().ID(), problems);
        Require(states.size() == kVersions + 1 && problems.empty(), "a version is missing");
        Require(states[5].changes.size() == 1, "another list of differences");
    });
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    RegisterGrowth("History/20 saves, so many specifications", 64, 512, SaveAmongMany);
    RegisterGrowth("History/20 saves, so many versions", 8, 64, SaveWithMany);
    RegisterGrowth("History/50 versions listed, so many specifications", 64, 512, List);
    RegisterGrowth("History/50 versions with changes, so many specifications", 64, 512, Tell);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
