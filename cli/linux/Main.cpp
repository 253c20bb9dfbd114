#include <csignal>

#include "cli/CommandLine.h"
#include "cli/linux/FullProgram.h"

int main(int argc, char** argv)
{
    // A write beyond the size limit of files is to fail with a message, not to end the process.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        return RunCommandLine(argc, argv);
    } catch (const NeedsFullProgram&) {
        return BecomeFullProgram(argv);
    }
}
