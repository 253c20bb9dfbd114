// A look at the files of the library for what is odd in them but does not keep them from being
// read.
#pragma once

#include "platform/mfc/Export.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

// For each file of the current project's library: a file name that does not match name and
// identity, tables out of order or with a key twice, left-overs of interrupted saves. All are
// notes. What loading itself says (unreadable files, one identity twice, names that clash) comes
// from CDesignSpecifications::Update as trace lines.
AFX_EXT_API std::vector<TraceLine> CheckLibraryFiles();
