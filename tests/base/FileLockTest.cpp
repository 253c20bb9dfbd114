#include "tests/base/FileLockTest.h"

#include <array>
#include <fstream>
#include <memory>

#include "base/Process.h"
#include "tests/support/OtherProcess.h"

namespace fs = std::filesystem;

namespace {

void HoldFor(const std::string& path, std::chrono::milliseconds time)
{
    FileLock lock;
    Problems problems;
    if (!lock.Take(ToWide(path), 0ms, {}, problems)) return;
    OtherProcess::Tell("holding");
    std::this_thread::sleep_for(time);
}
void Hold(const std::string& path)
{
    HoldFor(path, 1h);
}
void HoldForAMoment(const std::string& path)
{
    HoldFor(path, 100ms);
}

// Takes the lock forty times, and counts each time.
void Count(const std::string& path)
{
    const fs::path counter(ToWide(path + "-count"));
    for (int i = 0; i < 40; ++i) {
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
const OtherProcess::Part kHoldingForAMoment("holds a lock for a moment", HoldForAMoment);
const OtherProcess::Part kCounting("counts", Count);

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
    const std::wstring process = L"(进程 " + std::to_wstring(Process::Id()) + L")";
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

TEST_F(FileLockTest, NeedsItsFolder)
{
    FileLock lock;
    EXPECT_FALSE(lock.Take(m_folder.Path(L"none/.lock"), 0ms, {}, m_problems));
    ASSERT_EQ(m_problems.Lines().size(), 1U);
    EXPECT_EQ(m_problems.Lines()[0].text, L"无法加锁: 不存在");
}

TEST_F(FileLockTest, IsWaitedFor)
{
    OtherProcess holder("holds a lock for a moment", ToUtf8(m_path));
    ASSERT_EQ(holder.Line(), "holding");
    FileLock lock;
    EXPECT_TRUE(Take(lock, 30s));
    EXPECT_FALSE(holder.Line()) << "it has ended";
    EXPECT_TRUE(fs::exists(m_native)) << "ours, not the one that the other has removed";
}

TEST_F(FileLockTest, GoesWithTheProgramThatHoldsIt)
{
    OtherProcess holder("holds a lock", ToUtf8(m_path));
    ASSERT_EQ(holder.Line(), "holding");
    FileLock lock;
    EXPECT_FALSE(Take(lock));
    EXPECT_NE(m_problems.Text().find(L"base_test (进程 "), std::wstring::npos)
        << ToUtf8(m_problems.Text());
    EXPECT_TRUE(holder.Kill());
    EXPECT_TRUE(fs::exists(m_native));
    EXPECT_TRUE(Take(lock, 5s)); // Windows lets go of it a little later
}

TEST_F(FileLockTest, LetsOneProgramInAtATime)
{
    std::array<std::unique_ptr<OtherProcess>, 4> programs;
    for (auto& program : programs)
        program = std::make_unique<OtherProcess>("counts", ToUtf8(m_path));
    for (auto& program : programs)
        EXPECT_EQ(program->Line(), "done");
    int count = 0;
    std::ifstream(m_folder.Native(".lock-count")) >> count;
    EXPECT_EQ(count, 160);
    EXPECT_FALSE(fs::exists(m_native));
}
