#include "platform/windows/Guid.h"

#include <cstdlib>

#include <sys/random.h>

// Asked of the system directly: std::random_device opens its source anew each time, which takes
// as long as reading a specification's values.
GUID CoCreateGuid()
{
    GUID guid;
    if (getentropy(&guid, sizeof guid) != 0) std::abort(); // no kernel in use lacks it
    guid.Data3 = static_cast<std::uint16_t>((guid.Data3 & 0x0FFF) | 0x4000);
    guid.Data4[0] = static_cast<std::uint8_t>((guid.Data4[0] & 0x3F) | 0x80);
    return guid;
}
