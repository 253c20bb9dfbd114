// GUIDs: 16 bytes that identify a style across files and machines.
#pragma once

#include <cstdint>

#include "base/Export.h"

struct GUID {
    std::uint32_t Data1 = 0;
    std::uint16_t Data2 = 0;
    std::uint16_t Data3 = 0;
    std::uint8_t Data4[8] = {};

    bool operator==(const GUID&) const = default;
};

// A new random GUID (version 4 of RFC 4122).
AFX_EXT_API GUID CoCreateGuid();
