// Who wants to know which files this process changes.
#pragma once

#include <functional>

#include "platform/mfc/Export.h"
#include "platform/mfc/String.h"

using FileChangeListener = std::function<void(const CString& path)>;
// Told of each file that a function of base/File.h wrote, moved (both paths) or deleted, right
// after it did: what else happens to files was done by somebody else. Returns the listener before.
AFX_EXT_API FileChangeListener SetFileChangeListener(FileChangeListener listener);
AFX_EXT_API void TellFileChange(const CString& path);
