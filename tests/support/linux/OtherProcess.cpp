#include "tests/support/OtherProcess.h"

#include <cerrno>
#include <csignal>
#include <stdexcept>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

void OtherProcess::Begin(void*)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const pid_t process = fork();
    if (process < 0) throw std::runtime_error("no process");
    if (process == 0) {
        dup2(ends[1], STDOUT_FILENO);
        execl("/proc/self/exe", program_invocation_name, nullptr);
        _exit(127);
    }
    close(ends[1]);
    m_output = ends[0];
    m_process = process;
}

OtherProcess::~OtherProcess()
{
    Kill();
    close(static_cast<int>(m_output));
}

size_t OtherProcess::Read(char* buffer, size_t room)
{
    const ssize_t got = read(static_cast<int>(m_output), buffer, room);
    return got > 0 ? static_cast<size_t>(got) : 0;
}

bool OtherProcess::Kill()
{
    if (m_process == 0) return false;
    const auto process = static_cast<pid_t>(m_process);
    m_process = 0;
    int status = 0;
    kill(process, SIGKILL);
    return waitpid(process, &status, 0) == process && WIFSIGNALED(status);
}
