#include "c/Told.h"

namespace designspec {

Told& ToldHere() noexcept
{
    thread_local Told told;
    return told;
}

} // namespace designspec
