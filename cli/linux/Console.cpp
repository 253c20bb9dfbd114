#include "cli/Console.h"

#include <csignal>
#include <cstdio>

#include <unistd.h>

namespace Console {

void Prepare()
{
    // A write beyond the size limit of files is to fail with a message, not to end the process.
    std::signal(SIGXFSZ, SIG_IGN);
}

std::vector<std::string> Words(int argc, const char* const* argv)
{
    return {argv, argv + argc};
}

std::string Locale()
{
    return {};
}

bool IsOutputShown()
{
    return isatty(STDOUT_FILENO) != 0;
}

bool IsErrorShown()
{
    return isatty(STDERR_FILENO) != 0;
}

void Write(std::string_view text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

void WriteError(std::string_view text)
{
    std::fwrite(text.data(), 1, text.size(), stderr);
}

bool Flush()
{
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

} // namespace Console
