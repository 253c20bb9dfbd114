#include "base/FileSystem.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "base/TemporaryName.h"
#include "base/Text.h"
#include "base/windows/FullPath.h"
#include "base/windows/Windows.h"
#include "base/windows/WindowsPath.h"

namespace designspec::FileSystem {

namespace {

// Numbers of the system that not every compiler has a name for.
constexpr Error kDirectoryNotSupported = 336;
constexpr Error kDiskQuotaExceeded = 1295;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Closes its handle at the end of the scope.
class Handle {
public:
    explicit Handle(HANDLE handle) : m_handle(handle) {}
    ~Handle()
    {
        if (IsOpen()) CloseHandle(m_handle);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    HANDLE Get() const { return m_handle; }
    bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    Error Close()
    {
        return CloseHandle(std::exchange(m_handle, INVALID_HANDLE_VALUE)) ? 0 : LastError();
    }

private:
    HANDLE m_handle;
};

Error ErrorUnless(BOOL done)
{
    return done ? 0 : LastError();
}

// Opens what is there, folders too.
HANDLE OpenThere(const std::wstring& path, DWORD access)
{
    return CreateFileW(path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                       FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

DWORD AttributesOf(const std::wstring& path)
{
    return GetFileAttributesW(path.c_str());
}

bool Is(DWORD attributes, DWORD what)
{
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & what) != 0;
}

// What looks into files as they appear, such as a search for viruses, keeps others from them for a
// moment.
template <class Work> Error Patiently(int times, Work work)
{
    constexpr std::chrono::milliseconds kPause{25};
    for (int i = 1;; ++i) {
        const Error error = work();
        const bool mayPass = error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
                             error == ERROR_ACCESS_DENIED ||
                             error == ERROR_UNABLE_TO_REMOVE_REPLACED ||
                             error == ERROR_UNABLE_TO_MOVE_REPLACEMENT;
        if (!mayPass || i == times) return error;
        std::this_thread::sleep_for(kPause);
    }
}

constexpr int kTimes = 40;         // until it fails
constexpr int kTimesUntouched = 8; // until those who read a file are left with the old one

// Gives the file the access list of another one, as far as the system lets the caller.
void GiveAccessOf(const std::wstring& model, const std::wstring& path)
{
    DWORD size = 0;
    GetFileSecurityW(model.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::string list(size, '\0');
    if (size > 0 &&
        GetFileSecurityW(model.c_str(), DACL_SECURITY_INFORMATION, list.data(), size, &size))
        SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, list.data());
}

// Gives the new file those attributes of an old one that a user sets, if there was an old one.
void GiveAttributes(DWORD attributes, const std::wstring& path)
{
    constexpr DWORD kSet = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                           FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    const DWORD given = attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes & kSet;
    // The access list may have made it read-only.
    if (given != 0 || Is(AttributesOf(path), FILE_ATTRIBUTE_READONLY))
        SetFileAttributesW(path.c_str(), given != 0 ? given : FILE_ATTRIBUTE_NORMAL);
}

Error WriteAll(HANDLE file, std::string_view bytes)
{
    constexpr size_t kMost = 1 << 30;
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(std::min(bytes.size(), kMost));
        if (!WriteFile(file, bytes.data(), size, &written, nullptr)) return LastError();
        bytes.remove_prefix(written);
    }
    return 0;
}

Error MoveOver(const std::wstring& source, const std::wstring& target)
{
    return ErrorUnless(MoveFileExW(source.c_str(), target.c_str(),
                                   MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

// Who has the file open goes on reading the old one, which needs a name of its own for that. There
// is none by the right name for a moment.
Error Exchange(const std::wstring& source, const std::wstring& target)
{
    if (const Handle free(OpenThere(target, DELETE)); !free.IsOpen()) return LastError();
    const std::wstring old = source.substr(0, source.find_last_of(L'\\') + 1) + TemporaryName();
    if (!ReplaceFileW(target.c_str(), source.c_str(), old.c_str(), REPLACEFILE_IGNORE_MERGE_ERRORS,
                      nullptr, nullptr)) {
        const Error error = LastError();
        if (error != ERROR_UNABLE_TO_MOVE_REPLACEMENT_2) return error;
        // The old one has its new name by then. It goes back unless somebody else's is there.
        if (const Error failed = MoveOver(source, target)) {
            if (!MoveFileExW(old.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH) &&
                Is(AttributesOf(target), ~0U))
                DeleteFileW(old.c_str());
            return failed;
        }
    }
    DeleteFileW(old.c_str());
    const Handle file(OpenThere(target, GENERIC_WRITE));
    if (file.IsOpen()) FlushFileBuffers(file.Get());
    return 0;
}

// Names differ by case, files do not: the one that is there may be shown by another.
bool HasOtherCase(const std::wstring& path)
{
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return false;
    FindClose(search);
    return !path.ends_with(std::wstring(L"\\") + found.cFileName);
}

Error MakeFolders(const std::wstring& path, bool& isNew)
{
    const DWORD there = AttributesOf(path);
    if (there != INVALID_FILE_ATTRIBUTES)
        return there & FILE_ATTRIBUTE_DIRECTORY ? 0 : ERROR_DIRECTORY;
    if (!CreateDirectoryW(path.c_str(), nullptr)) {
        const Error error = LastError();
        const size_t end = path.find_last_of(L'\\');
        if (error == ERROR_ALREADY_EXISTS && Is(AttributesOf(path), FILE_ATTRIBUTE_DIRECTORY))
            return 0; // somebody else has been quicker
        if (error != ERROR_PATH_NOT_FOUND || end + 1 == path.size()) return error;
        if (const Error above = MakeFolders(path.substr(0, end), isNew)) return above;
        if (!CreateDirectoryW(path.c_str(), nullptr)) return LastError();
    }
    isNew = true;
    return 0;
}

std::uint64_t Number(DWORD high, DWORD low)
{
    return std::uint64_t{high} << 32 | low;
}

std::wstring SystemTextOf(Error error)
{
    wchar_t text[512] = {};
    const DWORD size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                      nullptr, static_cast<DWORD>(error), 0, text,
                                      static_cast<DWORD>(std::size(text)), nullptr);
    const std::wstring known = Trim({text, size});
    return known.empty() ? L"错误 " + std::to_wstring(error) : known;
}

} // namespace

const Error kInvalidName = ERROR_INVALID_NAME;
const Error kIsFolder = kDirectoryNotSupported;

std::wstring TextOf(Error error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
        return L"不存在";
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
        return L"没有权限";
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_UNABLE_TO_REMOVE_REPLACED:
        return L"正由另一程序使用";
    case kDirectoryNotSupported:
        return L"是文件夹,不是文件";
    case ERROR_DIRECTORY:
        return L"路径中有一段不是文件夹";
    case ERROR_CANT_RESOLVE_FILENAME:
        return L"符号链接成环";
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
        return L"磁盘空间不足";
    case ERROR_FILE_TOO_LARGE:
        return L"超出文件大小限制";
    case ERROR_WRITE_PROTECT:
        return L"文件系统只读";
    case ERROR_FILENAME_EXCED_RANGE:
        return L"文件名过长";
    case ERROR_CRC:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_IO_DEVICE:
        return L"读写出错";
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return L"已存在";
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
        return L"文件名无效";
    default:
        return SystemTextOf(error);
    }
}

bool IsMissing(Error error)
{
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ||
           error == ERROR_DIRECTORY || error == ERROR_INVALID_NAME;
}

bool IsPath(std::wstring_view)
{
    return true;
}

bool IsNameCharacter(wchar_t c)
{
    return IsWindowsNameCharacter(c);
}

std::wstring FolderOf(const std::wstring& path)
{
    const std::wstring full = WindowsPath(path);
    const size_t end = full.find_last_of(L'\\');
    return end == std::wstring::npos ? path : full.substr(0, end);
}

Error Look(const std::wstring& path)
{
    const std::wstring full = WindowsPath(path);
    if (full.empty()) return kInvalidName;
    if (AttributesOf(full) != INVALID_FILE_ATTRIBUTES) return 0;
    const Error error = LastError();
    return error == ERROR_SHARING_VIOLATION ? 0 : error; // there, and another's alone
}

Error Identify(const std::wstring& path, Identity& identity)
{
    const std::wstring full = WindowsPath(path);
    if (full.empty()) return kInvalidName;
    const Handle file(OpenThere(full, 0));
    BY_HANDLE_FILE_INFORMATION its{};
    if (!file.IsOpen() || !GetFileInformationByHandle(file.Get(), &its)) return LastError();
    identity = {its.dwVolumeSerialNumber, Number(its.nFileIndexHigh, its.nFileIndexLow)};
    return 0;
}

bool IsFolder(const std::wstring& path)
{
    return Is(AttributesOf(WindowsPath(path)), FILE_ATTRIBUTE_DIRECTORY);
}

Error List(const std::wstring& folder, const std::function<void(const std::wstring&)>& take)
{
    const std::wstring full = WindowsPath(folder);
    const DWORD attributes = AttributesOf(full);
    if (attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY))
        return ERROR_DIRECTORY;
    WIN32_FIND_DATAW found;
    const HANDLE search =
        FindFirstFileExW((full + (full.ends_with(L'\\') ? L"*" : L"\\*")).c_str(), FindExInfoBasic,
                         &found, FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE) {
        const Error error = LastError();
        return error == ERROR_FILE_NOT_FOUND ? 0 : error; // an empty disk has not even "."
    }
    struct Closed {
        HANDLE search;
        ~Closed() { FindClose(search); }
    } const closed{search};
    do {
        const std::wstring name = found.cFileName;
        if (name != L"." && name != L"..") take(name);
    } while (FindNextFileW(search, &found));
    const Error error = LastError();
    return error == ERROR_NO_MORE_FILES ? 0 : error;
}

std::optional<std::chrono::seconds> Age(const std::wstring& path)
{
    WIN32_FILE_ATTRIBUTE_DATA its;
    if (!GetFileAttributesExW(WindowsPath(path).c_str(), GetFileExInfoStandard, &its))
        return std::nullopt;
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    constexpr std::int64_t kSecond = 10'000'000; // in tenths of a microsecond
    const auto ticks = [](const FILETIME& time) {
        return static_cast<std::int64_t>(Number(time.dwHighDateTime, time.dwLowDateTime));
    };
    return std::chrono::seconds((ticks(now) - ticks(its.ftLastWriteTime)) / kSecond);
}

size_t Memory()
{
    MEMORYSTATUSEX memory{};
    memory.dwLength = sizeof memory;
    return GlobalMemoryStatusEx(&memory) ? static_cast<size_t>(memory.ullTotalPhys) : 0;
}

Input::~Input()
{
    if (m_file != -1) CloseHandle(reinterpret_cast<HANDLE>(m_file));
}

Error Input::Open(const std::wstring& path)
{
    const std::wstring full = WindowsPath(path);
    if (full.empty()) return kInvalidName;
    const HANDLE file = OpenThere(full, GENERIC_READ);
    if (file == INVALID_HANDLE_VALUE) return LastError();
    m_file = reinterpret_cast<std::intptr_t>(file);
    BY_HANDLE_FILE_INFORMATION its{};
    if (GetFileType(file) != FILE_TYPE_DISK) return 0;
    if (!GetFileInformationByHandle(file, &its)) return LastError();
    m_kind = its.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY ? Kind::Folder : Kind::File;
    m_size = Number(its.nFileSizeHigh, its.nFileSizeLow);
    return 0;
}

Error Input::Read(char* buffer, size_t room, size_t& count)
{
    constexpr size_t kMost = 1 << 30;
    DWORD got = 0;
    if (!ReadFile(reinterpret_cast<HANDLE>(m_file), buffer,
                  static_cast<DWORD>(std::min(room, kMost)), &got, nullptr))
        return LastError();
    count = got;
    return 0;
}

Error WriteNew(const std::wstring& path, const std::wstring& target, const std::wstring& like,
               std::string_view bytes)
{
    const std::wstring full = WindowsPath(path);
    std::wstring model = WindowsPath(target);
    if (full.empty() || model.empty()) return kInvalidName;
    const DWORD attributes = AttributesOf(model);
    if (Is(attributes, FILE_ATTRIBUTE_DIRECTORY)) return kIsFolder;
    if (Is(attributes, FILE_ATTRIBUTE_READONLY)) return kReadOnly;
    if (attributes == INVALID_FILE_ATTRIBUTES)
        model = like.empty() ? std::wstring() : WindowsPath(like);
    Handle file(CreateFileW(full.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) return LastError();
    // Nobody reads it before it has the access that it should have: it is not shared yet.
    if (!model.empty()) GiveAccessOf(model, full);
    GiveAttributes(attributes, full);
    if (const Error error = WriteAll(file.Get(), bytes)) return error;
    if (!FlushFileBuffers(file.Get())) return LastError();
    return file.Close();
}

Error PutInPlace(const std::wstring& path, const std::wstring& target)
{
    const std::wstring from = WindowsPath(path);
    const std::wstring to = WindowsPath(target);
    // What is moved over a file may be shown by the old name's case, and does not lose it again.
    Error error = ERROR_ACCESS_DENIED;
    if (!HasOtherCase(to)) error = Patiently(kTimesUntouched, [&] { return MoveOver(from, to); });
    const bool isUsed = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
    if (isUsed && !Is(AttributesOf(to), FILE_ATTRIBUTE_REPARSE_POINT))
        error = Patiently(kTimes, [&] {
            const Error failed = Exchange(from, to);
            const bool isBetween = failed == ERROR_FILE_NOT_FOUND && Is(AttributesOf(from), ~0U);
            return isBetween ? MoveOver(from, to) : failed; // somebody else was replacing it
        });
    if (error == 0 && HasOtherCase(to)) MoveOver(to, to);
    return error;
}

// Windows keeps the names in order by itself, and writes them out with what is flushed there.
Error FlushFolder(const std::wstring& folder)
{
    const Handle opened(OpenThere(WindowsPath(folder), GENERIC_WRITE));
    if (opened.IsOpen()) FlushFileBuffers(opened.Get());
    const Error error = opened.IsOpen() ? 0 : LastError();
    return IsMissing(error) ? error : 0;
}

Error Move(const std::wstring& source, const std::wstring& target)
{
    const std::wstring from = WindowsPath(source);
    const std::wstring to = WindowsPath(target);
    if (from.empty() || to.empty()) return kInvalidName;
    return Patiently(kTimes, [&] { return MoveOver(from, to); });
}

Error Link(const std::wstring& source, const std::wstring& target)
{
    return ErrorUnless(
        CreateHardLinkW(WindowsPath(target).c_str(), WindowsPath(source).c_str(), nullptr));
}

Error Remove(const std::wstring& path)
{
    const std::wstring full = WindowsPath(path);
    if (full.empty()) return kInvalidName;
    const DWORD attributes = AttributesOf(full);
    if (attributes == INVALID_FILE_ATTRIBUTES) return LastError();
    const bool isLink = Is(attributes, FILE_ATTRIBUTE_REPARSE_POINT);
    if (Is(attributes, FILE_ATTRIBUTE_DIRECTORY)) return isLink ? RemoveFolder(path) : kIsFolder;
    if (Is(attributes, FILE_ATTRIBUTE_READONLY))
        SetFileAttributesW(full.c_str(), FILE_ATTRIBUTE_NORMAL);
    return Patiently(kTimes, [&] { return ErrorUnless(DeleteFileW(full.c_str())); });
}

Error RemoveFolder(const std::wstring& path)
{
    return ErrorUnless(RemoveDirectoryW(WindowsPath(path).c_str()));
}

// Access is handed down by the folder above.
Error MakeFolder(const std::wstring& path, const std::wstring&, bool& isNew)
{
    const std::wstring full = WindowsPath(path);
    isNew = false;
    return full.empty() ? kInvalidName : MakeFolders(full, isNew);
}

} // namespace designspec::FileSystem
