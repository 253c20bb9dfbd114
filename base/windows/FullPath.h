// Paths as Windows' own calls take them.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace designspec {

// The current folder, or that of a drive where one is named: "C:\roads", "\\server\share\roads".
using CurrentFolderOf = std::function<std::wstring(wchar_t drive)>;

// The absolute path, "\\?\C:\roads\a.hds" or "\\?\UNC\server\share\a.hds", which Windows takes as
// it stands: however long it is, with names like CON and NUL, with points and blanks at the end of
// a name. Both separators are taken. Empty for what leads to no file: a device, or a name with a
// character that no name can have, such as the colon of a file's second stream.
std::wstring FullPath(std::wstring_view path, const CurrentFolderOf& currentFolder);

// True for a character that a name can have.
bool IsWindowsNameCharacter(wchar_t c);

} // namespace designspec
