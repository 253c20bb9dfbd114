#include "cli/CommandLine.h"

// Signals are as designspec has set them before it became this program.
int main(int argc, char** argv)
{
    return RunCommandLine(argc, argv);
}
