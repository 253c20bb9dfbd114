// Locks between processes.
#include "tests/base/FileLockTest.h"

#include <csignal>
#include <fstream>

#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

// Runs `work` in another process.
template <class Work> pid_t Fork(Work work)
{
    const pid_t process = fork();
    if (process == 0) {
        work();
        _exit(0);
    }
    return process;
}

} // namespace

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

TEST_F(FileLockTest, FollowsNoLink)
{
    fs::create_symlink(m_folder.Native("elsewhere"), m_native);
    FileLock lock;
    EXPECT_FALSE(Take(lock));
    EXPECT_FALSE(fs::exists(m_folder.Native("elsewhere")));
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
