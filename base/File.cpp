#include "base/File.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <random>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"

namespace designspec {

namespace {

constexpr std::string_view kTemporaryStart = ".designspec-";
constexpr std::string_view kTemporaryEnd = ".tmp";
constexpr size_t kLongestName = 255; // bytes
constexpr size_t kCopyLimit = 256 << 20;

bool Fail(const std::wstring& path, const std::wstring& what, Problems& problems)
{
    AddProblem(problems, Severity::Error, path, 0, what);
    return false;
}

bool Fail(const std::wstring& path, const wchar_t* what, int error, Problems& problems)
{
    return Fail(path, Format(L"%s: %s", what, ErrorText(error)), problems);
}

// For the operating system a path ends at its first NUL: it would reach another file.
bool IsCutShort(const std::wstring& path)
{
    return path.find(L'\0') != std::wstring::npos;
}

// Closes its descriptor at the end of the scope.
class Descriptor {
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor()
    {
        if (m_fd >= 0) close(m_fd);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return m_fd; }
    bool IsOpen() const { return m_fd >= 0; }
    // Closes now, and tells whether that went well: a full disk may show only here.
    bool Close()
    {
        const int fd = m_fd;
        m_fd = -1;
        return close(fd) == 0;
    }

private:
    int m_fd;
};

std::string FolderOf(const std::string& path)
{
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

std::string TemporaryName()
{
    static constexpr char kDigits[] = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::random_device random;
    std::string name(kTemporaryStart);
    for (int i = 0; i < 12; ++i)
        name.push_back(kDigits[random() % 36]);
    return name.append(kTemporaryEnd);
}

bool WriteAll(int fd, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = write(fd, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        bytes.remove_prefix(static_cast<size_t>(written));
    }
    return true;
}

// Writes the temporary file, with the permissions of the target if that is there. 0, or the
// error number.
int WriteTemporary(const std::string& temporary, const std::string& target, std::string_view bytes)
{
    Descriptor file(open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file.IsOpen()) return errno;
    struct stat status = {};
    if (stat(target.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
        fchmod(file.Get(), status.st_mode & 07777) != 0)
        return errno;
    if (!WriteAll(file.Get(), bytes) || fsync(file.Get()) != 0) return errno;
    return file.Close() ? 0 : errno;
}

// Makes what happened to a name in the folder last through a power failure. Some file systems
// cannot flush a folder (EINVAL), some folders may be written but not opened (EACCES): nothing
// more can be done there. 0, or the error number.
int FlushNative(const std::string& folder)
{
    const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.IsOpen()) return errno == EACCES ? 0 : errno;
    return fsync(opened.Get()) == 0 || errno == EINVAL ? 0 : errno;
}

bool FlushFolderOf(const std::wstring& path, const wchar_t* what, Problems& problems)
{
    const int error = FlushNative(FolderOf(NativePath(path)));
    return error == 0 || Fail(path, what, error, problems);
}

} // namespace

std::string NativePath(const std::wstring& path)
{
    std::string native = ToUtf8(path);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

bool IsFileName(std::wstring_view name)
{
    return !name.empty() && name != L"." && name != L".." &&
           name.find_first_of(std::wstring_view(L"/\\\0", 3)) == std::wstring_view::npos &&
           ToUtf8(name).size() <= kLongestName;
}

std::wstring ErrorText(int error)
{
    switch (error) {
    case ENOENT:
        return L"不存在";
    case EACCES:
    case EPERM:
        return L"没有权限";
    case EISDIR:
        return L"是文件夹,不是文件";
    case ENOTDIR:
        return L"路径中有一段不是文件夹";
    case ELOOP:
        return L"符号链接成环";
    case ENOSPC:
    case EDQUOT:
        return L"磁盘空间不足";
    case EFBIG:
        return L"超出文件大小限制";
    case EROFS:
        return L"文件系统只读";
    case ENAMETOOLONG:
        return L"文件名过长";
    case EIO:
        return L"读写出错";
    case EEXIST:
        return L"已存在";
    case EINVAL:
        return L"文件名无效";
    default:
        return ToWide(std::strerror(error));
    }
}

bool PathFileExists(const std::wstring& path)
{
    struct stat status = {};
    return !IsCutShort(path) && lstat(NativePath(path).c_str(), &status) == 0;
}

bool IsSameFile(const std::wstring& a, const std::wstring& b)
{
    struct stat first = {};
    struct stat second = {};
    return !IsCutShort(a) && !IsCutShort(b) && stat(NativePath(a).c_str(), &first) == 0 &&
           stat(NativePath(b).c_str(), &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

std::vector<std::wstring> FindFiles(const std::wstring& folder, std::wstring_view ending,
                                    Problems& problems)
{
    std::vector<std::wstring> names;
    if (!PathFileExists(folder)) return names;
    std::error_code error;
    std::filesystem::directory_iterator entry(NativePath(folder), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::wstring name = ToWide(entry->path().filename().string());
        if (name.size() >= ending.size() &&
            EqualNoCase(std::wstring_view(name).substr(name.size() - ending.size()), ending))
            names.push_back(name);
    }
    if (error) Fail(folder, L"文件夹无法读取", error.value(), problems);
    std::sort(names.begin(), names.end(), [](const std::wstring& a, const std::wstring& b) {
        const int order = CompareNoCase(a, b);
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

bool ReadWholeFile(const std::wstring& path, std::string& bytes, size_t limit, Problems& problems)
{
    static constexpr wchar_t kWhat[] = L"无法读取";
    if (IsCutShort(path)) return Fail(path, kWhat, EINVAL, problems);
    // Without O_NONBLOCK, a pipe of that name would hold the caller until somebody writes to it.
    const Descriptor file(open(NativePath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.IsOpen()) return Fail(path, kWhat, errno, problems);
    struct stat status = {};
    if (fstat(file.Get(), &status) != 0) return Fail(path, kWhat, errno, problems);
    if (S_ISDIR(status.st_mode)) return Fail(path, kWhat, EISDIR, problems);
    if (!S_ISREG(status.st_mode)) return Fail(path, L"无法读取: 不是普通文件", problems);
    if (static_cast<std::uintmax_t>(status.st_size) > limit)
        return Fail(path, Format(L"无法读取: 文件大于 %d MiB", limit >> 20), problems);
    bytes.resize(static_cast<size_t>(status.st_size));
    size_t size = 0;
    while (size < bytes.size()) {
        const ssize_t got = read(file.Get(), bytes.data() + size, bytes.size() - size);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return Fail(path, kWhat, errno, problems);
        if (got == 0) break; // it has become shorter since
        size += static_cast<size_t>(got);
    }
    bytes.resize(size);
    return true;
}

bool WriteWholeFile(const std::wstring& path, std::string_view bytes, Problems& problems)
{
    static constexpr wchar_t kWhat[] = L"无法写入";
    if (IsCutShort(path)) return Fail(path, kWhat, EINVAL, problems);
    const std::string target = NativePath(path);
    const std::string folder = FolderOf(target);
    const std::string temporary = folder + '/' + TemporaryName();

    int error = WriteTemporary(temporary, target, bytes);
    if (error == 0 && rename(temporary.c_str(), target.c_str()) != 0) error = errno;
    if (error != 0) {
        unlink(temporary.c_str());
        return Fail(path, kWhat, error, problems);
    }
    return FlushFolderOf(path, kWhat, problems);
}

bool FlushFolder(const std::wstring& folder, Problems& problems)
{
    const int error = FlushNative(NativePath(folder));
    return error == 0 || Fail(folder, L"无法写入", error, problems);
}

bool IsTemporaryFile(std::wstring_view name)
{
    return name.starts_with(ToWide(kTemporaryStart)) && name.ends_with(ToWide(kTemporaryEnd));
}

bool CopyFile(const std::wstring& source, const std::wstring& target, Problems& problems)
{
    std::string bytes;
    return ReadWholeFile(source, bytes, kCopyLimit, problems) &&
           WriteWholeFile(target, bytes, problems);
}

bool MoveFile(const std::wstring& source, const std::wstring& target, Problems& problems)
{
    static constexpr wchar_t kWhat[] = L"无法移动";
    if (IsCutShort(source) || IsCutShort(target)) return Fail(source, kWhat, EINVAL, problems);
    if (rename(NativePath(source).c_str(), NativePath(target).c_str()) != 0)
        return Fail(source, kWhat, errno, problems);
    return FlushFolderOf(target, kWhat, problems) && FlushFolderOf(source, kWhat, problems);
}

bool DeleteFile(const std::wstring& path, Problems& problems)
{
    static constexpr wchar_t kWhat[] = L"无法删除";
    if (IsCutShort(path)) return Fail(path, kWhat, EINVAL, problems);
    if (unlink(NativePath(path).c_str()) == 0) {
        return FlushFolderOf(path, kWhat, problems);
    }
    return errno == ENOENT ? false : Fail(path, kWhat, errno, problems);
}

bool CreateFolder(const std::wstring& path, Problems& problems)
{
    static constexpr wchar_t kWhat[] = L"文件夹无法创建";
    if (IsCutShort(path)) return Fail(path, kWhat, EINVAL, problems);
    std::error_code error;
    const std::string native = NativePath(path);
    const bool isNew = std::filesystem::create_directories(native, error);
    if (!error && std::filesystem::is_directory(native, error))
        return !isNew || FlushFolder(path + L"/..", problems);
    return Fail(path, kWhat, error.value(), problems);
}

} // namespace designspec
