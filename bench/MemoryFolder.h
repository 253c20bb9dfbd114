// A folder for files whose growth is measured.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

#include "bench/Bench.h"

// A new folder in memory, where the system offers that, else where temporary files are: on a disk,
// making a file takes the longer the more were deleted just before, which is the disk's growth.
inline std::filesystem::path MakeMemoryFolder()
{
    constexpr char kMemory[] = "/dev/shm";
    const bool isThere = access(kMemory, W_OK) == 0 && std::filesystem::is_directory(kMemory);
    const std::filesystem::path place =
        isThere ? std::filesystem::path(kMemory) : std::filesystem::temp_directory_path();
    std::string folder = (place / "designspec_bench-XXXXXX").string();
    Require(mkdtemp(folder.data()) != nullptr, "no temporary folder");
    return folder;
}
