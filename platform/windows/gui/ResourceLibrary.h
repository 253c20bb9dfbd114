// Resource libraries: files that hold pictures by name.
#pragma once

#include <QIcon>

#include "base/Export.h"
#include "platform/mfc/String.h"

// A loaded library; 0 is none.
using HRESLIB = unsigned int;

// 0, and a trace line, when there is no such file or it is no resource library.
AFX_EXT_API HRESLIB LoadResourceLibrary(const CString& path);
// The picture `name` for a size of `cx` by `cy` pixels at 100 % scale; sharp at 400 %. It stays
// valid when the library is freed. Empty when the library has no such picture or is 0.
AFX_EXT_API QIcon LoadIcon(HRESLIB library, const CString& name, int cx, int cy);
AFX_EXT_API void FreeResourceLibrary(HRESLIB library);
