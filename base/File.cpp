#include "base/File.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <memory>
#include <random>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/FileAccess.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"

namespace designspec {

namespace {

constexpr std::string_view kTemporaryStart = ".designspec-";
constexpr std::string_view kTemporaryEnd = ".tmp";
constexpr size_t kLongestName = 255;               // bytes
constexpr int kReadOnly = -1;                      // beside the error numbers of the system
constexpr auto kLeftTime = std::chrono::hours(24); // no write takes that long

bool Fail(const std::wstring& path, const std::wstring& what, Problems& problems)
{
    AddProblem(problems, Severity::Error, path, 0, what);
    return false;
}

bool Fail(const std::wstring& path, const wchar_t* what, int error, Problems& problems)
{
    return Fail(path, Format(L"%s: %s", what, ErrorText(error)), problems);
}

// An empty path is none. For the operating system a path ends at its first NUL: it would reach
// another file.
bool IsNoPath(const std::wstring& path)
{
    return path.empty() || path.find(L'\0') != std::wstring::npos;
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

// Tells the process that writes it.
std::string TemporaryName()
{
    static constexpr char kDigits[] = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::random_device random;
    std::string name = std::string(kTemporaryStart) + std::to_string(getpid()) + '-';
    for (int i = 0; i < 12; ++i)
        name.push_back(kDigits[random() % 36]);
    return name.append(kTemporaryEnd);
}

// A write beyond the size limit of files raises a signal that ends the process. While this stands
// it only fails.
class SizeSignalHeld {
public:
    SizeSignalHeld()
    {
        sigemptyset(&m_signal);
        sigaddset(&m_signal, SIGXFSZ);
        pthread_sigmask(SIG_BLOCK, &m_signal, &m_before);
    }
    ~SizeSignalHeld()
    {
        const int error = errno; // of the write
        const timespec noTime = {};
        while (sigtimedwait(&m_signal, nullptr, &noTime) == SIGXFSZ) {
        }
        errno = error;
        pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }
    SizeSignalHeld(const SizeSignalHeld&) = delete;
    SizeSignalHeld& operator=(const SizeSignalHeld&) = delete;

private:
    sigset_t m_signal;
    sigset_t m_before;
};

bool WriteAll(int fd, std::string_view bytes)
{
    const SizeSignalHeld held;
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

// The file whose access a new one at `target` gets; empty when it is that of any new file.
struct Model {
    std::string path;
    bool isTarget = false;
};

// Where the access comes from: the target, if that is there, else the file at `like`. 0, or the
// error number.
int FindModel(const std::string& target, const std::string& like, Model& model)
{
    for (const std::string& path : {target, like}) {
        struct stat status = {};
        if (path.empty()) continue;
        const bool there = stat(path.c_str(), &status) == 0;
        if (!there && errno != ENOENT) return errno;
        if (!there || !S_ISREG(status.st_mode)) continue;
        model = {path, path == target};
        // Whoever wants no change of a file takes away the right to write it.
        return model.isTarget && (status.st_mode & 0222) == 0 ? kReadOnly : 0;
    }
    return 0;
}

int GiveAccess(const Model& model, int fd)
{
    if (model.path.empty()) return 0;
    if (const int error = GiveAccessOf(model.path, fd)) return error;
    // A copy is there to be changed, even one of a file that is not.
    struct stat status = {};
    if (model.isTarget) return 0;
    if (fstat(fd, &status) != 0) return errno;
    return status.st_mode & S_IWUSR || fchmod(fd, (status.st_mode & 0777) | S_IWUSR) == 0 ? 0
                                                                                          : errno;
}

// Writes the temporary file for that target. 0, or the error number.
int WriteTemporary(const std::string& temporary, const std::string& target, const std::string& like,
                   std::string_view bytes)
{
    Model model;
    if (const int error = FindModel(target, like, model)) return error;
    // Nobody reads it before it has the access that it should have.
    const mode_t mode = model.path.empty() ? 0666 : 0600;
    Descriptor file(open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!file.IsOpen()) return errno;
    if (const int error = GiveAccess(model, file.Get())) return error;
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

// A link that leads to `leads` from the folder of `source` is made at `target`, and the old one
// goes.
int MoveLink(const std::string& source, const std::string& leads, const std::string& target)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path from = fs::canonical(FolderOf(source), error);
    if (error) return error.value();
    const fs::path to = fs::canonical(FolderOf(target), error);
    if (error) return error.value();
    const std::string there = (from / leads).lexically_normal().lexically_relative(to).string();
    const std::string temporary = FolderOf(target) + '/' + TemporaryName();
    if (symlink(there.c_str(), temporary.c_str()) != 0) return errno;
    if (rename(temporary.c_str(), target.c_str()) != 0) {
        const int cause = errno;
        unlink(temporary.c_str());
        return cause;
    }
    return unlink(source.c_str()) == 0 ? 0 : errno;
}

// A relative link would lead elsewhere from another folder. 0, or the error number.
int MoveNative(const std::string& source, const std::string& target)
{
    struct stat status = {};
    if (lstat(source.c_str(), &status) != 0) return errno;
    if (S_ISLNK(status.st_mode)) {
        std::error_code error;
        const std::filesystem::path leads = std::filesystem::read_symlink(source, error);
        if (error) return error.value();
        if (leads.is_relative() && FolderOf(source) != FolderOf(target))
            return MoveLink(source, leads.string(), target);
    }
    return rename(source.c_str(), target.c_str()) == 0 ? 0 : errno;
}

bool EndsIn(std::wstring_view name, std::wstring_view ending)
{
    return name.size() >= ending.size() &&
           EqualNoCase(name.substr(name.size() - ending.size()), ending);
}

// True when the process that writes the temporary file may still be at it.
bool IsBeingWritten(std::string_view name)
{
    name.remove_prefix(kTemporaryStart.size());
    pid_t process = 0;
    const auto read = std::from_chars(name.data(), name.data() + name.size(), process);
    // Those of older programs do not tell their process.
    if (read.ec != std::errc() || process <= 0 || *read.ptr != '-') return false;
    return kill(process, 0) == 0 || errno != ESRCH;
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

std::optional<bool> PathFileExists(const std::wstring& path, Problems& problems)
{
    struct stat status = {};
    if (IsNoPath(path)) return false;
    if (lstat(NativePath(path).c_str(), &status) == 0) return true;
    if (errno == ENOENT || errno == ENOTDIR) return false;
    Fail(path, L"无法查看", errno, problems);
    return std::nullopt;
}

bool PathFileExists(const std::wstring& path)
{
    Problems unseen;
    return PathFileExists(path, unseen).value_or(false);
}

bool IsSameContent(const std::wstring& a, const std::wstring& b)
{
    Problems unread;
    std::string bytes;
    std::string others;
    return ReadWholeFile(a, bytes, unread) && ReadWholeFile(b, others, unread) && bytes == others;
}

std::optional<bool> IsSameFile(const std::wstring& a, const std::wstring& b, Problems& problems)
{
    struct stat first = {};
    struct stat second = {};
    for (const auto& [path, status] : {std::pair(&a, &first), std::pair(&b, &second)}) {
        if (IsNoPath(*path)) return false;
        if (stat(NativePath(*path).c_str(), status) == 0) continue;
        if (errno == ENOENT || errno == ENOTDIR) return false;
        Fail(*path, L"无法查看", errno, problems);
        return std::nullopt;
    }
    return first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

std::vector<std::wstring> FindFiles(const std::wstring& folder, std::wstring_view ending,
                                    Problems& problems,
                                    const std::function<bool(const std::wstring&)>& wanted)
{
    std::vector<std::wstring> names;
    if (!PathFileExists(folder, problems).value_or(false)) return names;
    // The standard library's way through a folder ends the program where memory ends.
    const std::unique_ptr<DIR, int (*)(DIR*)> opened(opendir(NativePath(folder).c_str()), closedir);
    int error = opened ? 0 : errno;
    while (error == 0) {
        errno = 0;
        const dirent* const entry = readdir(opened.get());
        error = errno;
        if (!entry) break;
        const std::wstring name = ToWide(entry->d_name);
        if (name == L"." || name == L".." || !EndsIn(name, ending)) continue;
        if (name.find(L'\\') != std::wstring::npos)
            Fail(folder, Format(L"文件名“%s”含有反斜线,无法使用", name), problems);
        else if (!wanted || wanted(name))
            names.push_back(name);
    }
    if (error != 0) {
        names.clear(); // a part could be taken for all there is
        Fail(folder, L"文件夹无法读取", error, problems);
    }
    std::sort(names.begin(), names.end(), [](const std::wstring& a, const std::wstring& b) {
        const int order = CompareNoCase(a, b);
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

size_t LargestWholeFile()
{
    static const size_t largest = static_cast<size_t>(sysconf(_SC_PHYS_PAGES)) / 8 *
                                  static_cast<size_t>(sysconf(_SC_PAGESIZE));
    return largest;
}

bool ReadWholeFile(const std::wstring& path, std::string& bytes, Problems& problems)
{
    return ReadWholeFile(path, bytes, LargestWholeFile(), problems);
}

bool ReadWholeFile(const std::wstring& path, std::string& bytes, size_t limit, Problems& problems)
{
    static constexpr wchar_t kWhat[] = L"无法读取";
    if (IsNoPath(path)) return Fail(path, kWhat, EINVAL, problems);
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

bool WriteWholeFile(const std::wstring& path, std::string_view bytes, Problems& problems,
                    const std::wstring& like)
{
    static constexpr wchar_t kWhat[] = L"无法写入";
    if (IsNoPath(path)) return Fail(path, kWhat, EINVAL, problems);
    const std::string target = NativePath(path);
    const std::string folder = FolderOf(target);
    const std::string temporary = folder + '/' + TemporaryName();

    int error = WriteTemporary(temporary, target, NativePath(like), bytes);
    if (error == kReadOnly) return Fail(path, L"无法写入: 文件是只读的", problems);
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

void DeleteLeftTemporaries(const std::wstring& folder)
{
    Problems unseen; // they do no harm
    const auto now = std::filesystem::file_time_type::clock::now();
    for (const std::wstring& name : FindFiles(folder, ToWide(kTemporaryEnd), unseen)) {
        if (!IsTemporaryFile(name) || IsBeingWritten(ToUtf8(name))) continue;
        const std::string path = NativePath(folder) + '/' + ToUtf8(name);
        std::error_code error;
        const auto written = std::filesystem::last_write_time(path, error);
        if (!error && now - written > kLeftTime) unlink(path.c_str());
    }
}

bool CopyFile(const std::wstring& source, const std::wstring& target, Problems& problems)
{
    std::string bytes;
    return ReadWholeFile(source, bytes, problems) &&
           WriteWholeFile(target, bytes, problems, source);
}

bool MoveFile(const std::wstring& source, const std::wstring& target, Problems& problems)
{
    static constexpr wchar_t kWhat[] = L"无法移动";
    if (IsNoPath(source) || IsNoPath(target)) return Fail(source, kWhat, EINVAL, problems);
    const int error = MoveNative(NativePath(source), NativePath(target));
    if (error != 0) return Fail(source, kWhat, error, problems);
    return FlushFolderOf(target, kWhat, problems) && FlushFolderOf(source, kWhat, problems);
}

bool LinkFile(const std::wstring& source, const std::wstring& target)
{
    if (IsNoPath(source) || IsNoPath(target)) return false;
    const std::string native = NativePath(target);
    if (link(NativePath(source).c_str(), native.c_str()) != 0) return false;
    if (FlushNative(FolderOf(native)) == 0) return true;
    unlink(native.c_str());
    return false;
}

void DropFile(const std::wstring& path)
{
    if (!IsNoPath(path)) static_cast<void>(!unlink(NativePath(path).c_str()));
}

bool DeleteFile(const std::wstring& path, Problems& problems)
{
    static constexpr wchar_t kWhat[] = L"无法删除";
    if (IsNoPath(path)) return Fail(path, kWhat, EINVAL, problems);
    if (unlink(NativePath(path).c_str()) == 0) {
        return FlushFolderOf(path, kWhat, problems);
    }
    return errno == ENOENT ? false : Fail(path, kWhat, errno, problems);
}

void RemoveEmptyFolder(const std::wstring& path)
{
    if (!IsNoPath(path)) static_cast<void>(!rmdir(NativePath(path).c_str()));
}

bool CreateFolder(const std::wstring& path, Problems& problems, const std::wstring& like)
{
    static constexpr wchar_t kWhat[] = L"文件夹无法创建";
    if (IsNoPath(path)) return Fail(path, kWhat, EINVAL, problems);
    std::error_code error;
    const std::string native = NativePath(path);
    const bool isNew = std::filesystem::create_directories(native, error);
    struct stat model = {};
    if (isNew && !IsNoPath(like) && stat(NativePath(like).c_str(), &model) == 0)
        static_cast<void>(!chmod(native.c_str(), model.st_mode & 07777));
    if (!error && std::filesystem::is_directory(native, error))
        return !isNew || FlushFolder(path + L"/..", problems);
    return Fail(path, kWhat, error.value(), problems);
}

} // namespace designspec
