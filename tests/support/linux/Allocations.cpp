#include "tests/support/Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<int> g_allocations = 0;
std::atomic<int> g_blocks = 0;
std::atomic<int> g_left = -1; // until one fails; below 0: none does

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

// These replace the system's own everywhere in the program.
void* operator new(size_t size, const std::nothrow_t&) noexcept
{
    ++g_allocations;
    if (g_left >= 0 && g_left-- == 0) return nullptr;
    void* const memory = std::malloc(size ? size : 1);
    if (memory) ++g_blocks;
    return memory;
}

void* operator new(size_t size)
{
    if (void* memory = operator new(size, std::nothrow)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    if (memory) --g_blocks;
    std::free(memory);
}

void operator delete(void* memory, size_t) noexcept
{
    if (memory) --g_blocks;
    std::free(memory);
}
