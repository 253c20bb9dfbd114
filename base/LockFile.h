// The file that a lock stands in, as the operating system locks it; linux/ and windows/ have a
// source each.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "base/FileSystem.h"

namespace designspec {

class LockFile {
public:
    enum class Attempt { Taken, Held, Failed };

    LockFile() = default;
    ~LockFile() { Release(); }
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

    // Tries once to take the lock of the file at `path`, which is made where it is missing and then
    // holds `name`. `error` tells why it failed; when it was taken, that the file system knows no
    // locks, and 0 otherwise.
    Attempt Try(const std::wstring& path, const std::string& name, FileSystem::Error& error);
    // Removes the file, if it is still the one that was locked, and lets go of it.
    void Release();
    bool IsTaken() const { return m_file >= 0; }

    // The name that the file holds; empty when that cannot be told.
    static std::string HolderOf(const std::wstring& path);

private:
    std::filesystem::path m_path; // as the system takes it
    std::intptr_t m_file = -1;
};

} // namespace designspec
