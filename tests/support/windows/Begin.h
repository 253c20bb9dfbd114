// How tests begin a program on Windows.
#pragma once

#include <string>

#include "base/windows/Windows.h"

// As CreateProcess, with handles handed down; a null folder is the present one. Under load Wine 8
// now and then begins no process and says so by ERROR_INTERNAL_ERROR, when that has gone before a
// line of the program ran. It is then begun again, at most four times, and the test's output tells
// it.
bool BeginProcess(const std::wstring& line, DWORD flags, const wchar_t* folder, STARTUPINFOW& start,
                  PROCESS_INFORMATION& process);
