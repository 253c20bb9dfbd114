// designspec verify: options, statuses, texts and reports.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>

#include "TreePaths.h"
#include "tests/cli/VerifyCommandTest.h"

namespace {

TEST_F(VerifyCommand, TellsFindingsAlignedThenWhatWasNotCheckedThenTheCount)
{
    const ProcessResult result = Call({"verify", Write("r.xml", "140"), "--speed", "60"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out.substr(0, result.out.find("    K1+000.000")),
              "r.xml: 路线“主线” K1+000.000 ~ K2+400.000\n"
              "  K1+600.000  ~  K1+800.000  错误  radius-min             圆曲线半径 140 m, "
              "小于设超高最小半径 150 m\n"
              "  K1+600.000  ~  K1+800.000  提示  superelevation-needed  圆曲线半径 140 m, "
              "小于不设超高最小半径 600 m; 超高表(最大超高 4%)没有车速 60 km/h、半径 140 m 的超高\n"
              "  未检核:\n");
    EXPECT_THAT(result.out, HasSubstr("  grade-max "));
    EXPECT_THAT(result.out, testing::EndsWith("错误 1, 警告 0, 提示 1\n"));
}

TEST_F(VerifyCommand, EndsInNoughtWithoutAnError)
{
    const ProcessResult result = Call({"verify", Write("r.xml", "200"), "--speed", "60"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, HasSubstr("radius-recommended"));
    EXPECT_THAT(result.out, HasSubstr("错误 0, 警告 1, 提示 1\n"));
}

TEST_F(VerifyCommand, TellsTheSourceOfTheLimit)
{
    Done({"set", "CircularCurveRad.MinRadCriterion", "规范 6.2.2"});
    EXPECT_THAT(Call({"verify", Write("r.xml", "140"), "--speed", "60"}).out,
                HasSubstr("小于设超高最小半径 150 m                "));
    const Json json =
        Json::parse(Call({"verify", "r.xml", "--speed", "60", "--json"}).out)["files"][0];
    EXPECT_EQ(json["alignments"][0]["findings"][0]["source"], "规范 6.2.2");
}

TEST_F(VerifyCommand, AsksForASpeedThatNobodyGives)
{
    const ProcessResult result = Call({"verify", Write("r.xml", "140")});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "designspec: r.xml: 路线“主线”没有设计车速, 请用 --speed V 或 --speed "
                          "FROM:TO:V 给出\n");
}

TEST_F(VerifyCommand, TakesTheFilesSpeedUnlessItIsOverridden)
{
    const std::string road = Write(
        "r.xml", "140",
        "<Roadways><Roadway><Speeds><DesignSpeed speed=\"60\"/></Speeds></Roadway></Roadways>");
    EXPECT_EQ(Call({"verify", road}).status, 1);
    EXPECT_EQ(Call({"verify", road, "--speed", "40"}).status, 0);
    EXPECT_EQ(Call({"verify", road, "--speed", "K1+500:K1+900:40"}).status, 0);
    EXPECT_EQ(Call({"verify", road, "--speed", "1500:1700:40"}).status, 1);
    EXPECT_EQ(Call({"verify", road, "--speed", "40", "--speed", "1700:1710:60"}).status, 1);
}

TEST_F(VerifyCommand, TakesTheSafeSideUnlessToldAnotherMode)
{
    const std::string road = Write("r.xml", "200");
    EXPECT_EQ(Call({"verify", road, "--speed", "70"}).status, 1); // 250 of 80 km/h
    EXPECT_EQ(Call({"verify", road, "--speed", "70", "--mode", "lower"}).status, 0);
    EXPECT_EQ(Call({"verify", road, "--speed", "70", "--mode", "interpolate"}).status, 0);
    Fails(2, "没有取值方式“up”。可选: nearest upper lower interpolate exact",
          {"verify", road, "--speed", "70", "--mode", "up"});
}

TEST_F(VerifyCommand, TellsWideningForTheDesignVehicle)
{
    const std::string road = Write("r.xml", "200");
    EXPECT_EQ(Findings(Call({"verify", road, "--speed", "60"}).out, "widening-needed"), 0);
    const std::string out = Call({"verify", road, "--speed", "60", "--car", "普通汽车"}).out;
    EXPECT_THAT(out, HasSubstr("半径 200 m 的圆曲线, “普通汽车”每车道加宽 0.45 m"));
    Fails(2, "没有车型“马车”。可选: 小型汽车 普通汽车 铰接车",
          {"verify", road, "--speed", "60", "--car", "马车"});
}

TEST_F(VerifyCommand, TakesOnlyTheAlignmentsThatAreNamed)
{
    const std::string road = Write("r.xml", "140");
    EXPECT_EQ(Call({"verify", road, "--speed", "60", "--alignment", "主线"}).status, 1);
    const ProcessResult none =
        Call({"verify", road, "--speed", "60", "--alignment", "支线", "--alignment", "主线"});
    EXPECT_EQ(none.status, 3);
    EXPECT_THAT(none.err, HasSubstr("r.xml: 文件中没有路线“支线”"));
    EXPECT_EQ(Findings(none.out, "radius-min"), 1);
}

// The roads of a project stand in several files; a name is wrong when none of them has it.
TEST_F(VerifyCommand, LooksForAnAlignmentInAllFiles)
{
    m_folder.Write("side.xml", "<LandXML version=\"1.2\"><Alignments><Alignment name=\"支线\">"
                               "<CoordGeom><Line length=\"9\"/></CoordGeom></Alignment>"
                               "</Alignments></LandXML>");
    const std::string road = Write("r.xml", "140");
    const ProcessResult side =
        Call({"verify", road, "side.xml", "--speed", "60", "--alignment", "支线"});
    EXPECT_EQ(side.status, 0);
    EXPECT_EQ(side.err, "");
    EXPECT_EQ(Findings(side.out, "radius-min"), 0);
    const ProcessResult none = Call({"verify", road, "side.xml", "--speed", "60", "--alignment",
                                     "支线", "--alignment", "匝道"});
    EXPECT_EQ(none.status, 3);
    EXPECT_EQ(none.err, "designspec: 各文件中都没有路线“匝道”\n");
}

TEST_F(VerifyCommand, ChecksTheOthersWhenAFileCannotBeRead)
{
    m_folder.Write("broken.xml", "<LandXML>\n<Alignments>");
    const ProcessResult result =
        Call({"verify", "broken.xml", Write("r.xml", "140"), "none.xml", "--speed", "60"});
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.err, HasSubstr("designspec: broken.xml:2: XML 有误: "));
    EXPECT_THAT(result.err, HasSubstr("designspec: none.xml: 无法打开: 不存在\n"));
    EXPECT_EQ(Findings(result.out, "radius-min"), 1);
}

TEST_F(VerifyCommand, RefusesWhatItDoesNotUnderstand)
{
    const std::string road = Write("r.xml", "140");
    Fails(2, "设计车速“6O”不是整数", {"verify", road, "--speed", "6O"});
    Fails(2, "设计车速“0”不在 1 到 1000 km/h 之间", {"verify", road, "--speed", "0"});
    Fails(2, "--speed “1:2”不是 V 或 FROM:TO:V", {"verify", road, "--speed", "1:2"});
    Fails(2, "“x”不是桩号", {"verify", road, "--speed", "x:2:60"});
    Fails(2, "没有道路类型“土路”。可选: 城市道路 ",
          {"verify", road, "--speed", "60", "--road-type", "土路"});
    Fails(2, "没有超高旋转轴“left”。可选: centre edge",
          {"verify", road, "--speed", "60", "--axis", "left"});
    Fails(2, "最大超高“six”不是整数", {"verify", road, "--speed", "60", "--max-super", "six"});
    Fails(2, "--jobs “0”不在 1 到 1024 之间", {"verify", road, "--speed", "60", "--jobs", "0"});
    Fails(2, "报告“a.txt”的扩展名不是 .html、.csv 或 .json",
          {"verify", road, "--speed", "60", "--report", "a.txt"});
    Fails(2, "缺少 FILE", {"verify", "--speed", "60"});
}

TEST_F(VerifyCommand, PrintsTheWholeAsJson)
{
    const ProcessResult result = Call({"verify", Write("r.xml", "140"), "--speed", "60", "--json"});
    EXPECT_EQ(result.status, 1);
    const Json json = Json::parse(result.out);
    EXPECT_EQ(json["errors"], 1);
    EXPECT_EQ(json["warnings"], 0);
    EXPECT_EQ(json["notes"], 1);
    const Json road = json["files"][0]["alignments"][0];
    EXPECT_EQ(json["files"][0]["file"], "r.xml");
    EXPECT_EQ(road["name"], "主线");
    EXPECT_EQ(road["length"], 1400);
    EXPECT_EQ(road["stationFrom"], "K1+000.000");
    EXPECT_EQ(road["stationTo"], "K2+400.000");
    EXPECT_EQ(
        road["elements"],
        Json({{"lines", 2}, {"curves", 1}, {"spirals", 2}, {"grades", 0}, {"verticalCurves", 0}}));
    EXPECT_EQ(road["findings"][0],
              Json({{"rule", "radius-min"},
                    {"severity", "error"},
                    {"element", {{"kind", "curve"}, {"index", 3}}},
                    {"from", 600.0},
                    {"to", 800.0},
                    {"stationFrom", "K1+600.000"},
                    {"stationTo", "K1+800.000"},
                    {"speed", 60},
                    {"value", 140.0},
                    {"limit", 150.0},
                    {"unit", "m"},
                    {"criterion", "CircularCurveRad.SuperelevationMinRad"},
                    {"source", ""},
                    {"message", "圆曲线半径 140 m, 小于设超高最小半径 150 m"}}));
    EXPECT_EQ(road["unchecked"][0]["rule"], "superelevation-max");
    EXPECT_EQ(road["unchecked"][0]["why"], "文件没有给出超高");
}

TEST_F(VerifyCommand, WritesReportsByTheirEnding)
{
    const std::string road = Write("r.xml", "140");
    for (const char* const name : {"报告.json", "a.CSV", "a.html"})
        EXPECT_EQ(Call({"verify", road, "--speed", "60", "--report", name}).status, 1);
    EXPECT_EQ(m_folder.Read("报告.json"), Call({"verify", road, "--speed", "60", "--json"}).out);
    const std::string csv = m_folder.Read("a.CSV");
    EXPECT_THAT(csv, testing::StartsWith("\xEF\xBB\xBF文件,路线,程度,规则,"));
    EXPECT_THAT(csv, HasSubstr("r.xml,主线,错误,radius-min,K1+600.000,K1+800.000,60,140,150,m,"
                               "CircularCurveRad.SuperelevationMinRad,,\"圆曲线半径 140 m, "
                               "小于设超高最小半径 150 m\"\r\n"));
    EXPECT_THAT(m_folder.Read("a.html"), HasSubstr("小于设超高最小半径 150 m"));
    const ProcessResult lost = Call({"verify", road, "--speed", "60", "--report", "no/a.csv"});
    EXPECT_EQ(lost.status, 3);
    EXPECT_THAT(lost.err, HasSubstr("no/a.csv"));
}

TEST_F(VerifyCommand, ChecksManyFilesAtOnceInTheirOrder)
{
    Words words = {"verify", "--speed", "60", "--jobs", "4", "--json"};
    for (int i = 0; i < 40; ++i)
        words.push_back(Write("r" + std::to_string(i) + ".xml", std::to_string(130 + i)));
    const Json json = Json::parse(Call(words).out);
    ASSERT_EQ(json["files"].size(), 40U);
    for (size_t i = 0; i < 40; ++i)
        EXPECT_EQ(json["files"][i]["file"], "r" + std::to_string(i) + ".xml");
    EXPECT_EQ(json["errors"], 20);
}

// What the two roads are told of is worked out by hand in them.
TEST_F(VerifyCommand, TellsOfTheExamplesWhatTheyAreMadeFor)
{
    const std::filesystem::path examples = SOURCE_DIR "/examples";
    const auto verify = [&](const std::string& name) {
        std::ifstream expected(examples / "roads" / Utf8Path(name + ".txt"), std::ios::binary);
        const ProcessResult result =
            CallIn(examples, {"--project", "project", "verify", "roads/" + name + ".xml", "--car",
                              "普通汽车"});
        EXPECT_EQ(result.out, std::string(std::istreambuf_iterator<char>(expected), {}));
        EXPECT_EQ(result.err, "");
        return result.status;
    };
    EXPECT_EQ(verify("合格"), 0);
    EXPECT_EQ(verify("违规"), 1);
}

TEST_F(VerifyCommand, FindsEveryRuleInTheExampleThatViolatesAll)
{
    const Json json =
        Json::parse(CallIn(SOURCE_DIR "/examples", {"--project", "project", "--json", "verify",
                                                    "roads/违规.xml", "--car", "普通汽车"})
                        .out);
    std::set<std::string> rules;
    for (const Json& one : json["files"][0]["alignments"][0]["findings"])
        rules.insert(one["rule"].get<std::string>());
    EXPECT_EQ(rules.size(), 25U);
}

} // namespace
