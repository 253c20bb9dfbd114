// A look at the files of a folder of specifications for what is odd in them but does not keep them
// from being read.
#pragma once

#include "platform/vmrd/VMRDEnv/StyleFolder.h"

namespace designspec {

// For each file: a file name that does not match name and identity, tables out of order or with a
// key twice, left-overs of interrupted saves. All are notes. What loading itself says (unreadable
// files, one identity twice, names that clash) comes from SpecificationFolder::Load.
AFX_EXT_API Problems CheckFiles(const StyleFolder& folder);

} // namespace designspec
