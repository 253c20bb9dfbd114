#include "platform/windows/Guid.h"

#include <random>

GUID CoCreateGuid()
{
    std::random_device random;
    GUID guid;
    guid.Data1 = random();
    const std::uint32_t middle = random();
    guid.Data2 = static_cast<std::uint16_t>(middle);
    guid.Data3 = static_cast<std::uint16_t>(((middle >> 16) & 0x0FFF) | 0x4000);
    for (int half = 0; half < 2; ++half) {
        const std::uint32_t word = random();
        for (int i = 0; i < 4; ++i)
            guid.Data4[half * 4 + i] = static_cast<std::uint8_t>(word >> (8 * i));
    }
    guid.Data4[0] = static_cast<std::uint8_t>((guid.Data4[0] & 0x3F) | 0x80);
    return guid;
}
