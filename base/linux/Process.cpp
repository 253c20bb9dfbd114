#include "base/Process.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>

#include <unistd.h>
#include <uuid/uuid.h>

#include "base/FileSystem.h"
#include "base/Text.h"

namespace designspec::Process {

int Id()
{
    return getpid();
}

bool IsRunning(int id)
{
    return kill(id, 0) == 0 || errno != ESRCH;
}

std::wstring ProgramName()
{
    return ToWide(program_invocation_short_name);
}

std::wstring ProgramFolder()
{
    std::error_code error;
    return ToWide(std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string());
}

std::wstring CurrentFolder()
{
    std::error_code error;
    std::wstring path = ToWide(std::filesystem::current_path(error).string());
    // One that is gone has no path.
    return !path.empty() && FileSystem::IsPath(path) ? path : L".";
}

std::wstring HostName()
{
    std::array<char, 256> host{};
    gethostname(host.data(), host.size() - 1);
    return ToWide(host.data());
}

std::array<std::uint8_t, 16> NewIdentity()
{
    uuid_t bytes;
    uuid_generate_random(bytes);
    return std::to_array(bytes);
}

} // namespace designspec::Process
