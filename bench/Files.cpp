// Reading a library of files and saving one of its specifications, beside what the same bytes cost
// without the library, and the memory that a loaded specification takes.
#include <filesystem>
#include <fstream>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <libxml/parser.h>
#include <malloc.h>
#include <pugixml.hpp>
#include <sched.h>
#include <unistd.h>

#include "bench/TemporaryProject.h"

namespace fs = std::filesystem;

namespace {

constexpr int kFiles = 1000;

const TemporaryProject& TheProject()
{
    static const TemporaryProject project(kFiles);
    return project;
}

CDesignSpecifications& Loaded()
{
    CDesignSpecifications& library = TheProject().Open();
    library.Update();
    Require(library.Count() == kFiles, "not every file was loaded");
    return library;
}

// While it lives, this thread and those that it begins share one core.
class OneCore {
public:
    OneCore()
    {
        Require(sched_getaffinity(0, sizeof m_before, &m_before) == 0, "the cores are not known");
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(static_cast<size_t>(sched_getcpu()), &one);
        Require(sched_setaffinity(0, sizeof one, &one) == 0, "a core cannot be chosen");
    }
    ~OneCore() { sched_setaffinity(0, sizeof m_before, &m_before); }
    OneCore(const OneCore&) = delete;
    OneCore& operator=(const OneCore&) = delete;

private:
    cpu_set_t m_before;
};

void UpdateLibrary(benchmark::State& state)
{
    auto& library = Loaded();
    for (auto _ : state)
        library.Update();
}

void OnOneCore(benchmark::State& state, void (*run)(benchmark::State&))
{
    const OneCore one;
    run(state);
}

void ReadWithPugixml(benchmark::State& state)
{
    for (auto _ : state) {
        for (const std::string& file : TheProject().Files()) {
            pugi::xml_document document;
            Require(document.load_file(file.c_str()), "pugixml cannot read " + file);
            benchmark::DoNotOptimize(document.first_child());
        }
    }
}

void ReadWithLibxml2(benchmark::State& state)
{
    for (auto _ : state) {
        for (const std::string& file : TheProject().Files()) {
            xmlDoc* document = xmlReadFile(file.c_str(), nullptr, XML_PARSE_NONET);
            Require(document != nullptr, "libxml2 cannot read " + file);
            xmlFreeDoc(document);
        }
    }
}

// The script takes the time itself: starting the interpreter is not reading.
void ReadWithElementTree(benchmark::State& state)
{
    const std::string command =
        "python3 '" SOURCE_DIR "/bench/elementtree.py' '" + TheProject().Library().string() + "'";
    for (auto _ : state) {
        FILE* output = popen(command.c_str(), "r");
        double seconds = 0;
        const bool read = output && std::fscanf(output, "%lf", &seconds) == 1;
        Require(output && pclose(output) == 0 && read, "python3 cannot read the files");
        state.SetIterationTime(seconds);
    }
}

std::string SomeBytes()
{
    std::ifstream file(TheProject().Files().front(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void SaveOne(benchmark::State& state)
{
    auto& library = Loaded();
    const auto* one = static_cast<const CDesignSpecification*>(library.Item(0));
    for (auto _ : state)
        Require(library.Save(one), "a specification could not be saved");
}

void WritePlainly(benchmark::State& state)
{
    const std::string bytes = SomeBytes();
    const std::string path = TheProject().Library() / "plain";
    for (auto _ : state) {
        FILE* file = std::fopen(path.c_str(), "wb");
        const bool written =
            file && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        Require(written && std::fclose(file) == 0, "cannot write " + path);
    }
    fs::remove(path);
}

void WriteFlushAndRename(benchmark::State& state)
{
    const std::string bytes = SomeBytes();
    const std::string path = TheProject().Library() / "flushed";
    const std::string temporary = path + ".new";
    for (auto _ : state) {
        const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
        const bool written =
            file >= 0 && write(file, bytes.data(), bytes.size()) == std::ssize(bytes);
        Require(written && fsync(file) == 0 && close(file) == 0, "cannot write " + temporary);
        Require(std::rename(temporary.c_str(), path.c_str()) == 0, "cannot rename " + temporary);
    }
    fs::remove(path);
}

// Bytes in use on the heap, the allocator's own included.
size_t HeapInUse()
{
    return mallinfo2().uordblks;
}

// Reports the memory of one of the thousand that `keep` holds on to, as a counter in bytes.
template <class Keep> void MeasureMemory(benchmark::State& state, Keep keep)
{
    for (auto _ : state) {
        const size_t before = HeapInUse();
        const auto kept = keep();
        benchmark::DoNotOptimize(kept);
        state.counters["bytes"] = static_cast<double>(HeapInUse() - before) / kFiles;
    }
}

void MemoryOfLibrary(benchmark::State& state)
{
    TheProject().Open();
    MeasureMemory(state, [] { return &Loaded(); });
}

void MemoryOfTrees(benchmark::State& state)
{
    MeasureMemory(state, [] {
        std::vector<pugi::xml_document> trees(kFiles);
        for (size_t i = 0; i < trees.size(); ++i)
            Require(trees[i].load_file(TheProject().Files()[i].c_str()), "pugixml cannot read");
        return trees;
    });
}

void MemoryOfLibxml2(benchmark::State& state)
{
    MeasureMemory(state, [] {
        std::vector<std::unique_ptr<xmlDoc, void (*)(xmlDoc*)>> trees;
        for (const std::string& file : TheProject().Files())
            trees.emplace_back(xmlReadFile(file.c_str(), nullptr, XML_PARSE_NONET), xmlFreeDoc);
        return trees;
    });
}

} // namespace

void AddFiles()
{
    const auto add = [](const char* name, auto* run) {
        return benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond);
    };
    // On the clock: the library reads on several threads.
    const auto addUpdate = [](const std::string& way, auto* run) {
        const auto addRow = [&](const std::string& row, auto runRow) {
            return benchmark::RegisterBenchmark(("Update/" + row + '/' + way).c_str(), runRow)
                ->Unit(benchmark::kMillisecond)
                ->UseRealTime();
        };
        addRow("1,000 files on one core", [run](auto& state) { OnOneCore(state, run); });
        addRow("1,000 files", run);
    };
    addUpdate("designspec", UpdateLibrary);
    addUpdate("pugixml", ReadWithPugixml);
    addUpdate("libxml2", ReadWithLibxml2);
    add("Update/1,000 files on one core/ElementTree", ReadWithElementTree)
        ->UseManualTime()
        ->Iterations(1);
    add("Save/one specification/designspec", SaveOne)->UseRealTime();
    add("Save/one specification/fopen and fwrite", WritePlainly)->UseRealTime();
    add("Save/one specification/write, fsync, rename", WriteFlushAndRename)->UseRealTime();
}

void AddMemory()
{
    const auto add = [](const char* name, auto* run) {
        benchmark::RegisterBenchmark(name, run)->Iterations(1)->Unit(benchmark::kMillisecond);
    };
    add("Memory/one loaded specification/designspec", MemoryOfLibrary);
    add("Memory/one loaded specification/pugixml tree", MemoryOfTrees);
    add("Memory/one loaded specification/libxml2 tree", MemoryOfLibxml2);
}
