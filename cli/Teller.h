// Tells the user what happened to files, and keeps in mind whether anything failed.
#pragma once

#include <set>

#include "base/Problem.h"

class Teller {
public:
    // One line on standard error for each problem that has not been told yet: a file may be read
    // twice.
    void Tell(const designspec::Problems& problems);
    // True when one of them was an error.
    bool HasFailed() const { return m_failed; }

private:
    std::set<std::wstring> m_told;
    bool m_failed = false;
};
