#include "cli/CommandLine.h"
#include "cli/Console.h"

// One program with all commands.
int main(int argc, char** argv)
{
    Console::Prepare();
    return RunCommandLine(argc, argv);
}
