// Paths of the module's own on their way into Windows' calls.
#pragma once

#include <string>

#include "base/FileSystem.h"

namespace designspec {

// See FullPath. Empty for what leads to no file.
std::wstring WindowsPath(const std::wstring& path);

// What the last call failed with.
FileSystem::Error LastError();

} // namespace designspec
