// Pieces of work that do not need each other, done on several threads.
#pragma once

#include <cstddef>
#include <functional>

namespace designspec {

// Calls `work` with each number below `count`, on up to so many threads, this one among them; fewer
// where the system gives no more. All have ended when this returns. What one call throws ends the
// work, and is thrown here.
void SideBySide(size_t count, size_t threads, const std::function<void(size_t)>& work);

// Threads that pay for so many pieces when each is to do `least` of them or more: at most as many
// as the machine has cores, and eight.
size_t ThreadsFor(size_t count, size_t least);

} // namespace designspec
