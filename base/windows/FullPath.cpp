#include "base/windows/FullPath.h"

#include <algorithm>
#include <vector>

namespace designspec {

namespace {

constexpr wchar_t kSeparator = L'\\';
constexpr std::wstring_view kAsItStands = L"\\\\?\\";
constexpr std::wstring_view kShareAsItStands = L"\\\\?\\UNC\\";
constexpr std::wstring_view kDevice = L"\\\\.\\";

bool HasDrive(std::wstring_view path)
{
    const wchar_t letter = path.empty() ? L'\0' : path.front() | 0x20;
    return path.size() >= 2 && letter >= L'a' && letter <= L'z' && path[1] == L':';
}

// Takes the names up to the next separator off the path.
std::wstring_view TakeName(std::wstring_view& path)
{
    const size_t end = std::min(path.find(kSeparator), path.size());
    const std::wstring_view name = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    return name;
}

struct Parts {
    std::wstring root; // "\\?\C:" or "\\?\UNC\server\share"; empty when there is none
    std::wstring rest; // what stands behind it
};

Parts PartsOfShare(std::wstring_view rest)
{
    const std::wstring_view server = TakeName(rest);
    const std::wstring_view share = TakeName(rest);
    if (server.empty() || share.empty()) return {};
    return {std::wstring(kShareAsItStands).append(server).append(1, kSeparator).append(share),
            std::wstring(rest)};
}

// Of a path that begins at a drive or a share.
Parts PartsOf(std::wstring_view path)
{
    if (path.starts_with(kDevice)) return {};
    if (path.starts_with(kShareAsItStands))
        return PartsOfShare(path.substr(kShareAsItStands.size()));
    if (path.starts_with(kAsItStands)) path.remove_prefix(kAsItStands.size());
    if (path.starts_with(L"\\\\")) return PartsOfShare(path.substr(2));
    if (!HasDrive(path)) return {};
    return {std::wstring(kAsItStands).append(path.substr(0, 2)), std::wstring(path.substr(2))};
}

Parts Absolute(std::wstring_view path, const CurrentFolderOf& currentFolder)
{
    const bool hasDrive = HasDrive(path);
    if (path.starts_with(L"\\\\") || (hasDrive && path.size() > 2 && path[2] == kSeparator))
        return PartsOf(path);
    Parts parts = PartsOf(currentFolder(hasDrive ? path.front() : L'\0'));
    if (hasDrive) path.remove_prefix(2);
    if (path.starts_with(kSeparator)) parts.rest.clear();
    parts.rest.append(1, kSeparator).append(path);
    return parts;
}

} // namespace

bool IsWindowsNameCharacter(wchar_t c)
{
    return static_cast<char32_t>(c) >= U' ' &&
           std::wstring_view(L"<>:\"/\\|?*").find(c) == std::wstring_view::npos;
}

std::wstring FullPath(std::wstring_view path, const CurrentFolderOf& currentFolder)
{
    std::wstring separated(path);
    std::replace(separated.begin(), separated.end(), L'/', kSeparator);
    const Parts parts = Absolute(separated, currentFolder);
    if (parts.root.empty()) return {};
    std::vector<std::wstring_view> names;
    for (std::wstring_view rest = parts.rest; !rest.empty();) {
        const std::wstring_view name = TakeName(rest);
        if (!std::all_of(name.begin(), name.end(), IsWindowsNameCharacter)) return {};
        if (name == L".." && !names.empty())
            names.pop_back();
        else if (!name.empty() && name != L"." && name != L"..")
            names.push_back(name);
    }
    std::wstring full = parts.root;
    for (const std::wstring_view name : names)
        full.append(1, kSeparator).append(name);
    return names.empty() ? full + kSeparator : full;
}

} // namespace designspec
