// What a specification may be called.
#pragma once

#include "library/SpecificationFolder.h"

namespace designspec {

// What is wrong with a name in itself, for the editor, the command and what is imported alike;
// empty when nothing is.
AFX_EXT_API CString StyleNameProblem(const CString& name);

// Why a user may not give the name (already trimmed) to a specification, in the editor or by the
// command; empty when he may. `openedName` is the name that the specification has now, empty for a
// new one: it may keep that, in any case.
AFX_EXT_API CString StyleNameProblem(const SpecificationFolder& folder, const CString& name,
                                     const CString& openedName);

// `name` with `ending` behind it, as a user may call a specification that has no name yet: what no
// name may hold becomes "-", and what would be too long for a file is cut before the ending.
AFX_EXT_API CString StorableName(CString name, const CString& ending);

// Why no file can bear the name: it would leave the folder, or is too long with the identity behind
// it. Empty when one can. Saving asks this of any name, wherever it comes from.
AFX_EXT_API CString FileNameProblem(const CString& name);

} // namespace designspec
