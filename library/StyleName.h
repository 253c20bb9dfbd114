// What a specification may be called.
#pragma once

#include "platform/mfc/Export.h"

#include "library/DesignSpecifications.h"

// Why a user may not give the name (already trimmed) to a specification; empty when he may.
// `openedName` is the name that the specification has now, empty for a new one: it may keep that,
// in any case.
AFX_EXT_API CString StyleNameProblem(const CDesignSpecifications& library, const CString& name,
                                     const CString& openedName);

// Why no file can bear the name: it would leave the library's folder, or is too long with the
// identity behind it. Empty when one can.
AFX_EXT_API CString FileNameProblem(const CString& name);
