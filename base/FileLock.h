// A lock that programs agree on: who holds it may change what it stands for. The system takes it
// back when the program that holds it ends, however that ends.
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "base/LockFile.h"
#include "base/Problem.h"

namespace designspec {

class FileLock {
public:
    // Told once, when the lock is another's and has to be waited for; `holder` says whose.
    using Notice = std::function<void(const std::wstring& holder)>;

    // Takes the lock that stands for the file at `path`, which is made and goes again with the
    // lock; what it holds is the name of the holder. Waits for another holder, in this process
    // too, as long as `patience`. False with a problem that names the holder when it is still held
    // then, or when the file cannot be made. A file system that knows no locks gives one that
    // keeps nobody out, with a note.
    bool Take(const std::wstring& path, std::chrono::milliseconds patience, const Notice& notice,
              Problems& problems);
    void Release() { m_file.Release(); }
    bool IsTaken() const { return m_file.IsTaken(); }

private:
    LockFile m_file;
};

} // namespace designspec
