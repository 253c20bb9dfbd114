// The command line: what the words mean, and how the command ends.
#pragma once

// Runs the command that the arguments name and returns its exit status (cli/Command.h).
int RunCommandLine(int argc, const char* const* argv);
