// What a specification was before: each save keeps what it replaces. The folder 历史 beside the
// files holds it by identity, so that a specification that was removed or renamed has its history
// still.
#pragma once

#include "base/Moment.h"
#include "library/SpecificationFolder.h"
#include "model/Differences.h"

namespace designspec {

struct SpecificationVersion {
    int number = 0;  // counts up with each save that replaced something; from 1
    Moment replaced; // when another one came in its place, and who saved that
    CString replacedBy;
    // When it came and who saved it; nothing where that was not told: of the oldest one, and of
    // what came into the folder otherwise.
    std::optional<Moment> saved;
    CString savedBy;
    CString path; // of its file
};

// The versions of the specification with that identity, in the folder or not, the newest first;
// what there is now is none of them. Reads the names of files alone.
AFX_EXT_API std::vector<SpecificationVersion> VersionsOf(const SpecificationFolder& folder,
                                                         const GUID& id, Problems& problems);

// When and by whom it was saved that the specification is as its file is now; nothing where that
// is not told.
struct SavedBy {
    Moment time;
    CString user;
};
AFX_EXT_API std::optional<SavedBy> LastSaveOf(const SpecificationFolder& folder,
                                              const CDesignSpecification& specification);

// The specification as it was then, with the name that it had. Nothing when its file cannot be read
// whole.
AFX_EXT_API std::optional<CDesignSpecification> ReadVersion(const SpecificationVersion& version,
                                                            const GUID& id, Problems& problems);

// What a specification was at a time, or is.
struct SpecificationState {
    int number = 0;              // of its version; 0: what there is now, or was when removed
    std::optional<Moment> saved; // when and by whom, as far as that is told
    CString savedBy;
    std::optional<Moment> replaced; // of a version
    CDesignSpecification specification;
    std::vector<Difference> changes; // from the one before it to this one; none of the oldest one
};

// What it is now, or was when it was removed, and before that its versions; the newest first. A
// version that cannot be read is passed over with a note.
AFX_EXT_API std::vector<SpecificationState> StatesOf(const SpecificationFolder& folder,
                                                     const GUID& id, Problems& problems);

// Makes the specification of its identity what it was then, under its name of then, or puts it
// back into the folder. A name that another one has meanwhile gets "(1)", "(2)" … behind it, with a
// note. What is replaced is a version in turn. Not done: all is as it was.
AFX_EXT_API Outcome BringBack(SpecificationFolder& folder, const CDesignSpecification& version);

// The identities that there are versions of.
AFX_EXT_API std::vector<GUID> IdentitiesWithHistory(const SpecificationFolder& folder,
                                                    Problems& problems);

} // namespace designspec
