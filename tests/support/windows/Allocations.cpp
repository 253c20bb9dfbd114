// A program of Windows has an operator new of its own, and each of its libraries another one,
// unless all take that of the compiler's library, as here. That one asks the system for memory,
// through an entry of its table of imports, which is changed when the program begins.
#include "tests/support/Allocations.h"

#include <atomic>
#include <cstdlib>

#include "tests/support/windows/Import.h"

namespace {

std::atomic<int> g_allocations = 0;
std::atomic<int> g_blocks = 0;
std::atomic<int> g_left = -1; // until one fails; below 0: none does

void* Allocate(size_t size)
{
    ++g_allocations;
    if (g_left >= 0 && g_left-- == 0) return nullptr;
    void* const memory = std::malloc(size);
    if (memory) ++g_blocks;
    return memory;
}

void Free(void* memory)
{
    if (memory) --g_blocks;
    std::free(memory);
}

[[maybe_unused]] const bool g_isCounting = [] {
    const HMODULE module = GetModuleHandleW(L"libstdc++-6.dll");
    Import(module, "malloc", Allocate);
    Import(module, "free", Free);
    return true;
}();

} // namespace

int Allocations()
{
    return g_allocations;
}

int BlocksInUse()
{
    return g_blocks;
}

void FailAllocationAfter(int count)
{
    g_left = count;
}

bool IsFailureDue()
{
    return g_left >= 0;
}
