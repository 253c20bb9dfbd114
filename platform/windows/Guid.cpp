#include "platform/windows/Guid.h"

#include <uuid/uuid.h>

GUID CoCreateGuid()
{
    uuid_t bytes; // in the order in which a GUID is written
    uuid_generate_random(bytes);
    GUID guid;
    guid.Data1 = std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
                 std::uint32_t{bytes[2]} << 8 | bytes[3];
    guid.Data2 = static_cast<std::uint16_t>(bytes[4] << 8 | bytes[5]);
    guid.Data3 = static_cast<std::uint16_t>(bytes[6] << 8 | bytes[7]);
    for (int i = 0; i < 8; ++i)
        guid.Data4[i] = bytes[8 + i];
    return guid;
}
