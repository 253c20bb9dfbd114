// Runs a program as a user's shell would, and takes what it says on both streams apart; linux/ and
// windows/ have a source each.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

struct ProcessResult {
    int status = -1; // exit status; the negative signal number when a signal ended it
    std::string out;
    std::string err;
    long peak = 0; // KiB of memory that it had at once
};

// The first word is the program's path.
ProcessResult RunProcess(const std::vector<std::string>& words,
                         const std::filesystem::path& folder);
// With that file as its standard input.
ProcessResult RunProcess(const std::vector<std::string>& words, const std::filesystem::path& folder,
                         const std::filesystem::path& input);
// `inChild` runs in the new process before the program. Not on Windows, where a process begins
// with its program.
ProcessResult RunProcess(const std::vector<std::string>& words, const std::filesystem::path& folder,
                         const std::function<void()>& inChild);

// Sets a variable of the environment, for the programs that are run from now on too; null takes it
// away.
void SetVariable(const char* name, const char* value);
// Empty where there is none.
std::string Variable(const char* name);
