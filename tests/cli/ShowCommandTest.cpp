#include <fstream>

#include "TreePaths.h"
#include "base/Text.h"
#include "cli/TextTable.h"
#include "model/Criteria.h"
#include "tests/cli/CommandTest.h"

using namespace designspec;

namespace {

class ShowCommand : public CommandTest {
protected:
    void SetUp() override { New("城市"); }

    // For each line of a table, the columns at which its cells end. A table's lines stand two
    // blanks in, and two blanks stand between cells.
    static std::vector<int> CellEnds(const std::string& line)
    {
        std::vector<int> ends;
        const CString text = ToWide(line);
        for (size_t i = 2; i < text.size(); ++i)
            if (text[i] != L' ' && (i + 1 == text.size() || text.substr(i + 1, 2) == L"  "))
                ends.push_back(DisplayWidth(text.substr(0, i + 1)));
        return ends;
    }
};

TEST_F(ShowCommand, BeginsWithNameAndIdentity)
{
    EXPECT_EQ(Lines(Done({"show"})).at(0), "城市  " + IdOf("城市"));
}

// With a value in each table, so that each is shown.
TEST_F(ShowCommand, ShowsEveryCriterionInFull)
{
    for (const char* type : {"FreeWay", "HighwayClass1", "HighwayClass2", "HighwayClass3",
                             "HighwayClass4", "OtherRoad"})
        Done({"set", std::string("MaxResultantGrad.") + type, "--speed", "80", "9.5"});
    std::ifstream expected(SOURCE_DIR "/tests/cli/Show.txt");
    const std::string shown = Done({"show"});
    EXPECT_EQ(shown.substr(shown.find('\n') + 1),
              std::string(std::istreambuf_iterator<char>(expected), {}));
}

TEST_F(ShowCommand, SaysWhatAValueOfZeroMeans)
{
    for (const char* field : {"MaxLen", "MinLenInOneDir", "MinLenReverseCurve"})
        Done({"set", std::string("BeelineLen.") + field, "0"});
    EXPECT_THAT(Done({"show", "BeelineLen"}),
                HasSubstr("  最大直线长度(倍设计速度(km/h)): 0 (不限)\n"
                          "  同向曲线间最小直线长度(倍设计速度(km/h)): 0 (不限)\n"
                          "  反向曲线间最小直线长度(倍设计速度(km/h)): 0 (不限)\n"));
    EXPECT_THAT(Done({"show", "MaxSuperElev"}), HasSubstr("积雪冰冻地区最大超高(%): 0 (未设)"));
}

TEST_F(ShowCommand, ShowsOneCriterion)
{
    const std::string text = Done({"show", "circularcurverad"});
    EXPECT_THAT(text, HasSubstr("CircularCurveRad"));
    EXPECT_THAT(text, Not(HasSubstr("CurveWidening")));
}

TEST_F(ShowCommand, AlignsEveryTable)
{
    Call({"set", "CircularCurveRad.noSuperelevationMinRad", "--speed", "100", "123456"});
    int tables = 0;
    std::vector<int> header;
    for (const std::string& line : Lines(Done({"show"}))) {
        const std::vector<int> ends = CellEnds(line);
        if (line.starts_with("  设计车速(km/h)") || line.starts_with("  圆曲线半径(m)")) {
            header = ends;
            ++tables;
        } else if (ends.size() > 1 && !header.empty()) {
            // The first column stands left, every other one ends where its caption ends.
            ASSERT_EQ(ends.size(), header.size()) << line;
            EXPECT_TRUE(std::equal(ends.begin() + 1, ends.end(), header.begin() + 1)) << line;
        } else {
            header.clear();
        }
    }
    EXPECT_EQ(tables, 14);
}

TEST_F(ShowCommand, ShowsDataSources)
{
    EXPECT_THAT(Done({"show", "LonGrad"}), HasSubstr("数据来源: (未填)"));
    Done({"set", "LonGrad.Criterion", "CJJ 37 第 6.3.1 条"});
    EXPECT_THAT(Done({"show", "LonGrad"}), HasSubstr("数据来源: CJJ 37 第 6.3.1 条"));
}

TEST_F(ShowCommand, HidesTheRadiusTableWhileItIsNotUsed)
{
    EXPECT_THAT(Done({"show", "TransitionCurveMinLen"}), HasSubstr("2000"));
    Done({"set", "TransitionCurveMinLen.NoTCBySuperelevation", "1"});
    EXPECT_THAT(Done({"show", "TransitionCurveMinLen"}), Not(HasSubstr("不设缓和曲线的最小")));
    EXPECT_THAT(m_folder.Read(FileOf("城市")), Not(HasSubstr("NoTCByMinRad")));
}

TEST_F(ShowCommand, ShowsNoSpeedWhereATableIsEmpty)
{
    for (const char* speed : {"80", "60", "50", "40", "30", "20"})
        Done({"set", "LonGradMinLen.MinLens", "--speed", speed, "--unset"});
    EXPECT_THAT(Done({"show", "LonGradMinLen"}), HasSubstr("  设计车速(km/h)\n"
                                                           "  最小坡长(m)\n"));
}

TEST_F(ShowCommand, LeavesARoadClassOutWhenItsTableIsEmptied)
{
    Done({"set", "MaxResultantGrad.FreeWay", "--speed", "80", "9.5"});
    EXPECT_THAT(Done({"show", "MaxResultantGrad"}), HasSubstr("高速公路(%)"));
    EXPECT_THAT(m_folder.Read(FileOf("城市")), HasSubstr("<FreeWay>"));
    Done({"set", "MaxResultantGrad.FreeWay", "--speed", "80", "--unset"});
    EXPECT_THAT(Done({"show", "MaxResultantGrad"}), Not(HasSubstr("高速公路")));
    EXPECT_THAT(m_folder.Read(FileOf("城市")), Not(HasSubstr("FreeWay")));
}

TEST_F(ShowCommand, GivesEverythingAsJson)
{
    const Json json = DoneJson({"show"});
    EXPECT_EQ(json["name"], "城市");
    EXPECT_EQ(json["id"], IdOf("城市"));
    EXPECT_EQ(json["criteria"].size(), Criteria().size());
    EXPECT_EQ(json["criteria"]["CircularCurveRad"]["MaxRad"], 10000);
    EXPECT_EQ(json["criteria"]["CircularCurveRad"]["SuperelevationMinRad"][0],
              (Json{{"speed", 80}, {"value", 250}}));
    EXPECT_EQ(json["criteria"]["MaxResultantGrad"]["FreeWay"], Json::array());
    EXPECT_EQ(json["criteria"]["LonGradMaxLen"]["rows"][2]["Grad"], 6.0);
    EXPECT_EQ(json["criteria"]["LonGradMaxLen"]["rows"][2]["lengths"][1],
              (Json{{"speed", 60}, {"value", 400}}));
    const Json definition = json["criteria"]["SuperElevation"]["definitions"][0];
    EXPECT_EQ(definition["maxSuperElev"], 6);
    EXPECT_EQ(definition["rows"][0]["ranges"][4],
              (Json{{"minRadius", 810}, {"maxRadius", 1000}, {"superElev", 2}}));
    const Json range = json["criteria"]["CurveWidening"]["ranges"][0];
    EXPECT_EQ(range["min"], 200);
    EXPECT_EQ(range["widenings"][1], (Json{{"carType", "普通汽车"}, {"widening", 0.4}}));

    const Json one = DoneJson({"show", "LonGrad"})["criteria"];
    EXPECT_EQ(one.size(), 1U);
    EXPECT_EQ(one["LonGrad"], json["criteria"]["LonGrad"]);
}

TEST_F(ShowCommand, RefusesAFieldAndAnUnknownCriterion)
{
    Fails(2, "show 只接受条目", {"show", "LonGrad.MinGrad"});
    Fails(2, "没有条目“x”。可选:", {"show", "x"});
    Fails(2, "FILE: 不能为空", {"show", ""});
    Fails(2, "没有设计规范“LonGrad”", {"show", "LonGrad", "CurveWidening"});
    Fails(2, "多余的参数", {"show", "城市", "LonGrad", "CurveWidening"});
}

TEST_F(ShowCommand, ShowsWhatAFileHolds)
{
    New("干线");
    Done({"export", "两个.hds"});
    const std::string one = Done({"--spec", "城市", "show"});
    const std::string other = Done({"--spec", "干线", "show"});
    EXPECT_EQ(Done({"show", "两个.hds"}), one + "\n" + other);
    EXPECT_EQ(Done({"show", "两个.hds#城市"}), one);
    EXPECT_EQ(Done({"show", FileOf("干线")}), other);
    EXPECT_EQ(Done({"show", "干线", "LonGrad"}), Done({"--spec", "干线", "show", "LonGrad"}));
    EXPECT_EQ(DoneJson({"show", "两个.hds"}).size(), 2U);
    EXPECT_EQ(DoneJson({"show", "两个.hds#干线", "LonGrad"}),
              DoneJson({"--spec", "干线", "show", "LonGrad"}));
    const TemporaryFolder elsewhere;
    EXPECT_EQ(CallIn(elsewhere.Native(), {"show", Utf8(m_folder.Native("两个.hds")) + "#干线"}).out,
              other);
}

} // namespace
