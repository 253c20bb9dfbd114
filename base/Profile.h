// Private profiles: settings files of sections and keys (INI).
//
// Changing one key edits its line and no other: the rest of the file, its comments and its
// encoding stay as they are. The kept INI libraries write a file anew and drop the lines that
// they do not understand, which is why this one is our own.
#pragma once

#include <string>

#include "base/Problem.h"

namespace designspec {

// The value of `key` in `section` of the file, without blanks and one pair of quotes around it;
// `missing` when the file, the section or the key is not there. Names are compared ignoring case.
// Reads UTF-16 with a byte-order mark, UTF-8 and GB18030. A problem is added when the file is there
// and cannot be read.
std::wstring GetPrivateProfileString(const wchar_t* section, const wchar_t* key,
                                     const wchar_t* missing, const std::wstring& file,
                                     Problems& problems);

// Sets the value. A file that holds it already is not written. A new file, or one that was empty,
// is UTF-16LE with a byte-order mark. False, with a problem, when the file cannot be read or
// written, or when the value holds a line break.
bool WritePrivateProfileString(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                               const std::wstring& file, Problems& problems);

} // namespace designspec
