// What a user does to specifications, the same way from the editor and from the command.
#pragma once

#include "platform/mfc/Export.h"

#include "library/DesignSpecifications.h"

// The name proposed for a new specification: 规范 and the count plus one. It may be taken.
AFX_EXT_API CString ProposedName(const CDesignSpecifications& library);
// The name proposed for a copy: NAME[副本], NAME[副本1] … The first that is free.
AFX_EXT_API CString ProposedCopyName(const CDesignSpecifications& library, const CString& source);

// Gives the specification the new name, in the library and on disk. False, with a trace line,
// when a file could not be written; the old file is then still there.
AFX_EXT_API bool RenameSpecification(CDesignSpecifications& library,
                                     CDesignSpecification& specification, const CString& newName);

// Imports a file as CDesignSpecifications::Import does and saves what is new or overwritten.
// False when the file could not be read or one could not be saved.
AFX_EXT_API bool ImportAndSave(CDesignSpecifications& library, const wchar_t* path,
                               const CStringArray& names, bool overwrite);
