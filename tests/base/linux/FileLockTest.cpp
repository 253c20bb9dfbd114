// Locks by fcntl.
#include "tests/base/FileLockTest.h"

namespace fs = std::filesystem;

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
