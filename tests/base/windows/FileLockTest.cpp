// Locks between programs. This program is run once more to be the other one.
#include "tests/base/FileLockTest.h"

#include <fstream>

#include "base/windows/Windows.h"
#include "tests/support/Process.h"

namespace {

constexpr wchar_t kLock[] = L"DESIGNSPEC_TEST_LOCK";

// Runs the test `Holder.Holds` of this program, which takes the lock and keeps it.
class Holder {
public:
    explicit Holder(const CString& path)
    {
        SetEnvironmentVariableW(kLock, path.c_str());
        wchar_t program[MAX_PATH];
        GetModuleFileNameW(nullptr, program, MAX_PATH);
        std::wstring line = L"\"" + std::wstring(program) + L"\" --gtest_filter=Holder.Holds";
        STARTUPINFOW start{};
        start.cb = sizeof start;
        EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                   nullptr, &start, &m_process));
        SetEnvironmentVariableW(kLock, nullptr);
    }
    ~Holder()
    {
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    void Kill()
    {
        EXPECT_TRUE(TerminateProcess(m_process.hProcess, 1));
        WaitForSingleObject(m_process.hProcess, INFINITE);
    }

private:
    PROCESS_INFORMATION m_process{};
};

} // namespace

TEST(Holder, Holds)
{
    wchar_t path[MAX_PATH];
    if (GetEnvironmentVariableW(kLock, path, MAX_PATH) == 0) return; // nobody's other program
    FileLock lock;
    Problems problems;
    ASSERT_TRUE(lock.Take(path, 0ms, {}, problems));
    std::this_thread::sleep_for(60s);
}

TEST_F(FileLockTest, GoesWithTheProgramThatHoldsIt)
{
    Holder holder(m_path);
    WaitForTheFile();
    FileLock lock;
    EXPECT_FALSE(Take(lock));
    EXPECT_NE(m_problems.Text().find(L"base_test (进程 "), std::wstring::npos)
        << ToUtf8(m_problems.Text());
    holder.Kill();
    EXPECT_TRUE(Take(lock, 5s));
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
