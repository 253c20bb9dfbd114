// Locks by LockFileEx.
#include "tests/base/FileLockTest.h"

#include <fstream>

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
