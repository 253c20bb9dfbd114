#include "tests/support/Process.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Pipe {
    std::array<int, 2> ends{};
    Pipe()
    {
        if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    }
};

// Reads both streams as they come, so that neither fills up while the other is waited for.
void ReadBoth(const std::array<int, 2>& ends, const std::array<std::string*, 2>& texts)
{
    std::array<pollfd, 2> waiting{{{ends[0], POLLIN, 0}, {ends[1], POLLIN, 0}}};
    while (waiting[0].fd >= 0 || waiting[1].fd >= 0) {
        if (poll(waiting.data(), waiting.size(), -1) < 0 && errno != EINTR)
            throw std::runtime_error("poll failed");
        for (size_t i = 0; i < waiting.size(); ++i) {
            if (waiting[i].fd < 0 || waiting[i].revents == 0) continue;
            std::array<char, 4096> buffer{};
            const ssize_t got = read(waiting[i].fd, buffer.data(), buffer.size());
            if (got > 0)
                texts[i]->append(buffer.data(), static_cast<size_t>(got));
            else
                waiting[i].fd = -1;
        }
    }
}

} // namespace

ProcessResult RunProcess(const std::vector<std::string>& words, const std::filesystem::path& folder,
                         const std::function<void()>& inChild)
{
    std::vector<char*> argv;
    for (const std::string& word : words)
        argv.push_back(const_cast<char*>(word.c_str()));
    argv.push_back(nullptr);
    Pipe out;
    Pipe err;
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no process");
    if (child == 0) {
        dup2(out.ends[1], STDOUT_FILENO);
        dup2(err.ends[1], STDERR_FILENO);
        if (chdir(folder.c_str()) != 0) _exit(125);
        if (inChild) inChild();
        execv(argv[0], argv.data());
        _exit(127);
    }
    close(out.ends[1]);
    close(err.ends[1]);
    ProcessResult result;
    ReadBoth({out.ends[0], err.ends[0]}, {&result.out, &result.err});
    close(out.ends[0]);
    close(err.ends[0]);
    int state = 0;
    rusage used = {};
    if (wait4(child, &state, 0, &used) != child) throw std::runtime_error("the process is lost");
    result.peak = used.ru_maxrss;
    result.status = WIFEXITED(state) ? WEXITSTATUS(state) : -WTERMSIG(state);
    return result;
}

ProcessResult RunProcess(const std::vector<std::string>& words, const std::filesystem::path& folder)
{
    return RunProcess(words, folder, std::function<void()>());
}

ProcessResult RunProcess(const std::vector<std::string>& words, const std::filesystem::path& folder,
                         const std::filesystem::path& input)
{
    return RunProcess(words, folder, std::function<void()>([&] {
                          dup2(open(input.c_str(), O_RDONLY | O_CLOEXEC), STDIN_FILENO);
                      }));
}

void SetVariable(const char* name, const char* value)
{
    if (value)
        setenv(name, value, 1);
    else
        unsetenv(name);
}

std::string Variable(const char* name)
{
    const char* const value = getenv(name);
    return value ? value : "";
}
