// Many commands at once on one project, each a process of its own.
#include <map>
#include <thread>

#include "base/LockFile.h"
#include "tests/cli/CommandTest.h"
#include "tests/support/OtherProcess.h"

using namespace designspec;

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

constexpr int kWriters = 10;

class Writers : public CommandTest {
protected:
    // Runs `work(k)` for k of 0 … count-1 at the same time.
    template <class Work> static void AtOnce(int count, Work work)
    {
        std::vector<std::thread> threads;
        for (int k = 0; k < count; ++k)
            threads.emplace_back(work, k);
        for (std::thread& thread : threads)
            thread.join();
    }

    // Holds the lock of the project as another program would, until it is killed.
    std::unique_ptr<OtherProcess> Holder() const
    {
        auto holder = std::make_unique<OtherProcess>("holds", ToUtf8(m_folder.Path(L"规范/.lock")));
        EXPECT_EQ(holder->Line(), "holding");
        return holder;
    }

    fs::path m_lock = m_folder.Native("规范/.lock");
};

void Hold(const std::string& path)
{
    LockFile lock;
    FileSystem::Error error = 0;
    const std::string name = "王工@设计二所 roadhost (进程 4711)";
    if (lock.Try(ToWide(path), name, error) != LockFile::Attempt::Taken) return;
    OtherProcess::Tell("holding");
    for (;;)
        std::this_thread::sleep_for(1h);
}

const OtherProcess::Part kHolding("holds", Hold);

} // namespace

// Each sets a hundred values of a table of its own.
TEST_F(Writers, OfOneSpecificationLoseNoValue)
{
    constexpr int kValues = 100;
    constexpr int kLowest = 10; // km/h
    const std::pair<const char*, const char*> tables[] = {
        {"CircularCurveRad", "noSuperelevationMinRad"},
        {"CircularCurveRad", "SuperelevationRecommendRad"},
        {"CircularCurveRad", "SuperelevationMinRad"},
        {"CurveMinLen", "HorizontalCurveMinLen"},
        {"CurveMinLen", "CircularCurveMinLen"},
        {"TransitionCurveMinLen", "MinLen"},
        {"TransitionCurveMinLen", "NoTCByMinRad"},
        {"LonGradMinLen", "MinLens"},
        {"VerticalCurveMinRadAndLen", "ConvexGeneralMinRad"},
        {"VerticalCurveMinRadAndLen", "ConvexLimitMinRad"}};
    const auto value = [](int writer, int k) { return 1 + writer * kValues + k; };
    New("a");
    AtOnce(kWriters, [&](int writer) {
        const auto& [criterion, field] = tables[writer];
        for (int k = 0; k < kValues; ++k) {
            const ProcessResult result =
                Call({"set", std::string(criterion) + "." + field, std::to_string(value(writer, k)),
                      "--speed", std::to_string(kLowest + k), "--force", "--wait", "300"});
            ASSERT_EQ(result.status, 0) << result.err;
        }
    });
    const Json shown = DoneJson({"show"});
    for (int writer = 0; writer < kWriters; ++writer) {
        const auto& [criterion, field] = tables[writer];
        std::map<int, int> values;
        for (const Json& entry : shown["criteria"][criterion][field])
            values[entry["speed"]] = entry["value"];
        for (int k = 0; k < kValues; ++k)
            EXPECT_EQ(values[kLowest + k], value(writer, k)) << field;
    }
    EXPECT_FALSE(fs::exists(m_lock));
}

TEST_F(Writers, OfOneNewNameMakeOne)
{
    std::atomic<int> made = 0;
    AtOnce(kWriters, [&](int) {
        const ProcessResult result = Call({"new", "同名", "--wait", "300"});
        made += result.status == 0;
        EXPECT_TRUE(result.status == 0 || result.err.find("和已有样式重名!") != std::string::npos)
            << result.err;
    });
    EXPECT_EQ(made, 1);
    EXPECT_EQ(Names(), std::vector<std::string>{"同名"});
}

// One specification is renamed, another one removed and made anew; the third is nobody's, and is
// asked for all the time.
TEST_F(Writers, DoNotDisturbAReader)
{
    for (const char* name : {"静", "动", "来去"})
        New(name);
    std::atomic<bool> over = false;
    AtOnce(4, [&](int k) {
        for (int i = 0; k < 2 && i < 40; ++i) {
            if (k == 0) {
                EXPECT_EQ(Call({"rename", i % 2 ? "移" : "动", i % 2 ? "动" : "移"}).status, 0);
            } else {
                EXPECT_EQ(Call({"remove", "来去"}).status, 0);
                EXPECT_EQ(Call({"new", "来去"}).status, 0);
            }
            over = i == 39;
        }
        while (k >= 2 && !over) {
            const ProcessResult answer = Call({"query", "CircularCurveRad.SuperelevationMinRad",
                                               "--speed", "80", "--spec", "静"});
            EXPECT_EQ(answer.status, 0) << answer.err;
            EXPECT_EQ(answer.err, "");
        }
    });
}

TEST_F(Writers, AreToldWhomTheyWaitFor)
{
    New("a");
    const auto holder = Holder();
    const ProcessResult result = Call({"default", "a", "--wait", "1"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(Lines(result.err)[0],
              "designspec: 项目正由 王工@设计二所 roadhost (进程 4711) 修改,请稍候");
    EXPECT_THAT(result.err, HasSubstr("正由 王工@设计二所 roadhost (进程 4711) 修改,请稍后再试"));
    EXPECT_THAT(result.err, HasSubstr("未作任何修改"));
    EXPECT_EQ(Call({"show", "--spec", "a"}).status, 0); // reading waits for nobody
    EXPECT_TRUE(holder->Kill());
    EXPECT_TRUE(fs::exists(m_lock));
    Done({"default", "a", "--wait", "0"});
    EXPECT_FALSE(fs::exists(m_lock));
}

TEST_F(Writers, GoOnWhenTheOtherIsKilled)
{
    New("a");
    const auto holder = Holder();
    std::thread killer([&] {
        std::this_thread::sleep_for(200ms);
        EXPECT_TRUE(holder->Kill());
    });
    Done({"default", "a"});
    killer.join();
}

TEST_F(Writers, WaitForASensibleTime)
{
    New("a");
    Fails(2, "--wait “-1”不在 0 到 86400 秒之间", {"default", "a", "--wait", "-1"});
    Fails(2, "--wait “x”不是整数", {"default", "a", "--wait", "x"});
}
