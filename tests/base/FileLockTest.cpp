#include "tests/base/FileLockTest.h"

#include "base/Process.h"

namespace fs = std::filesystem;

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
