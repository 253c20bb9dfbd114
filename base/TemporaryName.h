// Names of files that are written in place of others.
#pragma once

#include <string>
#include <string_view>

namespace designspec {

// A new one: .designspec-PROCESS-XXXXXXXXXXXX.tmp.
std::wstring TemporaryName();
bool IsTemporaryName(std::wstring_view name);
// True when the process of such a name may still be writing the file.
bool IsBeingWritten(std::wstring_view temporaryName);

} // namespace designspec
