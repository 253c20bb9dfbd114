#include "base/windows/WindowsPath.h"

#include "base/windows/FullPath.h"
#include "base/windows/Windows.h"

namespace designspec {

namespace {

std::wstring FolderOfDrive(wchar_t drive)
{
    const std::wstring name = drive ? std::wstring{drive, L':'} : std::wstring(L".");
    std::wstring folder(MAX_PATH, L'\0');
    for (;;) {
        const DWORD size = GetFullPathNameW(name.c_str(), static_cast<DWORD>(folder.size()),
                                            folder.data(), nullptr);
        const bool fits = size < folder.size();
        folder.resize(size);
        if (fits) return folder;
    }
}

} // namespace

std::wstring WindowsPath(const std::wstring& path)
{
    return FullPath(path, FolderOfDrive);
}

FileSystem::Error LastError()
{
    return static_cast<FileSystem::Error>(GetLastError());
}

} // namespace designspec
