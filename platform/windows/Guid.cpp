#include "platform/windows/Guid.h"

#include <algorithm>

#include "base/Process.h"

GUID CoCreateGuid()
{
    const auto bytes = designspec::Process::NewIdentity();
    GUID guid;
    guid.Data1 = std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
                 std::uint32_t{bytes[2]} << 8 | bytes[3];
    guid.Data2 = static_cast<std::uint16_t>(bytes[4] << 8 | bytes[5]);
    guid.Data3 = static_cast<std::uint16_t>(bytes[6] << 8 | bytes[7]);
    std::copy(bytes.begin() + 8, bytes.end(), guid.Data4);
    return guid;
}
