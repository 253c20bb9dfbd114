#include "base/FileLock.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <random>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "base/UserName.h"

namespace designspec {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kBeforeNotice{500};
constexpr std::chrono::milliseconds kLongestPause{20};

// Whom others are told to wait for: USER@HOST, the program and its process.
std::string OwnName()
{
    std::array<char, 256> host{};
    gethostname(host.data(), host.size() - 1);
    return ToUtf8(UserName()) + "@" + host.data() + " " + program_invocation_short_name +
           " (进程 " + std::to_string(getpid()) + ")";
}

std::wstring HolderOf(const std::string& path)
{
    std::array<char, 512> text{};
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    const ssize_t size = fd < 0 ? 0 : read(fd, text.data(), text.size());
    if (fd >= 0) close(fd);
    // Its holder may not have come to write it yet.
    return size > 0 ? ToWide(std::string_view(text.data(), static_cast<size_t>(size)))
                    : L"另一程序";
}

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
bool IsAt(const std::string& path, int fd)
{
    struct stat named = {};
    struct stat opened = {};
    return stat(path.c_str(), &named) == 0 && fstat(fd, &opened) == 0 &&
           named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
}

} // namespace

// Nothing that could throw stands behind the opening of the file.
FileLock::Attempt FileLock::Try(const std::string& name, int& error)
{
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
    if (error == 0 && !IsAt(m_path, fd)) {
        close(fd);
        return Attempt::Held; // its holder has just let go
    }
    // Whoever may change the folder may also take a lock that a killed program left.
    static_cast<void>(!fchmod(fd, 0666));
    // Who reads half of the name is told half of it: nothing depends on it.
    if (ftruncate(fd, 0) == 0) static_cast<void>(!pwrite(fd, name.data(), name.size(), 0));
    m_fd = fd;
    return Attempt::Taken;
}

bool FileLock::Take(const std::wstring& path, std::chrono::milliseconds patience,
                    const Notice& notice, Problems& problems)
{
    m_path = NativePath(path);
    const std::string name = OwnName();
    const Clock::time_point start = Clock::now();
    std::minstd_rand random(static_cast<unsigned>(getpid()) ^
                            static_cast<unsigned>(start.time_since_epoch().count()));
    bool told = false;
    std::chrono::milliseconds pause{1};
    for (;;) {
        int error = 0;
        const Attempt attempt = Try(name, error);
        if (attempt == Attempt::Taken) {
            if (error != 0)
                AddProblem(problems, Severity::Note, path, 0,
                           Format(L"此处不能加锁(%s),请勿同时修改", ErrorText(error)));
            return true;
        }
        const auto waited = Clock::now() - start;
        if (attempt == Attempt::Failed || waited >= patience) {
            AddProblem(problems, Severity::Error, path, 0,
                       attempt == Attempt::Failed
                           ? Format(L"无法加锁: %s", ErrorText(error))
                           : Format(L"正由 %s 修改,请稍后再试", HolderOf(m_path)));
            return false;
        }
        if (!told && notice && waited >= std::min(kBeforeNotice, patience)) {
            notice(HolderOf(m_path));
            told = true;
        }
        // Each waits a little differently, so that none comes too late every time.
        std::this_thread::sleep_for(std::chrono::microseconds(
            500 + random() % static_cast<unsigned>(std::chrono::microseconds(pause).count())));
        pause = std::min(pause * 2, kLongestPause);
    }
}

void FileLock::Release()
{
    if (m_fd < 0) return;
    // The folder may have gone and come anew, with a lock of somebody else's.
    if (IsAt(m_path, m_fd)) unlink(m_path.c_str());
    close(m_fd);
    m_fd = -1;
}

} // namespace designspec
