// The same page of several specifications in one table, value beside value.
#pragma once

#include "model/PageLayout.h"

namespace designspec {

struct TogetherTable {
    struct Part {
        std::size_t of; // which specification
        std::vector<std::optional<Value>> cells;
    };
    struct Line {
        CString caption;
        std::vector<Part> parts; // of those that have such a line
    };

    CString heading;
    CString corner;
    std::vector<Value> columns; // of any of them
    std::vector<Line> lines;

    bool IsNone() const { return corner.empty(); }
    // True when a line has not the same there in each of `count` specifications.
    static bool Differs(const Line& line, std::size_t column, std::size_t count);
};

// `pages` are those of one criterion. Of one specification it is what the page has.
std::vector<TogetherTable> PutTogether(const std::vector<const PageLayout*>& pages);

} // namespace designspec
