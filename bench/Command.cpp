// A whole process of the command, from its start to its end, beside other programs.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include "bench/TemporaryProject.h"

extern char** environ;

namespace {

// True when the program could be started and ended with status 0. Its output goes nowhere.
bool RunProgram(const std::vector<std::string>& arguments)
{
    std::vector<char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const bool started =
        posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    return started && waitpid(child, &status, 0) == child && status == 0;
}

void Add(const char* name, const std::vector<std::string>& arguments)
{
    const std::string full = std::string("Process/one query/") + name;
    benchmark::RegisterBenchmark(
        full.c_str(),
        [arguments](benchmark::State& state) {
            if (!RunProgram(arguments)) {
                state.SkipWithError((arguments.front() + " does not run").c_str());
                return;
            }
            for (auto _ : state)
                Require(RunProgram(arguments), arguments.front() + " failed");
        })
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
}

} // namespace

void AddCommand()
{
    static const TemporaryProject project(1);
    Add("designspec", {BINARY_DIR "/designspec", "--project", project.Folder().string(), "query",
                       "CircularCurveRad.SuperelevationMinRad", "--speed", "60"});
    Add("true", {"/bin/true"});
    Add("sqlite3", {"sqlite3", ":memory:", "SELECT 1"});
    Add("python3", {"python3", "-c", "pass"});
}
