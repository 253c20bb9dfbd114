// The problems that the operations of a test gave back.
#pragma once

#include "base/Problem.h"

class ProblemList {
public:
    // What operations add to.
    operator designspec::Problems&() { return m_problems; }

    const designspec::Problems& Lines() const { return m_problems; }
    void Clear() { m_problems.clear(); }

    // The problems as a reader sees them, one below the other; empty when there was none.
    std::wstring Text() const
    {
        std::wstring text;
        for (const designspec::Problem& problem : m_problems) {
            if (!text.empty()) text += L'\n';
            text += problem.Text();
        }
        return text;
    }

private:
    designspec::Problems m_problems;
};
