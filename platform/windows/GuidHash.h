// Identities as keys of unordered containers.
#pragma once

#include <cstring>
#include <functional>
#include <string_view>

#include "platform/windows/Guid.h"

namespace designspec {

struct GuidHash {
    size_t operator()(const GUID& id) const
    {
        size_t halves[2];
        static_assert(sizeof halves == sizeof id);
        std::memcpy(halves, &id, sizeof id);
        // Random in all their bits, unless somebody has chosen them.
        return halves[0] ^ (halves[1] * 0x9E3779B97F4A7C15);
    }
};

} // namespace designspec
