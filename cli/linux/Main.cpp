#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/linux/FullProgram.h"

int main(int argc, char** argv)
{
    Console::Prepare();
    try {
        return RunCommandLine(argc, argv);
    } catch (const NeedsFullProgram&) {
        return BecomeFullProgram(argv);
    }
}
