// library_bench: what the library spends on many specifications, at sizes that double.
#include <filesystem>
#include <fstream>
#include <unordered_map>

#include "base/Format.h"
#include "base/Text.h"
#include "bench/Bench.h"
#include "bench/Doubling.h"
#include "bench/MemoryFolder.h"
#include "library/SpecificationFolder.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

namespace fs = std::filesystem;

// A project's folder of styles, with as many specifications in it, all of them saved.
class Project {
public:
    explicit Project(std::int64_t specifications)
    {
        fs::create_directory(m_folder / "规范");
        for (std::int64_t i = 0; i < specifications; ++i)
            WriteFile(NameOf(i));
    }
    ~Project() { fs::remove_all(m_folder); }
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;

    static CString NameOf(std::int64_t i) { return Format(L"城市道路设计规范%d", i); }
    CString Path() const { return ToWide((m_folder / "规范").string()); }
    CString ExportPath() const { return ToWide((m_folder / "all.hds").string()); }

private:
    void WriteFile(const CString& name) const
    {
        const std::string id = ToUtf8(VMRDPub::GUIDToStr(CoCreateGuid()));
        std::ofstream file(m_folder / "规范" / (ToUtf8(name) + id + ".hds"));
        file << "<StyleLibrary><Group Name=\"设计规范\"><Styles Name=\"设计规范\"><Style Name=\""
             << ToUtf8(name) << "\" ID=\"" << id << "\"/></Styles></Group></StyleLibrary>\n"
             << std::flush;
        Require(file.good(), "a file could not be written");
    }

    fs::path m_folder = MakeMemoryFolder();
};

void Load(SpecificationFolder& folder, std::int64_t count)
{
    Require(folder.Load().done && folder.Count() == count, "a specification is missing");
}

// All want the same name.
void AddOfOneName(benchmark::State& state)
{
    CDesignSpecification source;
    source.SetName(L"规范");
    MeasureGrowth(state, "add", [&] {
        SpecificationFolder folder{L""};
        for (std::int64_t i = 0; i < state.range(0); ++i)
            folder.Add(std::make_unique<CDesignSpecification>(source));
        const CString last = Format(L"规范(%d)", state.range(0) - 1);
        Require(folder.Item(folder.Count() - 1)->Name() == last, "another name");
    });
}

// As many are asked for as there are, in another order than they lie in.
template <class Ask> void FindEach(benchmark::State& state, const char* name, const Ask& ask)
{
    SpecificationFolder folder{L""};
    std::vector<GUID> ids;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        CDesignSpecification made;
        made.SetName(Project::NameOf(i).c_str());
        ids.push_back(folder.Add(std::make_unique<CDesignSpecification>(made)).ID());
    }
    std::vector<CString> names;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        names.push_back(Project::NameOf(i));
    const size_t step = 7919; // a prime: each is asked for once
    MeasureGrowth(state, name, [&] {
        for (size_t i = 0, at = 0; i < ids.size(); ++i, at = (at + step) % ids.size()) {
            const CDesignSpecification* const found = ask(folder, names[at], ids[at]);
            Require(found == folder.Item(static_cast<int>(at)), "another one was found");
        }
    });
}

// What finding costs at least: the machine's own growth, as the names leave its caches.
void FindEachInMap(benchmark::State& state)
{
    std::unordered_map<CString, std::unique_ptr<CDesignSpecification>> all;
    std::vector<CString> names;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        names.push_back(Project::NameOf(i));
        auto made = std::make_unique<CDesignSpecification>();
        made->SetName(names.back().c_str());
        all.emplace(names.back(), std::move(made));
    }
    const size_t step = 7919; // as above
    MeasureGrowth(state, "map", [&] {
        for (size_t i = 0, at = 0; i < names.size(); ++i, at = (at + step) % names.size())
            Require(all.find(names[at])->second->Name() == names[at], "another one was found");
    });
}

void LoadAll(benchmark::State& state)
{
    const Project project(state.range(0));
    SpecificationFolder folder(project.Path());
    MeasureGrowth(state, "load", [&] { Load(folder, state.range(0)); });
}

void SaveOne(benchmark::State& state)
{
    const Project project(state.range(0));
    SpecificationFolder folder(project.Path());
    Load(folder, state.range(0));
    const CDesignSpecification& one = *folder.Item(folder.Count() / 2);
    MeasureGrowth(state, "save", [&] {
        for (int i = 0; i < 20; ++i)
            Require(folder.Save(one).done, "it could not be saved");
    });
}

// As an import does: the folder is held meanwhile.
void SaveAll(benchmark::State& state)
{
    const Project project(state.range(0));
    SpecificationFolder folder(project.Path());
    Load(folder, state.range(0));
    MeasureGrowth(state, "save all", [&] {
        Problems problems;
        const auto held = folder.Hold(problems);
        for (int i = 0; i < folder.Count(); ++i)
            Require(folder.Save(*folder.Item(i)).done, "one could not be saved");
    });
}

void ExportAll(benchmark::State& state, bool byName)
{
    const Project project(state.range(0));
    SpecificationFolder folder(project.Path());
    Load(folder, state.range(0));
    CStringArray names;
    for (int i = 0; byName && i < folder.Count(); ++i)
        names.push_back(folder.Item(i)->Name());
    MeasureGrowth(state, byName ? "export by name" : "export", [&] {
        fs::remove(ToUtf8(project.ExportPath()));
        Require(folder.Export(project.ExportPath(), names).done, "not exported");
    });
}

void ImportAll(benchmark::State& state)
{
    const Project project(state.range(0));
    SpecificationFolder folder(project.Path());
    Load(folder, state.range(0));
    Require(folder.Export(project.ExportPath(), {}).done, "not exported");
    MeasureGrowth(state, "import", [&] {
        SpecificationFolder taken{L""};
        Require(taken.TakeIn(project.ExportPath(), {}, true).done, "not imported");
        Require(taken.Count() == state.range(0), "one is missing");
    });
}

void LoadGradeRows(benchmark::State& state)
{
    std::string xml = "<Style><LonGradMaxLen><maxLens>";
    for (std::int64_t i = 0; i < state.range(0); ++i)
        xml += ToUtf8(Format(L"<Item Grad=\"%d\">%s</Item>", i,
                             CString(i % 2 ? L"<Item speed=\"80\" value=\"500\"/>" : L"")));
    CXTPPropExchangeXMLNode root(true, L"Style");
    Require(root.LoadFromBytes(xml + "</maxLens></LonGradMaxLen></Style>", L"rows"), "not read");
    MeasureGrowth(state, "rows", [&] {
        CDesignSpecification specification;
        specification.DoPropExchange(&root);
        Require(specification.LonGradMaxLen.rows.count == state.range(0) / 2, "a row is missing");
    });
}

template <class Function> void Register(const char* name, int from, int to, Function function)
{
    benchmark::RegisterBenchmark(name, function)
        ->RangeMultiplier(2)
        ->Range(from, to)
        ->Iterations(5)
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    Register("Library/added under one name", 1024, 16384, AddOfOneName);
    Register("Library/each found by name", 1024, 16384, [](benchmark::State& state) {
        FindEach(state, "name", [](const auto& folder, const CString& name, const GUID&) {
            return folder.Find(name.c_str());
        });
    });
    Register("Library/each found in a map of the standard library", 1024, 16384, FindEachInMap);
    Register("Library/each found by identity", 1024, 16384, [](benchmark::State& state) {
        FindEach(state, "identity", [](const auto& folder, const CString&, const GUID& id) {
            return folder.Find(id);
        });
    });
    Register("Library/all loaded", 1024, 16384, LoadAll);
    Register("Library/one of them saved", 1024, 16384, SaveOne);
    Register("Library/all saved", 512, 4096, SaveAll);
    Register("Library/all exported", 512, 8192,
             [](benchmark::State& state) { ExportAll(state, false); });
    Register("Library/all exported by their names", 512, 8192,
             [](benchmark::State& state) { ExportAll(state, true); });
    Register("Library/all imported", 512, 8192, ImportAll);
    Register("Library/grade lengths, every other row empty", 4096, 65536, LoadGradeRows);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
