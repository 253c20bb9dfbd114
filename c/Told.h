// What a thread's last call has to tell; linux/ and windows/ have a source each.
#pragma once

#include <string>
#include <vector>

namespace designspec {

// As callers get it.
struct ToldProblem {
    bool isError;
    std::string file, text;
    int line;
};

struct Told {
    std::vector<ToldProblem> problems;
    std::string error;            // the first one, whole
    const char* short_ = nullptr; // in its place
};

// That of the thread that asks; it ends with the thread.
Told& ToldHere() noexcept;

} // namespace designspec
