#include "base/Process.h"

#include <random>

#include "base/windows/Windows.h"

namespace designspec::Process {

namespace {

// The path of the program's file.
std::wstring Program()
{
    constexpr DWORD kLongest = 1 << 15;
    std::wstring path(kLongest, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), kLongest));
    return path;
}

} // namespace

int Id()
{
    return static_cast<int>(GetCurrentProcessId());
}

bool IsRunning(int id)
{
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(id));
    if (!process) return GetLastError() != ERROR_INVALID_PARAMETER;
    const bool isRunning = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
    CloseHandle(process);
    return isRunning;
}

std::wstring ProgramName()
{
    std::wstring name = Program();
    name.erase(0, name.find_last_of(L'\\') + 1);
    return name.substr(0, name.find_last_of(L'.'));
}

std::wstring ProgramFolder()
{
    const std::wstring path = Program();
    return path.substr(0, path.find_last_of(L'\\'));
}

std::wstring CurrentFolder()
{
    const DWORD size = GetCurrentDirectoryW(0, nullptr);
    std::wstring path(size, L'\0');
    path.resize(GetCurrentDirectoryW(size, path.data()));
    return path.empty() ? L"." : path;
}

std::wstring HostName()
{
    wchar_t name[256] = {};
    DWORD size = static_cast<DWORD>(std::size(name));
    return GetComputerNameExW(ComputerNameDnsHostname, name, &size) ? name : L"localhost";
}

std::array<std::uint8_t, 16> NewIdentity()
{
    std::random_device random; // the system's own
    std::array<std::uint8_t, 16> bytes{};
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40);
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    return bytes;
}

} // namespace designspec::Process
