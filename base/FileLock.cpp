#include "base/FileLock.h"

#include <algorithm>
#include <random>
#include <thread>

#include "base/Format.h"
#include "base/Process.h"
#include "base/Text.h"
#include "base/UserName.h"

namespace designspec {

namespace {

using Attempt = LockFile::Attempt;
using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kBeforeNotice{500};
constexpr std::chrono::milliseconds kLongestPause{20};

// Whom others are told to wait for: USER@HOST, the program and its process.
std::string OwnName()
{
    return ToUtf8(UserName() + L'@' + Process::HostName() + L' ' + Process::ProgramName() +
                  L" (进程 " + std::to_wstring(Process::Id()) + L')');
}

// Its holder may not have come to write it yet.
std::wstring HolderOf(const std::wstring& path)
{
    const std::string holder = LockFile::HolderOf(path);
    return holder.empty() ? L"另一程序" : ToWide(holder);
}

} // namespace

bool FileLock::Take(const std::wstring& path, std::chrono::milliseconds patience,
                    const Notice& notice, Problems& problems)
{
    const std::string name = OwnName();
    const Clock::time_point start = Clock::now();
    std::minstd_rand random(static_cast<unsigned>(Process::Id()) ^
                            static_cast<unsigned>(start.time_since_epoch().count()));
    bool told = false;
    std::chrono::milliseconds pause{1};
    for (;;) {
        FileSystem::Error error = 0;
        const Attempt attempt = m_file.Try(path, name, error);
        if (attempt == Attempt::Taken) {
            if (error != 0)
                AddProblem(problems, Severity::Note, path, 0,
                           Format(L"此处不能加锁(%s),请勿同时修改", FileSystem::TextOf(error)));
            return true;
        }
        const auto waited = Clock::now() - start;
        if (attempt == Attempt::Failed || waited >= patience) {
            AddProblem(problems, Severity::Error, path, 0,
                       attempt == Attempt::Failed
                           ? Format(L"无法加锁: %s", FileSystem::TextOf(error))
                           : Format(L"正由 %s 修改,请稍后再试", HolderOf(path)));
            return false;
        }
        if (!told && notice && waited >= std::min(kBeforeNotice, patience)) {
            notice(HolderOf(path));
            told = true;
        }
        // Each waits a little differently, so that none comes too late every time.
        std::this_thread::sleep_for(std::chrono::microseconds(
            500 + random() % static_cast<unsigned>(std::chrono::microseconds(pause).count())));
        pause = std::min(pause * 2, kLongestPause);
    }
}

} // namespace designspec
