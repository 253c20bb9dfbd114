// Locks between programs, by LockFileEx.
#include "tests/base/FileLockTest.h"

#include <fstream>

#include "tests/support/OtherProcess.h"

namespace {

void Hold(const std::string& path)
{
    FileLock lock;
    Problems problems;
    if (!lock.Take(ToWide(path), 0ms, {}, problems)) return;
    OtherProcess::Tell("holding");
    std::this_thread::sleep_for(60s);
}

// Takes the lock eighty times, and counts each time.
void Count(const std::string& path)
{
    const std::filesystem::path counter(ToWide(path + "-count"));
    for (int i = 0; i < 80; ++i) {
        FileLock lock;
        Problems problems;
        if (!lock.Take(ToWide(path), 60s, {}, problems)) return;
        int count = 0;
        std::ifstream(counter) >> count;
        std::ofstream(counter) << count + 1;
    }
    OtherProcess::Tell("done");
}

const OtherProcess::Part kHolding("holds a lock", Hold);
const OtherProcess::Part kCounting("counts", Count);

} // namespace

TEST_F(FileLockTest, GoesWithTheProgramThatHoldsIt)
{
    OtherProcess holder("holds a lock", ToUtf8(m_path));
    ASSERT_EQ(holder.Line(), "holding");
    FileLock lock;
    EXPECT_FALSE(Take(lock));
    EXPECT_NE(m_problems.Text().find(L"base_test (进程 "), std::wstring::npos)
        << ToUtf8(m_problems.Text());
    EXPECT_TRUE(holder.Kill());
    EXPECT_TRUE(Take(lock, 5s));
}

TEST_F(FileLockTest, LetsOneProgramInAtATime)
{
    OtherProcess one("counts", ToUtf8(m_path));
    OtherProcess other("counts", ToUtf8(m_path));
    EXPECT_EQ(one.Line(), "done");
    EXPECT_EQ(other.Line(), "done");
    int count = 0;
    std::ifstream(m_folder.Native(".lock-count")) >> count;
    EXPECT_EQ(count, 160);
    EXPECT_FALSE(std::filesystem::exists(m_native));
}

TEST_F(FileLockTest, LetsOneThreadInAtATime)
{
    const auto counter = m_folder.Native("counter");
    std::ofstream(counter) << 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([&] {
                for (int k = 0; k < 20; ++k) {
                    FileLock lock;
                    Problems problems;
                    ASSERT_TRUE(lock.Take(m_path, 60s, {}, problems))
                        << ToUtf8(problems.back().Text());
                    int count = 0;
                    std::ifstream(counter) >> count;
                    std::ofstream(counter) << count + 1;
                }
            });
    }
    int count = 0;
    std::ifstream(counter) >> count;
    EXPECT_EQ(count, 80);
    EXPECT_FALSE(std::filesystem::exists(m_native));
}
