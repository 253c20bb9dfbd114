// What holding a road against a specification tells.
#pragma once

#include <string>
#include <vector>

namespace roadcheck {

enum class RuleSeverity {
    Error,   // a limit is violated
    Warning, // a recommendation is not kept
    Note,    // worth knowing
};

struct Rule;

// The element of a road that something is said of.
struct ElementName {
    const wchar_t* kind = L""; // line, curve (an arc), spiral, wholeCurve, grade, verticalCurve …
    int index = 0; // from 1: elements of the plan and vertical points as the file counts
                   // them, whole curves and grades in order of place
};

struct Finding {
    const Rule* rule = nullptr;
    ElementName element;
    double from = 0, to = 0; // m along
    int speed = 0;           // km/h; 0: no speed had to do with it
    double value = 0;        // what the road has
    double limit = 0;        // what that is held against
    const wchar_t* unit = L"";
    std::wstring criterion; // path of the limit's table or field
    std::wstring source;    // where that says it comes from
    std::wstring message;
};

// What could not be checked.
struct Unchecked {
    const Rule* rule = nullptr; // null: no rule could
    std::wstring why;
    double from = 0, to = 0; // m along
};

struct AlignmentReport {
    std::vector<Finding> findings;    // in order of place
    std::vector<Unchecked> unchecked; // likewise
};

} // namespace roadcheck
