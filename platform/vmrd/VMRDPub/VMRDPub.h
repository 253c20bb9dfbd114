// What every module of the family shares: GUID texts, and where things are.
#pragma once

#include "base/Export.h"
#include "platform/mfc/String.h"
#include "platform/windows/Guid.h"

namespace VMRDPub {

// 8-4-4-4-12 upper-case hexadecimal digits, without braces.
AFX_EXT_API CString GUIDToStr(const GUID& guid);

// Reads that form, in any case, with or without braces and blanks around it. False leaves `guid`
// as it was.
AFX_EXT_API bool ParseGUID(std::wstring_view text, GUID& guid);

// The same for a text that must give a GUID: a malformed one gives a fresh GUID.
AFX_EXT_API GUID StrToGUID(std::wstring_view text);

// The folder of the current project, without a separator at its end. The current folder until
// SetCurPrjPath was called: "." when that is gone or its path holds a backslash. Never empty.
AFX_EXT_API CString GetCurPrjPath();
AFX_EXT_API void SetCurPrjPath(const CString& path);

// The folder that the programs and their resource library stand in: that of the running
// program, until SetInstallPath was called.
AFX_EXT_API CString GetInstallPath();
AFX_EXT_API void SetInstallPath(const CString& path);

} // namespace VMRDPub
