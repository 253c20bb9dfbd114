// What the fuzz targets share: their entry.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// FUZZ(bytes) { … return 0; } is called with the bytes of each input.
#define FUZZ(bytes)                                                                                \
    static int Fuzz(std::string_view bytes);                                                       \
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
