#include "base/LockFile.h"

#include <array>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/File.h"

namespace designspec {

namespace {

// 0, or the error number. Locks of an open file, not of a process: two folders in one process keep
// each other out as well.
int Lock(int fd)
{
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return fcntl(fd, F_OFD_SETLK, &lock) == 0 ? 0 : errno;
}

bool KnowsNoLocks(int error)
{
    return error == ENOLCK || error == EOPNOTSUPP || error == ENOSYS || error == EINVAL;
}

// The holder removes the file before it lets go of it: a lock of a file that is no longer at the
// path keeps nobody out.
bool IsAt(const char* path, int fd)
{
    struct stat named = {};
    struct stat opened = {};
    return stat(path, &named) == 0 && fstat(fd, &opened) == 0 && named.st_dev == opened.st_dev &&
           named.st_ino == opened.st_ino;
}

} // namespace

// Nothing that could throw stands behind the opening of the file.
LockFile::Attempt LockFile::Try(const std::wstring& path, const std::string& name,
                                FileSystem::Error& error)
{
    m_path = NativePath(path);
    const int fd =
        open(m_path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
    if (fd < 0) {
        error = errno;
        return Attempt::Failed;
    }
    error = Lock(fd);
    if (error != 0 && !KnowsNoLocks(error)) {
        close(fd);
        return error == EAGAIN || error == EACCES ? Attempt::Held : Attempt::Failed;
    }
    if (error == 0 && !IsAt(m_path.c_str(), fd)) {
        close(fd);
        return Attempt::Held; // its holder has just let go
    }
    // Whoever may change the folder may also take a lock that a killed program left.
    static_cast<void>(!fchmod(fd, 0666));
    // Who reads half of the name is told half of it: nothing depends on it.
    if (ftruncate(fd, 0) == 0) static_cast<void>(!pwrite(fd, name.data(), name.size(), 0));
    m_file = fd;
    return Attempt::Taken;
}

void LockFile::Release()
{
    if (m_file < 0) return;
    const int fd = static_cast<int>(std::exchange(m_file, -1));
    // The folder may have gone and come anew, with a lock of somebody else's.
    if (IsAt(m_path.c_str(), fd)) unlink(m_path.c_str());
    close(fd);
}

std::string LockFile::HolderOf(const std::wstring& path)
{
    std::array<char, 512> text{};
    const int fd = open(NativePath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    const ssize_t size = fd < 0 ? 0 : read(fd, text.data(), text.size());
    if (fd >= 0) close(fd);
    return size > 0 ? std::string(text.data(), static_cast<size_t>(size)) : std::string();
}

} // namespace designspec
