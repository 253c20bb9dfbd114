// A process that saves is killed at random moments; the file must hold one of the two contents
// that it writes in turn, whole.
#include <chrono>
#include <csignal>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

#include "base/Text.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/RandomSpecification.h"

using namespace designspec;

namespace {

constexpr int kKills = 150;

// Saves the two in turn until killed; tells the parent through the pipe when the first is there.
[[noreturn]] void SaveForEver(CDesignSpecifications& library, CDesignSpecification contents[2],
                              int pipe)
{
    for (int i = 0;; ++i) {
        if (!library.Save(&contents[i % 2])) _exit(1);
        if (i == 0 && write(pipe, "x", 1) != 1) _exit(1);
    }
}

} // namespace

class KilledProcess : public LibraryTest {};

TEST_F(KilledProcess, LeavesOneOfTheTwoContentsWhole)
{
    RandomSpecification random(2024);
    CDesignSpecification contents[2] = {Make(L"m", 1, kIdA), Make(L"m", 2, kIdA)};
    contents[0].CopyCriteria(random.Make());
    contents[1].CopyCriteria(random.Make());
    ASSERT_FALSE(contents[0] == contents[1]);
    Add(contents[0]);

    // A kill comes within the time that two saves take, on this machine and with this build.
    const auto begin = std::chrono::steady_clock::now();
    for (const int i : {1, 0})
        ASSERT_TRUE(Library().Save(&contents[i]));
    const auto twoSaves = std::chrono::duration_cast<std::chrono::microseconds>(
        std::chrono::steady_clock::now() - begin);
    RecordProperty("microseconds_of_two_saves", static_cast<int>(twoSaves.count()));
    std::mt19937 engine(1);
    std::uniform_int_distribution<useconds_t> moment(0, static_cast<useconds_t>(twoSaves.count()));
    int found[2] = {0, 0};
    int inTheMiddle = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) SaveForEver(Library(), contents, ends[1]);
        close(ends[1]);
        char byte = 0;
        ASSERT_EQ(read(ends[0], &byte, 1), 1);
        usleep(moment(engine));
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "the child ended by itself";
        close(ends[0]);

        m_trace.Clear();
        Reload();
        ASSERT_EQ(Library().Count(), 1) << ToUtf8(m_trace.Text());
        ASSERT_TRUE(m_trace.Lines().empty()) << ToUtf8(m_trace.Text());
        const bool isFirst = At(0) == contents[0];
        ASSERT_TRUE(isFirst || At(0) == contents[1]);
        ++found[isFirst ? 0 : 1];
        for (const auto& entry : std::filesystem::directory_iterator(m_project.Native("规范"))) {
            if (entry.path().extension() != ".tmp") continue;
            ++inTheMiddle;
            std::filesystem::remove(entry.path());
        }
    }
    RecordProperty("killed_between_write_and_rename", inTheMiddle);
    // The moments were random enough to mean something.
    EXPECT_GT(found[0], 0);
    EXPECT_GT(found[1], 0);
    EXPECT_GT(inTheMiddle, 0);
}
