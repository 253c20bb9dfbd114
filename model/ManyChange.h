// One change of a limit that is made in many specifications alike: it is set, added to or scaled.
#pragma once

#include "model/Differences.h"

namespace designspec {

struct ManyChange {
    enum class Kind {
        Set,   // to the operand, as a person writes the value
        Add,   // the operand, a number, which may be negative
        Scale, // by the operand, a number
    };

    // Of a single value; of a table by design speed for the values of all its speeds.
    ValuePath path;
    Kind kind = Kind::Set;
    CString operand;
};

// What comes of it in one specification.
struct Changed {
    CDesignSpecification made;
    std::vector<Difference> differences; // from what it was; none when it has no such value
    CString problem;                     // for people: what is wrong; then `made` is as it was
};

// Whole numbers are rounded to whole ones, others to nine decimals. A value of 0 that says
// something of its own, as 不限, is neither added to nor scaled. A value at a speed that is not
// there is added when it is set, and left alone otherwise. What the editor does not take from the
// keyboard is a problem here.
AFX_EXT_API Changed MadeChange(const CDesignSpecification& specification, const ManyChange& change);

} // namespace designspec
