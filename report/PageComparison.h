// The pages of a specification beside those of another: the same captions, with the values of both.
#pragma once

#include "model/PageLayout.h"

namespace designspec {

// A value as a page shows it, and that of the other specification; nothing where there is none.
struct ComparedValue {
    std::optional<CString> value, other;
    bool IsSame() const { return value == other; }
};

struct ComparedTable {
    struct Line {
        CString caption;
        std::vector<ComparedValue> cells; // one for each column
    };
    CString heading, corner;
    CStringArray columns;
    std::vector<Line> lines;
};

struct ComparedPage {
    struct Limit {
        CString caption;
        ComparedValue value;
    };
    const CriterionInfo* criterion;
    std::vector<Limit> limits;
    std::vector<ComparedTable> tables;
    std::vector<Limit> sources;

    int CountDifferences() const;
};

// All pages of `one`, in their order. Lines, columns and tables that only the other one has stand
// among or behind its own. Without another one every value is the same.
std::vector<ComparedPage> ComparePages(const CDesignSpecification& one,
                                       const CDesignSpecification* other);

} // namespace designspec
