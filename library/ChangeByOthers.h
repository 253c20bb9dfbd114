// What others did to a specification's file since it was loaded or saved here.
#pragma once

#include "library/SpecificationFolder.h"

namespace designspec {

struct ChangeByOthers {
    enum class Kind {
        None,       // nothing that concerns it
        Changed,    // it is another one now, by content or by name
        Removed,    // no file holds it any more
        Unreadable, // its file is there and cannot be read
        FolderGone, // the folder that holds that of the files is not there
    };
    Kind kind = Kind::None;
    std::optional<CDesignSpecification> theirs; // what it is now, when it was changed
    CString path; // of its file as it is now, or was; else of the folder of the files
};

// The folder as its files are now, when they are not as they were loaded or saved here; else null.
AFX_EXT_API std::unique_ptr<SpecificationFolder> ReadIfChanged(const SpecificationFolder& folder);

// `opened` is the specification as it was when somebody began to work on it. The folder's list may
// have been read anew since; files that appeared since count as well. Of several files that hold
// the specification the one counts that a load would take it from. One that never had a file
// cannot be removed from outside. The folder itself is not read anew.
AFX_EXT_API ChangeByOthers FindChangeByOthers(const SpecificationFolder& folder,
                                              const CDesignSpecification& opened);

} // namespace designspec
