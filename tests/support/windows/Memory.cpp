#include "tests/support/Memory.h"

#include "base/windows/Windows.h"

#include <psapi.h>

long PeakMemory()
{
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<long>(counters.PeakWorkingSetSize >> 20);
}
