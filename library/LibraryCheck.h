// A look at the specifications of a folder for what is wrong or odd in them but does not keep their
// files from being read.
#pragma once

#include "library/SpecificationFolder.h"

namespace designspec {

struct LibraryFinding : Problem {
    std::wstring path; // of the value; empty: the file is meant
};

// For each file: what Findings (model/Findings.h) tell of the specification that was loaded from
// it, with the line; a file name that does not match name and identity; tables out of order;
// left-overs of interrupted saves. What loading itself says (unreadable files, one identity twice,
// names that clash) comes from SpecificationFolder::Load.
AFX_EXT_API std::vector<LibraryFinding> CheckLibrary(const SpecificationFolder& folder);

} // namespace designspec
