// What went wrong with a file, or is odd about it, as a value: operations hand these to their
// caller, who shows them.
#pragma once

#include <string>
#include <vector>

namespace designspec {

enum class Severity {
    Note,  // worth knowing: nothing is missing
    Error, // a file or a part of it could not be read or written
};

struct Problem {
    Severity severity = Severity::Error;
    std::wstring file; // as the operating system names it; empty: no file is meant
    int line = 0;      // 1-based; 0: the file as a whole
    std::wstring text;

    // "FILE:LINE: TEXT", as far as there are a file and a line.
    std::wstring Text() const;
};

using Problems = std::vector<Problem>;

// True when one of them is an error.
bool HasError(const Problems& problems);

// Adds those of another list behind them.
void Append(Problems& problems, Problems more);

// Adds a problem with the file at that path of the module's own. What the text quotes of a file may
// hold anything: it is made printable.
void AddProblem(Problems& problems, Severity severity, const std::wstring& path, int line,
                const std::wstring& text);

} // namespace designspec
