// Folders and files, as the family's base library offers them.
#pragma once

#include "platform/mfc/Export.h"
#include "platform/mfc/String.h"

AFX_EXT_API bool FileExists(const CString& path);

// Makes the folder and what is missing above it. True when it is there afterwards.
AFX_EXT_API bool CreateFolder(const CString& path);
