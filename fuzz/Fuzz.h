// What the fuzz targets share: their entry, and silence from the trace.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/vmrd/VmHFCBaseU/Trace.h"

// FUZZ(bytes) { … return 0; } is called with the bytes of each input.
#define FUZZ(bytes)                                                                                \
    static int Fuzz(std::string_view bytes);                                                       \
    extern "C" int LLVMFuzzerInitialize(int*, char***)                                             \
    {                                                                                              \
        SetTraceSink([](const TraceLine& line) { line.Text(); });                                  \
        return 0;                                                                                  \
    }                                                                                              \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)              \
    {                                                                                              \
        return Fuzz({reinterpret_cast<const char*>(data), size});                                  \
    }                                                                                              \
    static int Fuzz(std::string_view bytes)

// A property that every input must keep: the fuzzer reports the input when it does not hold.
inline void Require(bool held)
{
    if (!held) __builtin_trap();
}
