#include "base/FileLock.h"

#include <csignal>
#include <fstream>
#include <thread>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/Text.h"
#include "tests/support/ProblemList.h"
#include "tests/support/TemporaryFolder.h"

using namespace designspec;
using namespace std::chrono_literals;

namespace fs = std::filesystem;

namespace {

class FileLockTest : public testing::Test {
protected:
    bool Take(FileLock& lock, std::chrono::milliseconds patience = 0ms)
    {
        const auto notice = [&](const std::wstring& holder) { m_notices.push_back(holder); };
        return lock.Take(m_path, patience, notice, m_problems);
    }

    // Runs `work` in another process.
    template <class Work> static pid_t Fork(Work work)
    {
        const pid_t process = fork();
        if (process == 0) {
            work();
            _exit(0);
        }
        return process;
    }

    void WaitForTheFile() const
    {
        while (!fs::exists(m_native) || fs::file_size(m_native) == 0)
            std::this_thread::sleep_for(1ms);
    }

    TemporaryFolder m_folder;
    CString m_path = m_folder.Path(L".lock");
    fs::path m_native = m_folder.Native(".lock");
    ProblemList m_problems;
    std::vector<std::wstring> m_notices;
};

} // namespace

TEST_F(FileLockTest, LeavesNothingBehind)
{
    {
        FileLock lock;
        ASSERT_TRUE(Take(lock));
        EXPECT_TRUE(lock.IsTaken());
        EXPECT_TRUE(fs::exists(m_native));
    }
    EXPECT_FALSE(fs::exists(m_native));
    EXPECT_EQ(m_problems.Text(), L"");
    EXPECT_TRUE(m_notices.empty());
}

TEST_F(FileLockTest, KeepsAnotherOutAndNamesItsHolder)
{
    FileLock first;
    ASSERT_TRUE(Take(first));
    FileLock second;
    EXPECT_FALSE(Take(second, 20ms));
    EXPECT_FALSE(second.IsTaken());
    const std::wstring process = L"(进程 " + std::to_wstring(getpid()) + L")";
    ASSERT_EQ(m_problems.Lines().size(), 1U);
    const std::wstring text = m_problems.Lines()[0].text;
    EXPECT_TRUE(text.starts_with(L"正由 ")) << ToUtf8(text);
    EXPECT_NE(text.find(L"base_test " + process), std::wstring::npos) << ToUtf8(text);
    EXPECT_TRUE(text.ends_with(L" 修改,请稍后再试")) << ToUtf8(text);
    ASSERT_EQ(m_notices.size(), 0U); // not waited long enough to tell
    first.Release();
    EXPECT_TRUE(Take(second));
}

TEST_F(FileLockTest, TellsOnceThatItWaits)
{
    FileLock first;
    ASSERT_TRUE(Take(first));
    FileLock second;
    EXPECT_FALSE(Take(second, 700ms));
    ASSERT_EQ(m_notices.size(), 1U);
    EXPECT_NE(m_notices[0].find(L"base_test"), std::wstring::npos);
}

TEST_F(FileLockTest, IsWaitedFor)
{
    const pid_t holder = Fork([&] {
        FileLock lock;
        if (Take(lock)) std::this_thread::sleep_for(100ms);
    });
    WaitForTheFile();
    FileLock lock;
    EXPECT_TRUE(Take(lock, 30s));
    EXPECT_TRUE(fs::exists(m_native));
    EXPECT_EQ(waitpid(holder, nullptr, 0), holder);
    EXPECT_TRUE(fs::exists(m_native)); // ours, not the one that the other has removed
}

TEST_F(FileLockTest, GoesWithItsHolder)
{
    const pid_t holder = Fork([&] {
        FileLock lock;
        if (Take(lock)) pause();
    });
    WaitForTheFile();
    FileLock lock;
    EXPECT_FALSE(Take(lock));
    ASSERT_EQ(kill(holder, SIGKILL), 0);
    ASSERT_EQ(waitpid(holder, nullptr, 0), holder);
    EXPECT_TRUE(fs::exists(m_native));
    EXPECT_TRUE(Take(lock));
}

TEST_F(FileLockTest, LetsOneInAtATime)
{
    const fs::path counter = m_folder.Native("counter");
    std::ofstream(counter) << 0;
    std::vector<pid_t> processes;
    for (int i = 0; i < 6; ++i) {
        processes.push_back(Fork([&] {
            for (int k = 0; k < 50; ++k) {
                FileLock lock;
                if (!Take(lock, 60s)) _exit(1);
                int count = 0;
                std::ifstream(counter) >> count;
                std::ofstream(counter) << count + 1;
            }
        }));
    }
    for (const pid_t process : processes) {
        int status = 0;
        ASSERT_EQ(waitpid(process, &status, 0), process);
        EXPECT_EQ(status, 0);
    }
    int count = 0;
    std::ifstream(counter) >> count;
    EXPECT_EQ(count, 300);
    EXPECT_FALSE(fs::exists(m_native));
}

TEST_F(FileLockTest, LeavesALockThatHasTakenItsPlace)
{
    FileLock first;
    ASSERT_TRUE(Take(first));
    fs::remove(m_native);
    FileLock second;
    ASSERT_TRUE(Take(second));
    first.Release();
    EXPECT_TRUE(fs::exists(m_native));
    FileLock third;
    EXPECT_FALSE(Take(third));
}

TEST_F(FileLockTest, NeedsItsFolder)
{
    FileLock lock;
    EXPECT_FALSE(lock.Take(m_folder.Path(L"none/.lock"), 0ms, {}, m_problems));
    ASSERT_EQ(m_problems.Lines().size(), 1U);
    EXPECT_EQ(m_problems.Lines()[0].text, L"无法加锁: 不存在");
}

TEST_F(FileLockTest, FollowsNoLink)
{
    fs::create_symlink(m_folder.Native("elsewhere"), m_native);
    FileLock lock;
    EXPECT_FALSE(Take(lock));
    EXPECT_FALSE(fs::exists(m_folder.Native("elsewhere")));
}
