#include "tests/support/Memory.h"

#include <sys/resource.h>

long PeakMemory()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}
