// A process that saves is killed at random moments; the file must hold one of the two contents
// that it writes in turn, whole.
#include <chrono>
#include <random>
#include <thread>

#include "base/Text.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/OtherProcess.h"
#include "tests/support/RandomSpecification.h"

using namespace designspec;

namespace {

constexpr int kKills = 150;

class KilledProcess : public LibraryTest {
public:
    // Saves the two in turn until killed; tells when the first is there.
    static void SaveForEver(const std::string& project)
    {
        VMRDPub::SetCurPrjPath(ToWide(project).c_str());
        Library().Update();
        auto contents = Contents();
        for (size_t i = 0; Library().Save(&contents[i % 2]); ++i)
            if (i == 0) OtherProcess::Tell("saved");
    }

protected:
    static std::array<CDesignSpecification, 2> Contents()
    {
        RandomSpecification random(2024);
        std::array contents{Make(L"m", 1, kIdA), Make(L"m", 2, kIdA)};
        for (CDesignSpecification& one : contents)
            one.CopyCriteria(random.Make());
        return contents;
    }
};

const OtherProcess::Part kSaving("saves for ever", KilledProcess::SaveForEver);

} // namespace

TEST_F(KilledProcess, LeavesOneOfTheTwoContentsWhole)
{
    auto contents = Contents();
    ASSERT_FALSE(contents[0] == contents[1]);
    Add(contents[0]);

    // A kill comes within the time that two saves take, on this machine and with this build.
    const auto begin = std::chrono::steady_clock::now();
    for (const size_t i : {size_t{1}, size_t{0}})
        ASSERT_TRUE(Library().Save(&contents[i])) << ToUtf8(m_trace.Text());
    const auto twoSaves = std::chrono::duration_cast<std::chrono::microseconds>(
        std::chrono::steady_clock::now() - begin);
    RecordProperty("microseconds_of_two_saves", static_cast<int>(twoSaves.count()));
    std::mt19937 engine(1);
    std::uniform_int_distribution<long> moment(0, static_cast<long>(twoSaves.count()));
    int found[2] = {0, 0};
    int inTheMiddle = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        OtherProcess saving("saves for ever", ToUtf8(m_project.Path()));
        ASSERT_EQ(saving.Line(), "saved");
        std::this_thread::sleep_for(std::chrono::microseconds(moment(engine)));
        ASSERT_TRUE(saving.Kill()) << "it ended by itself";

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
