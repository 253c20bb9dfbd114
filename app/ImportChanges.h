// What importing a file would change in a library.
#pragma once

#include "library/SpecificationFolder.h"
#include "platform/vmrd/VMRDPrj/StyleEditor.h"

namespace designspec {

// For each of the file's specifications of those identities; nothing for one that the library has
// not, or that cannot be read.
std::vector<std::optional<StyleChanges>>
ChangesOfImport(const SpecificationFolder& library, const CString& path, const CArray<GUID>& ids);

} // namespace designspec
