// What is wrong or odd in a specification.
#pragma once

#include <string>
#include <vector>

#include "base/Export.h"
#include "base/Problem.h"

class CDesignSpecification;

namespace designspec {

struct Finding {
    // Error: a page of the editor refuses to store it. Note: odd, or not what the editor would
    // store.
    Severity severity = Severity::Note;
    std::wstring path; // of the value: CircularCurveRad.SuperelevationMinRad[80]
    std::wstring text; // for people; where the editor has a message, that message
    // A note of a value that the editor keeps when a file brings it, and refuses when it is typed.
    bool onlyFromFile = false;

    bool IsRefusedWhenTyped() const { return severity == Severity::Error || onlyFromFile; }

    // The text without line breaks.
    AFX_EXT_API std::wstring Line() const;

    bool operator==(const Finding&) const = default;
};

// All of them, criterion by criterion in the order of files. Of a criterion's errors the first one
// is what its page says; a value that 确定 would change is at least a note.
//
// A limit may rise or fall over speed as those of road standards do: radii, lengths, superelevation
// and runoff never fall with the speed, and longitudinal gradients never rise. Resultant gradients
// and the lengths of one gradient do both in some standards (80 km/h: 7 %, 60: 6.5 %, 40: 7 %), so
// nothing is said of them. The built-in limits have no finding at all.
AFX_EXT_API std::vector<Finding> Findings(const CDesignSpecification& specification);

// Those of `after` that `before` does not have, each as often as it was added.
AFX_EXT_API std::vector<Finding> NewFindings(const std::vector<Finding>& before,
                                             std::vector<Finding> after);

// The first fault that a change brings in, as Line() gives it: what a page of the editor would not
// take. Empty when there is none.
AFX_EXT_API std::wstring NewFault(const CDesignSpecification& before,
                                  const CDesignSpecification& after);

} // namespace designspec
