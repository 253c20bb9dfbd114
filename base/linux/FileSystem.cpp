#include "base/FileSystem.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/File.h"
#include "base/TemporaryName.h"
#include "base/Text.h"
#include "base/linux/FileAccess.h"

namespace designspec::FileSystem {

namespace {

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

std::string FolderOfNative(const std::string& path)
{
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

// A link that leads to `leads` from the folder of `source` is made at `target`, and the old one
// goes.
int MoveLink(const std::string& source, const std::string& leads, const std::string& target)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path from = fs::canonical(FolderOfNative(source), error);
    if (error) return error.value();
    const fs::path to = fs::canonical(FolderOfNative(target), error);
    if (error) return error.value();
    const std::string there = (from / leads).lexically_normal().lexically_relative(to).string();
    const std::string temporary = FolderOfNative(target) + '/' + ToUtf8(TemporaryName());
    if (symlink(there.c_str(), temporary.c_str()) != 0) return errno;
    if (rename(temporary.c_str(), target.c_str()) != 0) {
        const int cause = errno;
        unlink(temporary.c_str());
        return cause;
    }
    return unlink(source.c_str()) == 0 ? 0 : errno;
}

Input::Kind KindOf(mode_t mode)
{
    if (S_ISREG(mode)) return Input::Kind::File;
    return S_ISDIR(mode) ? Input::Kind::Folder : Input::Kind::Other;
}

} // namespace

const Error kInvalidName = EINVAL;
const Error kIsFolder = EISDIR;

std::wstring TextOf(Error error)
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

bool IsMissing(Error error)
{
    return error == ENOENT || error == ENOTDIR;
}

// Names may hold backslashes, and then no path leads to them.
bool IsPath(std::wstring_view path)
{
    return path.find(L'\\') == std::wstring_view::npos;
}

bool IsNameCharacter(wchar_t c)
{
    return c != L'/' && c != L'\0';
}

std::wstring FolderOf(const std::wstring& path)
{
    return ToWide(FolderOfNative(NativePath(path)));
}

Error Look(const std::wstring& path)
{
    struct stat status = {};
    return lstat(NativePath(path).c_str(), &status) == 0 ? 0 : errno;
}

Error Identify(const std::wstring& path, Identity& identity)
{
    struct stat status = {};
    if (stat(NativePath(path).c_str(), &status) != 0) return errno;
    identity = {status.st_dev, status.st_ino};
    return 0;
}

bool IsFolder(const std::wstring& path)
{
    struct stat status = {};
    return stat(NativePath(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

Error List(const std::wstring& folder, const std::function<void(const std::wstring&)>& take)
{
    // The standard library's way through a folder ends the program where memory ends.
    const std::unique_ptr<DIR, int (*)(DIR*)> opened(opendir(NativePath(folder).c_str()), closedir);
    if (!opened) return errno;
    for (;;) {
        errno = 0;
        const dirent* const entry = readdir(opened.get());
        if (!entry) return errno;
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") take(ToWide(name));
    }
}

std::optional<std::chrono::seconds> Age(const std::wstring& path)
{
    std::error_code error;
    const auto now = std::filesystem::file_time_type::clock::now();
    const auto written = std::filesystem::last_write_time(NativePath(path), error);
    if (error) return std::nullopt;
    return std::chrono::duration_cast<std::chrono::seconds>(now - written);
}

size_t Memory()
{
    return static_cast<size_t>(sysconf(_SC_PHYS_PAGES)) *
           static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

Input::~Input()
{
    if (m_file >= 0) close(static_cast<int>(m_file));
}

Error Input::Open(const std::wstring& path)
{
    // Without O_NONBLOCK, a pipe of that name would hold the caller until somebody writes to it.
    const int file = open(NativePath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) return errno;
    m_file = file;
    struct stat status = {};
    if (fstat(file, &status) != 0) return errno;
    m_kind = KindOf(status.st_mode);
    m_size = static_cast<std::uint64_t>(status.st_size);
    return 0;
}

Error Input::Read(char* buffer, size_t room, size_t& count)
{
    ssize_t got = 0;
    do
        got = read(static_cast<int>(m_file), buffer, room);
    while (got < 0 && errno == EINTR);
    if (got < 0) return errno;
    count = static_cast<size_t>(got);
    return 0;
}

Error WriteNew(const std::wstring& path, const std::wstring& target, const std::wstring& like,
               std::string_view bytes)
{
    Model model;
    if (const int error = FindModel(NativePath(target), NativePath(like), model)) return error;
    // Nobody reads it before it has the access that it should have.
    const mode_t mode = model.path.empty() ? 0666 : 0600;
    Descriptor file(open(NativePath(path).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!file.IsOpen()) return errno;
    if (const int error = GiveAccess(model, file.Get())) return error;
    if (!WriteAll(file.Get(), bytes) || fsync(file.Get()) != 0) return errno;
    return file.Close() ? 0 : errno;
}

Error PutInPlace(const std::wstring& path, const std::wstring& target)
{
    return rename(NativePath(path).c_str(), NativePath(target).c_str()) == 0 ? 0 : errno;
}

// Some file systems cannot flush a folder (EINVAL), some folders may be written but not opened
// (EACCES): nothing more can be done there.
Error FlushFolder(const std::wstring& folder)
{
    const Descriptor opened(open(NativePath(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.IsOpen()) return errno == EACCES ? 0 : errno;
    return fsync(opened.Get()) == 0 || errno == EINVAL ? 0 : errno;
}

// A relative link would lead elsewhere from another folder.
Error Move(const std::wstring& source, const std::wstring& target)
{
    const std::string from = NativePath(source);
    const std::string to = NativePath(target);
    struct stat status = {};
    if (lstat(from.c_str(), &status) != 0) return errno;
    if (S_ISLNK(status.st_mode)) {
        std::error_code error;
        const std::filesystem::path leads = std::filesystem::read_symlink(from, error);
        if (error) return error.value();
        if (leads.is_relative() && FolderOfNative(from) != FolderOfNative(to))
            return MoveLink(from, leads.string(), to);
    }
    return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

Error Link(const std::wstring& source, const std::wstring& target)
{
    return link(NativePath(source).c_str(), NativePath(target).c_str()) == 0 ? 0 : errno;
}

Error Remove(const std::wstring& path)
{
    return unlink(NativePath(path).c_str()) == 0 ? 0 : errno;
}

Error RemoveFolder(const std::wstring& path)
{
    return rmdir(NativePath(path).c_str()) == 0 ? 0 : errno;
}

Error MakeFolder(const std::wstring& path, const std::wstring& like, bool& isNew)
{
    std::error_code error;
    const std::string native = NativePath(path);
    isNew = std::filesystem::create_directories(native, error);
    struct stat model = {};
    if (isNew && !like.empty() && stat(NativePath(like).c_str(), &model) == 0)
        static_cast<void>(!chmod(native.c_str(), model.st_mode & 07777));
    if (error) return error.value();
    return std::filesystem::is_directory(native, error) ? 0 : ENOTDIR;
}

} // namespace designspec::FileSystem
