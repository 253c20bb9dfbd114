#include "base/LockFile.h"

#include <thread>
#include <utility>

#include "base/windows/Windows.h"
#include "base/windows/WindowsPath.h"

namespace designspec {

namespace {

// Locks keep others from reading, too: this one stands behind all that the file holds.
constexpr DWORD kPlaceHigh = 0x7FFFFFFF;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE HandleOf(std::intptr_t file)
{
    return reinterpret_cast<HANDLE>(file);
}

// A file that somebody has deleted stays until the last who had it open lets go of it, and cannot
// be opened until then.
HANDLE Open(const wchar_t* path, DWORD access, DWORD disposition)
{
    constexpr int kTimes = 20;
    constexpr std::chrono::milliseconds kPause{10};
    for (int i = 1;; ++i) {
        const HANDLE file = CreateFileW(path, access, kShareAll, nullptr, disposition,
                                        FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
        const bool mayPass = file == INVALID_HANDLE_VALUE && LastError() == ERROR_ACCESS_DENIED;
        if (!mayPass || i == kTimes) return file;
        std::this_thread::sleep_for(kPause);
    }
}

FileSystem::Error Lock(HANDLE file)
{
    OVERLAPPED place{};
    place.OffsetHigh = kPlaceHigh;
    constexpr DWORD kHow = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
    return LockFileEx(file, kHow, 0, 1, 0, &place) ? 0 : LastError();
}

bool KnowsNoLocks(FileSystem::Error error)
{
    return error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION;
}

// The holder deletes the file before it lets go of it: a lock of a file that is no longer at the
// path keeps nobody out.
bool IsAt(const wchar_t* path, HANDLE file)
{
    const HANDLE there = CreateFileW(path, 0, kShareAll, nullptr, OPEN_EXISTING,
                                     FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (there == INVALID_HANDLE_VALUE) return false;
    BY_HANDLE_FILE_INFORMATION named{};
    BY_HANDLE_FILE_INFORMATION opened{};
    const bool isKnown =
        GetFileInformationByHandle(there, &named) && GetFileInformationByHandle(file, &opened);
    CloseHandle(there);
    return isKnown && named.dwVolumeSerialNumber == opened.dwVolumeSerialNumber &&
           named.nFileIndexHigh == opened.nFileIndexHigh &&
           named.nFileIndexLow == opened.nFileIndexLow;
}

bool IsLink(HANDLE file)
{
    BY_HANDLE_FILE_INFORMATION its{};
    return GetFileInformationByHandle(file, &its) &&
           (its.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

} // namespace

// Nothing that could throw stands behind the opening of the file.
LockFile::Attempt LockFile::Try(const std::wstring& path, const std::string& name,
                                FileSystem::Error& error)
{
    m_path = WindowsPath(path);
    const HANDLE file = Open(m_path.c_str(), GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
    if (file == INVALID_HANDLE_VALUE) {
        error = LastError();
        return Attempt::Failed;
    }
    error = IsLink(file) ? ERROR_CANT_RESOLVE_FILENAME : Lock(file);
    if (error != 0 && !KnowsNoLocks(error)) {
        CloseHandle(file);
        return error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING ? Attempt::Held
                                                                          : Attempt::Failed;
    }
    if (error == 0 && !IsAt(m_path.c_str(), file)) {
        CloseHandle(file);
        return Attempt::Held; // its holder has just let go
    }
    DWORD written = 0;
    SetEndOfFile(file);
    WriteFile(file, name.data(), static_cast<DWORD>(name.size()), &written, nullptr);
    m_file = reinterpret_cast<std::intptr_t>(file);
    return Attempt::Taken;
}

void LockFile::Release()
{
    if (!IsTaken()) return;
    const HANDLE file = HandleOf(std::exchange(m_file, -1));
    // The folder may have gone and come anew, with a lock of somebody else's.
    if (IsAt(m_path.c_str(), file)) DeleteFileW(m_path.c_str());
    CloseHandle(file);
}

std::string LockFile::HolderOf(const std::wstring& path)
{
    const HANDLE file = Open(WindowsPath(path).c_str(), GENERIC_READ, OPEN_EXISTING);
    if (file == INVALID_HANDLE_VALUE) return {};
    char text[512] = {};
    DWORD size = 0;
    ReadFile(file, text, sizeof text, &size, nullptr);
    CloseHandle(file);
    return {text, size};
}

} // namespace designspec
