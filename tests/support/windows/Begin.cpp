#include "tests/support/windows/Begin.h"

#include <cstdio>

bool BeginProcess(const std::wstring& line, DWORD flags, const wchar_t* folder, STARTUPINFOW& start,
                  PROCESS_INFORMATION& process)
{
    constexpr int kTimes = 5;
    for (int k = 0; k < kTimes; ++k) {
        std::wstring words = line; // which the system may write into
        if (CreateProcessW(nullptr, words.data(), nullptr, nullptr, TRUE, flags, nullptr, folder,
                           &start, &process))
            return true;
        if (GetLastError() != ERROR_INTERNAL_ERROR) return false;
        std::fprintf(stderr, "no process: error %ld; begun again\n", ERROR_INTERNAL_ERROR);
    }
    SetLastError(ERROR_INTERNAL_ERROR);
    return false;
}
