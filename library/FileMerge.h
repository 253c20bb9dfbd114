// Three files of styles made into one: what was there (base), and what two people made of it (mine,
// theirs). Specifications are the same when their identities are; each is merged value by value.
#pragma once

#include "base/Problem.h"
#include "model/Differences.h"
#include "platform/vmrd/VMRDEnv/StyleFile.h"

namespace designspec {

// What became of a specification that is not the same in all three. One that a side took out while
// the other changed it is a single conflict: its change has no path, and a value where there is
// the specification.
struct MergedSpecification {
    CString name;
    GUID id;
    std::vector<Change> changes; // where one of both has added it, each value of the other differs
};

struct FileMerge {
    bool done = false; // false: a file cannot be read whole
    Problems problems;
    std::vector<MergedSpecification> specifications; // in the order of mine, then of theirs
    CXTPPropExchangeXMLNode root; // my document with all that they changed; my values in conflicts
};

// An empty file has no specifications. `prefer` settles every conflict; without it mine stand in
// the document. What else the files hold than specifications stays as it is in mine; a note tells
// of what theirs has of it.
AFX_EXT_API FileMerge MergeFiles(const CString& base, const CString& mine, const CString& theirs,
                                 std::optional<Side> prefer);

} // namespace designspec
