#include <regex>

#include "base/Text.h"
#include "model/Criteria.h"
#include "tests/cli/CommandTest.h"

using namespace designspec;

namespace {

class ChangeCommands : public CommandTest {
protected:
    void Wrong(const std::string& text, const Words& words) const { Fails(2, text, words); }

    // Sets a value and asks a new process for it.
    void SetAndAsk(const std::string& path, const std::string& value,
                   const std::string& asked) const
    {
        EXPECT_EQ(Done({"set", path, value}), "");
        EXPECT_EQ(Done({"query", path}), asked + "\n") << path;
    }
    // Changes what the editor would refuse, whether it would or not.
    void Forced(Words words) const
    {
        words.emplace_back("--force");
        EXPECT_EQ(Call(words).status, 0) << testing::PrintToString(words);
    }
    std::string At(const std::string& path, const std::string& speed) const
    {
        return Done({"query", path, "--speed", speed, "--mode", "exact"});
    }
};

constexpr char kMinRad[] = "CircularCurveRad.SuperelevationMinRad";

using NewCommand = ChangeCommands;

TEST_F(NewCommand, WritesAFileNamedAfterNameAndIdentity)
{
    New("城市");
    EXPECT_EQ(FileOf("城市"), "规范/城市" + IdOf("城市") + ".hds");
    EXPECT_TRUE(m_folder.Has(FileOf("城市")));
    EXPECT_TRUE(
        std::regex_match(IdOf("城市"), std::regex("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}")));
}

TEST_F(NewCommand, StartsFromTheBuiltInValues)
{
    New("城市");
    EXPECT_EQ(Done({"query", "CircularCurveRad.MaxRad"}), "10000\n");
}

TEST_F(NewCommand, TrimsTheName)
{
    New("  城市 ");
    EXPECT_EQ(Names(), (std::vector<std::string>{"城市"}));
}

TEST_F(NewCommand, RefusesNamesByTheEditorsRules)
{
    New("城市");
    New("City");
    for (const char* name : {"", "  ", "\t"})
        Wrong("样式名不能为空!", {"new", name});
    for (const char c : std::string("<>/\\\":;=|,*?'"))
        Wrong("样式名中不允许出现如下字符: <>/\\\":;=|,*?'\n", {"new", std::string("a") + c});
    Wrong("和已有样式重名!", {"new", "城市"});
    Wrong("和已有样式重名!", {"new", " CITY "});
    EXPECT_EQ(Names(), (std::vector<std::string>{"City", "城市"}));
}

TEST_F(NewCommand, RefusesNamesThatNoFileCanBear)
{
    Wrong("名称", {"new", ".."});
    Wrong("名称过长", {"new", std::string(300, 'a')});
    Wrong("控制字符", {"new", "a\x01"});
    Wrong("控制字符", {"new", "a\nb"});
    Wrong("文件无法记录的字符", {"new", "a\xEF\xBF\xBF"});
    EXPECT_FALSE(m_folder.Has("规范"));
}

TEST_F(NewCommand, TakesTheNameOfACommand)
{
    New("list");
    New("check");
    EXPECT_EQ(Names(), (std::vector<std::string>{"check", "list"}));
}

TEST_F(NewCommand, CopiesTheContentButNotTheIdentity)
{
    New("城市");
    Done({"set", kMinRad, "--speed", "80", "260"});
    Done({"set", "LonGrad.Criterion", "第 5 条"});
    EXPECT_EQ(Done({"new", "副本", "--from", "城市"}), "");
    EXPECT_NE(IdOf("副本"), IdOf("城市"));
    EXPECT_EQ(DoneJson({"show", "--spec", "副本"})["criteria"],
              DoneJson({"show", "--spec", "城市"})["criteria"]);
}

TEST_F(NewCommand, CopiesWhatAPageRefusesOnlyWhenForced)
{
    New("城市");
    Forced({"set", "MaxSuperElev.MaxSuperElev", "--speed", "80", "25"});
    Wrong("没有新建,编辑器不接受其中的值:\n  MaxSuperElev.MaxSuperElev[80]: ",
          {"new", "副本", "--from", "城市"});
    EXPECT_EQ(Names(), (std::vector<std::string>{"城市"}));
    Forced({"new", "副本", "--from", "城市"});
    EXPECT_EQ(Names(), (std::vector<std::string>{"副本", "城市"}));
}

TEST_F(NewCommand, PrintsWhatWasMadeAsJson)
{
    const Json made = DoneJson({"new", " 城市 "});
    EXPECT_EQ(made,
              (Json{{"name", "城市"}, {"id", IdOf("城市")}, {"file", Entry("城市")["file"]}}));
    EXPECT_EQ(Json::parse(Call({"new", "乡村", "--from", "城市", "--json"}).out)["name"], "乡村");
}

TEST_F(NewCommand, RefusesAnUnknownSource)
{
    New("城市");
    Wrong("没有设计规范“乡村”。可选:\n  城市", {"new", "a", "--from", "乡村"});
    EXPECT_EQ(Names(), (std::vector<std::string>{"城市"}));
}

using RenameCommand = ChangeCommands;

TEST_F(RenameCommand, MovesTheFileAndKeepsIdentityAndContent)
{
    New("城市");
    Done({"set", kMinRad, "--speed", "80", "260"});
    const std::string id = IdOf("城市");
    const std::string old = FileOf("城市");
    EXPECT_EQ(Done({"rename", "城市", " 市区 "}), "");
    EXPECT_EQ(Names(), (std::vector<std::string>{"市区"}));
    EXPECT_EQ(IdOf("市区"), id);
    EXPECT_FALSE(m_folder.Has(old));
    EXPECT_EQ(At(kMinRad, "80"), "260\n");
}

TEST_F(RenameCommand, ChangesTheCaseAlone)
{
    New("City");
    const std::string old = FileOf("City");
    EXPECT_EQ(Done({"rename", "city", "CITY"}), "");
    EXPECT_EQ(Names(), (std::vector<std::string>{"CITY"}));
    EXPECT_FALSE(m_folder.Has(old));
    EXPECT_TRUE(m_folder.Has(FileOf("CITY")));
}

TEST_F(RenameCommand, LeavesTheSameNameAsItIs)
{
    New("城市");
    const std::string before = m_folder.Read(FileOf("城市"));
    EXPECT_EQ(Done({"rename", "城市", "城市"}), "");
    EXPECT_EQ(m_folder.Read(FileOf("城市")), before);
}

TEST_F(RenameCommand, TakesTheIdentityForTheOldName)
{
    New("城市");
    EXPECT_EQ(Done({"rename", IdOf("城市"), "市区"}), "");
    EXPECT_EQ(Names(), (std::vector<std::string>{"市区"}));
}

TEST_F(RenameCommand, RefusesNamesByTheEditorsRules)
{
    New("城市");
    New("乡村");
    Wrong("样式名不能为空!", {"rename", "城市", " "});
    Wrong("样式名中不允许出现如下字符: <>/\\\":;=|,*?'", {"rename", "城市", "a/b"});
    Wrong("和已有样式重名!", {"rename", "城市", "乡村"});
    Wrong("没有设计规范“公路”", {"rename", "公路", "a"});
    Wrong("缺少 NEW", {"rename", "城市"});
    EXPECT_EQ(Names(), (std::vector<std::string>{"乡村", "城市"}));
}

TEST_F(RenameCommand, StaysTheDefault)
{
    New("城市");
    New("乡村");
    Done({"default", "城市"});
    Done({"rename", "城市", "市区"});
    EXPECT_EQ(Done({"default"}), "市区\n");
}

using RemoveCommand = ChangeCommands;

TEST_F(RemoveCommand, SetsTheFileAsideAndStaysDeleted)
{
    New("城市");
    New("乡村");
    const std::string file = FileOf("城市");
    const std::string content = m_folder.Read(file);
    const ProcessResult result = Call({"remove", "城市"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, HasSubstr("已移至"));
    EXPECT_EQ(Names(), (std::vector<std::string>{"乡村"}));
    EXPECT_FALSE(m_folder.Has(file));
    EXPECT_EQ(m_folder.Read(Replaced(file, "规范/", "规范/已删除/")), content);
}

TEST_F(RemoveCommand, FindsAFileOfAnyName)
{
    New("城市");
    std::filesystem::rename(m_folder.Native(FileOf("城市")), m_folder.Native("规范/foo.hds"));
    EXPECT_EQ(Call({"remove", "城市"}).status, 0);
    EXPECT_TRUE(Names().empty());
    EXPECT_TRUE(m_folder.Has("规范/已删除/foo.hds"));
}

TEST_F(RemoveCommand, FindsAFileThatGivesNoIdentity)
{
    New("城市");
    m_folder.Write("规范/noid.hds",
                   std::regex_replace(m_folder.Read(FileOf("城市")),
                                      std::regex(R"( Name="城市" ID="[^"]*")"), R"( Name="无")"));
    EXPECT_EQ(Names(), (std::vector<std::string>{"无", "城市"}));
    Call({"remove", "无"});
    EXPECT_EQ(Names(), (std::vector<std::string>{"城市"}));
    EXPECT_TRUE(m_folder.Has("规范/已删除/noid.hds"));
}

// Which of the two it is, the file does not tell.
// The others there get files of their own.
TEST_F(RemoveCommand, RemovesOutOfAFileOfSeveralThatGivesNoIdentity)
{
    New("城市");
    New("乡村");
    Done({"export", "both.hds"});
    Call({"remove", "城市"});
    Call({"remove", "乡村"});
    const std::string both =
        std::regex_replace(m_folder.Read("both.hds"), std::regex(R"( ID="[^"]*")"), "");
    m_folder.Write("规范/both.hds", both);
    const ProcessResult result = Call({"remove", "城市"});
    EXPECT_EQ(result.status, 3); // for want of identities
    EXPECT_FALSE(m_folder.Has("规范/both.hds"));
    EXPECT_EQ(m_folder.Read("规范/已删除/both.hds"), both);
    EXPECT_EQ(Call({"list"}).status, 0);
    EXPECT_EQ(Names(), (std::vector<std::string>{"乡村"}));
}

TEST_F(RemoveCommand, FailsWhereTheFileCannotBeSetAside)
{
    New("城市");
    const std::string file = FileOf("城市");
    const std::string content = m_folder.Read(file);
    m_folder.Write("规范/已删除", "no folder");
    EXPECT_EQ(Call({"remove", "城市"}).status, 3);
    EXPECT_EQ(m_folder.Read(file), content);
    EXPECT_EQ(Names(), (std::vector<std::string>{"城市"}));
}

TEST_F(RemoveCommand, KeepsTheOthersOfAFileWithSeveral)
{
    New("城市");
    New("乡村");
    Done({"export", "both.hds"});
    Call({"remove", "城市"});
    Call({"remove", "乡村"});
    std::filesystem::copy(m_folder.Native("both.hds"), m_folder.Native("规范/both.hds"));
    EXPECT_EQ(Call({"remove", "城市"}).status, 0);
    EXPECT_EQ(Names(), (std::vector<std::string>{"乡村"}));
}

TEST_F(RemoveCommand, LeavesNoDefaultWhenThatWasRemoved)
{
    New("城市");
    New("乡村");
    Done({"default", "城市"});
    Call({"remove", "城市"});
    const ProcessResult result = Call({"default"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("没有默认的设计规范"));
}

TEST_F(RemoveCommand, RefusesAnUnknownName)
{
    New("城市");
    Wrong("没有设计规范“乡村”。可选:\n  城市\n", {"remove", "乡村"});
    Wrong("缺少 NAME", {"remove"});
}

using DefaultCommand = ChangeCommands;

TEST_F(DefaultCommand, IsSetShownAndKept)
{
    New("城市");
    New("乡村");
    Fails(1, "没有默认的设计规范", {"default"});
    EXPECT_EQ(Done({"default", "城市"}), "");
    EXPECT_EQ(Done({"default"}), "城市\n");
    EXPECT_EQ(DoneJson({"default"}), (Json{{"name", "城市"}, {"id", IdOf("城市")}}));
    EXPECT_EQ(Done({"default", IdOf("乡村")}), "");
    EXPECT_EQ(Done({"default"}), "乡村\n");
    EXPECT_TRUE(Entry("乡村")["default"]);
    EXPECT_FALSE(Entry("城市")["default"]);
}

TEST_F(DefaultCommand, KeepsTheOtherSettings)
{
    New("城市");
    m_folder.Write("规范/setting.ini", "; 说明\n[其它]\n键=值\n");
    Done({"default", "城市"});
    const std::string text = m_folder.Read("规范/setting.ini");
    EXPECT_THAT(text, HasSubstr("; 说明"));
    EXPECT_THAT(text, HasSubstr("键=值"));
    EXPECT_THAT(text, HasSubstr(IdOf("城市")));
}

TEST_F(DefaultCommand, RefusesAnUnknownName)
{
    New("城市");
    Wrong("没有设计规范“乡村”", {"default", "乡村"});
    Wrong("NAME: 不能为空", {"default", ""});
}

using SetCommand = ChangeCommands;

TEST_F(SetCommand, ChangesEveryScalarField)
{
    New("城市");
    for (const CriterionInfo& criterion : Criteria()) {
        for (const Field& field : criterion.fields) {
            const std::string path = ToUtf8(criterion.name) + "." + ToUtf8(field.key);
            if (field.kind == FieldKind::Text) {
                SetAndAsk(path, "  第 3.1 条 <&\">  ", "第 3.1 条 <&\">");
            } else if (field.kind == FieldKind::Bool) {
                const bool was = Done({"query", path}) == "1\n";
                SetAndAsk(path, was ? "0" : "1", was ? "0" : "1");
            } else if (field.kind == FieldKind::Int) {
                SetAndAsk(path, "+6", "6");
            } else if (field.kind == FieldKind::Double) {
                SetAndAsk(path, "0.1", "0.1");
            }
        }
    }
}

TEST_F(SetCommand, ChangesAddsAndUnsetsEveryTable)
{
    New("城市");
    for (const CriterionInfo& criterion : Criteria()) {
        for (const Field& field : criterion.fields) {
            if (!field.IsTable()) continue;
            const std::string path = ToUtf8(criterion.name) + "." + ToUtf8(field.key);
            Forced({"set", path, "--speed", "80", "77"});
            Forced({"set", path, "--speed", "55", "66"});
            EXPECT_EQ(At(path, "80"), "77\n") << path;
            EXPECT_EQ(At(path, "55"), "66\n") << path;
            Forced({"set", path, "--speed", "80", "--unset"});
            Fails(1, "没有符合条件的值", {"query", path, "--speed", "80", "--mode", "exact"});
        }
    }
}

TEST_F(SetCommand, ChangesAddsAndUnsetsByPathsWithKeys)
{
    New("城市");
    const auto ask = [&](const std::string& path) { return Done({"query", path}); };
    for (const auto& [path, before] : std::vector<std::pair<std::string, std::string>>{
             {"CircularCurveRad.SuperelevationMinRad[80]", "250\n"},
             {"LonGradMaxLen.rows[5.5].lengths[80]", "500\n"},
             {"SuperElevation.definitions[6].rows[80].ranges[200~300].superElev", "6\n"},
             {"CurveWidening.ranges[200~250].widenings[小型汽车].widening", "0.28\n"}}) {
        EXPECT_EQ(ask(path), before);
        Forced({"set", path, "3"});
        EXPECT_EQ(ask(path), "3\n");
        const std::string row = path.substr(0, path.rfind(']') + 1);
        Forced({"set", row, "--unset"});
        Fails(1, "没有符合条件的值", {"query", path});
        Wrong("表中没有", {"set", row, "--unset"});
        Forced({"set", path, "2"});
        EXPECT_EQ(ask(path), "2\n");
    }
    EXPECT_EQ(Done({"query", "longradmaxlen.ROWS[6].lengths", "--speed", "70", "--mode", "upper"}),
              "400\n");
    Wrong("不是一个值", {"query", "SuperElevation.definitions[6]"});
    Wrong("不用 --speed", {"query", "LonGradMaxLen.rows[6].lengths[60]", "--speed", "60"});
}

TEST_F(SetCommand, KeepsATableInDescendingOrder)
{
    New("城市");
    Done({"set", kMinRad, "--speed", "10", "15"});
    Done({"set", kMinRad, "--speed", "100", "400"});
    Done({"set", kMinRad, "--speed", "70", "200"});
    std::vector<int> speeds;
    const Json criteria = DoneJson({"show", "CircularCurveRad"})["criteria"];
    for (const Json& entry : criteria["CircularCurveRad"]["SuperelevationMinRad"])
        speeds.push_back(entry["speed"]);
    EXPECT_EQ(speeds, (std::vector<int>{100, 80, 70, 60, 50, 40, 30, 20, 10}));
}

TEST_F(SetCommand, ChangesNothingElse)
{
    New("城市");
    Json before = DoneJson({"show"});
    Done({"set", "CircularCurveRad.MaxRad", "9000"});
    before["criteria"]["CircularCurveRad"]["MaxRad"] = 9000;
    EXPECT_EQ(DoneJson({"show"}), before);
}

TEST_F(SetCommand, ChangesSeveralAlike)
{
    New("城市");
    New("干线");
    New("支路");
    Done({"--spec", "城市", "--spec", "干线", "--spec", "城市", "set", kMinRad, "--speed", "80",
          "260"});
    const auto value = [&](const char* name) {
        return Done({"--spec", name, "query", kMinRad, "--speed", "80"});
    };
    EXPECT_EQ(value("城市"), "260\n");
    EXPECT_EQ(value("干线"), "260\n");
    EXPECT_EQ(value("支路"), "250\n");
    Done({"set", "--all", kMinRad, "--add", "-10"});
    EXPECT_EQ(value("城市"), "250\n");
    EXPECT_EQ(value("支路"), "240\n");
    EXPECT_EQ(Done({"--spec", "支路", "query", kMinRad, "--speed", "60"}), "140\n");
    Done({"set", "--all", kMinRad, "--speed", "80", "--scale", "1.5"});
    EXPECT_EQ(value("城市"), "375\n");
    EXPECT_EQ(Done({"--spec", "城市", "query", kMinRad, "--speed", "60"}), "140\n");
}

// Of several all or none.
TEST_F(SetCommand, OneThatCannotTakeItKeepsTheOthersAsTheyAre)
{
    New("城市");
    New("干线");
    Done({"--spec", "城市", "set", "LonGradMaxLen.rows[9].lengths[60]", "200"});
    const std::string row = "LonGradMaxLen.rows[9].lengths[60]";
    const std::string before = m_folder.Read(FileOf("城市"));
    Fails(2, "“干线”: ", {"set", "--all", row, "--unset"});
    EXPECT_EQ(m_folder.Read(FileOf("城市")), before);
}

TEST_F(SetCommand, ListsWhatWouldBeDifferent)
{
    New("城市");
    New("干线");
    const std::string before = m_folder.Read(FileOf("城市"));
    EXPECT_EQ(Done({"set", "--all", kMinRad, "--speed", "80", "--add", "5", "--dry-run"}),
              "“城市”\n圆曲线半径\n  设超高最小半径  车速 80 km/h  250 m  →  255 m\n"
              "“干线”\n圆曲线半径\n  设超高最小半径  车速 80 km/h  250 m  →  255 m\n");
    const Json json = DoneJson({"set", "--all", kMinRad, "--scale", "2", "--dry-run"});
    ASSERT_EQ(json.size(), 2U);
    EXPECT_EQ(json[1]["name"], "干线");
    EXPECT_EQ(json[1]["differences"].size(), 6U);
    EXPECT_EQ(m_folder.Read(FileOf("城市")), before);
}

TEST_F(SetCommand, RefusesWhatDoesNotGoTogether)
{
    New("城市");
    Wrong("请给出一个值,或用 --unset 去掉它,或用 --add、--scale 改变它",
          {"set", kMinRad, "--speed", "80", "5", "--add", "1"});
    Wrong("--add 与 --scale 只能写一个", {"set", kMinRad, "--add", "1", "--scale", "2"});
    Wrong("--all 与 --spec 只能写一个", {"set", "--all", "--spec", "城市", kMinRad, "--add", "1"});
    Wrong("--force 不用于 --add 和 --scale", {"set", kMinRad, "--add", "1", "--force"});
    Wrong("“x”不是数", {"set", kMinRad, "--add", "x"});
    Wrong("没有设计规范“高速”", {"set", "--spec", "城市", "--spec", "高速", kMinRad, "--add", "1"});
}

TEST_F(SetCommand, UnsetsTheLastSpeedOfATable)
{
    New("城市");
    for (const char* speed : {"80", "60", "50", "40", "30", "20"})
        Done({"set", "MaxResultantGrad.CityRoad", "--speed", speed, "--unset"});
    Fails(1, "没有符合条件的值", {"query", "MaxResultantGrad.CityRoad", "--speed", "80"});
}

TEST_F(SetCommand, ChangesASpeedThatTheFileHoldsTwice)
{
    New("城市");
    const std::string file = FileOf("城市");
    const std::string item = R"(<Item speed="80" value="250" />)";
    m_folder.Write(file, Replaced(m_folder.Read(file), item, item + item));
    Done({"set", kMinRad, "--speed", "80", "260"});
    EXPECT_EQ(At(kMinRad, "80"), "260\n");
    EXPECT_EQ(DoneJson({"check"}), Json::array());
}

TEST_F(SetCommand, RefusesValuesThatAreNone)
{
    New("城市");
    const std::string before = m_folder.Read(FileOf("城市"));
    for (const char* value : {"12abc", "２０", "1e999", "", "6.5", "99999999999"}) {
        Wrong("值“" + std::string(value) + "”不是整数", {"set", "CircularCurveRad.MaxRad", value});
        Wrong("不是整数", {"set", kMinRad, "--speed", "80", value});
    }
    for (const char* value : {"12abc", "２０", "1e999", "", "nan", "inf", "0x5", "1,5"}) {
        Wrong("值“" + std::string(value) + "”不是数", {"set", "LonGrad.MinGrad", value});
        Wrong("不是数", {"set", "LonGrad.MaxGradLimitedValues", "--speed", "80", value});
    }
    for (const char* value : {"2", "yes", "", "是"})
        Wrong("值应为 0 或 1", {"set", "CurveWidening.IsGMinAndLEMaxMode", value});
    Wrong("文件无法记录的字符", {"set", "LonGrad.Criterion", "a\x02"});
    EXPECT_EQ(m_folder.Read(FileOf("城市")), before);
}

TEST_F(SetCommand, RefusesWhatAPageRefuses)
{
    New("城市");
    const std::string before = m_folder.Read(FileOf("城市"));
    const std::string maxima = "MaxSuperElev.MaxSuperElev";
    const std::string hint = "用 --force 可以仍然这样做";
    Wrong("没有修改,编辑器不接受其中的值:\n  " + maxima +
              "[80]: 设计车速 80 对应的 最大超高 值不合法, 必须在0~20之间!\n",
          {"set", maxima, "--speed", "80", "25"});
    Wrong(hint, {"set", maxima, "--speed", "80", "25"});
    Wrong("超高渐变率必须在 1/2~1/999 之间",
          {"set", "MaxSuperElev.GradualChangeRatio1", "--speed", "80", "5000"});
    Wrong("最小纵坡必须大于等于0,并且最多只有一位小数!", {"set", "LonGrad.MinGrad", "0.35"});
    Wrong("最大超高 5% 的超高表未设置!", {"set", maxima, "--speed", "80", "5"});
    Wrong("最大圆曲线半径应该为 5% 的最小圆曲线半径!",
          {"set", "SuperElevation.definitions[6].rows[80].ranges[200~299].superElev", "6"});
    Wrong("LonGradMaxLen.rows[4.25].Grad: 坡度必须是正数,并且最多只能有一位小数!",
          {"set", "LonGradMaxLen.rows[4.25].lengths[60]", "500"});
    Wrong("设计车速 80 对应的 最大超高 不能为空!", {"set", maxima, "--speed", "80", "--unset"});
    Wrong("圆曲线半径必须大于0!", {"set", "CurveWidening.ranges[0~15].widenings[小型汽车]", "1"});
    EXPECT_EQ(m_folder.Read(FileOf("城市")), before);
}

TEST_F(SetCommand, SavesWhatAPageRefusesWhenForcedAndTellsIt)
{
    New("城市");
    const ProcessResult result =
        Call({"set", "MaxSuperElev.GradualChangeRatio1", "--speed", "80", "5000", "--force"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "designspec: MaxSuperElev.GradualChangeRatio1[80]: "
                          "超高渐变率必须在 1/2~1/999 之间\n");
    EXPECT_EQ(At("MaxSuperElev.GradualChangeRatio1", "80"), "5000\n");
}

TEST_F(SetCommand, MindsOnlyTheFaultsThatItBringsIn)
{
    New("城市");
    const std::string runoff = "MaxSuperElev.GradualChangeRatio1";
    Forced({"set", runoff, "--speed", "80", "5000"});
    Forced({"set", "MaxSuperElev.MaxSuperElev", "--speed", "80", "5"}); // there is no such table
    EXPECT_EQ(Done({"set", "LonGrad.MinGrad", "0.4"}), "");
    EXPECT_EQ(Done({"set", runoff, "--speed", "60", "125"}), "");
    Wrong("超高渐变率", {"set", runoff, "--speed", "80", "6000"});
    EXPECT_EQ(Done({"set", runoff, "--speed", "80", "150"}), "");
    EXPECT_EQ(Done({"set", "MaxSuperElev.MaxSuperElev", "--speed", "80", "6"}), "");
    EXPECT_EQ(DoneJson({"check"}), Json::array());
}

TEST_F(SetCommand, TellsOfAnOddValueThatNoPageRefuses)
{
    New("城市");
    const ProcessResult result =
        Call({"set", "LonGrad.MaxGradLimitedValues", "--speed", "20", "95"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("LonGrad.MaxGradLimitedValues[20]: 最大纵坡限制值在车速 20 "
                                      "时为 95, 大于 30, 不像道路的坡度\n"));
    EXPECT_THAT(Call({"check"}).out, HasSubstr("不像道路的坡度"));
    EXPECT_EQ(Call({"set", "LonGrad.MinGrad", "0.5"}).err, ""); // elsewhere
}

TEST_F(SetCommand, RefusesNegativeValues)
{
    New("城市");
    Wrong("值不能小于 0", {"set", "CircularCurveRad.MaxRad", "-5"});
    Wrong("值不能小于 0", {"set", "LonGrad.MinGrad", "-0.5"});
    Wrong("值不能小于 0", {"set", kMinRad, "--speed", "80", "-5"});
    Wrong("不能小于 0", {"set", kMinRad, "--speed", "80", "--", "-5"});
    Wrong("不能小于 0", {"set", "LonGrad.MinGrad", "--", "-0.5"});
    Wrong("不能小于 0", {"set", "CircularCurveRad.MaxRad", "--", "-5"});
    EXPECT_EQ(Done({"query", "CircularCurveRad.MaxRad"}), "10000\n");
}

TEST_F(SetCommand, WritesNoNegativeZero)
{
    New("城市");
    EXPECT_EQ(Done({"set", "LonGrad.MinGrad", "--", "-0"}), "");
    EXPECT_EQ(Done({"query", "LonGrad.MinGrad"}), "0\n");
}

TEST_F(SetCommand, TakesNewSpeedsFromTenToOneHundredAndFifty)
{
    New("城市");
    const std::string message = "车速 必须大于等于 10 并且小于等于 150";
    for (const char* speed : {"9", "151", "0", "-80", "2147483647"})
        Wrong(message, {"set", kMinRad, "--speed", speed, "5"});
    for (const char* speed : {"10", "150"})
        EXPECT_EQ(Call({"set", kMinRad, "--speed", speed, "5"}).status, 0);
    for (const char* speed : {"", "12abc", "２０", "1e999", "6.5"})
        Wrong("车速“" + std::string(speed) + "”不是整数", {"set", kMinRad, "--speed", speed, "5"});
}

TEST_F(SetCommand, ChangesASpeedOutsideThatAFileHolds)
{
    New("城市");
    const std::string file = FileOf("城市");
    m_folder.Write(file, Replaced(m_folder.Read(file), R"(speed="80")", R"(speed="200")"));
    EXPECT_EQ(Done({"set", "CircularCurveRad.noSuperelevationMinRad", "--speed", "200", "990"}),
              "");
    EXPECT_EQ(At("CircularCurveRad.noSuperelevationMinRad", "200"), "990\n");
    EXPECT_EQ(Done({"set", "CircularCurveRad.noSuperelevationMinRad", "--speed", "200", "--unset"}),
              "");
}

TEST_F(SetCommand, RefusesTheRadiusTableWhileItIsNotUsed)
{
    New("城市");
    const std::string path = "TransitionCurveMinLen.NoTCByMinRad";
    EXPECT_EQ(At(path, "80"), "2000\n");
    Done({"set", "TransitionCurveMinLen.NoTCBySuperelevation", "1"});
    Wrong("NoTCByMinRad 在当前条件下不用", {"set", path, "--speed", "80", "5"});
    Fails(1, "没有符合条件的值", {"query", path, "--speed", "80"});
    Wrong("不设缓和曲线的最小圆曲线半径条件不能为空!",
          {"set", "TransitionCurveMinLen.NoTCBySuperelevation", "false"});
    Forced({"set", "TransitionCurveMinLen.NoTCBySuperelevation", "false"});
    EXPECT_EQ(Done({"set", path, "--speed", "80", "1900"}), "");
    EXPECT_EQ(At(path, "80"), "1900\n");
}

TEST_F(SetCommand, RefusesACallThatSaysTooLittleOrTooMuch)
{
    New("城市");
    Wrong("请用 --speed 指定", {"set", kMinRad, "5"});
    Wrong("MaxRad 不按车速设置", {"set", "CircularCurveRad.MaxRad", "--speed", "80", "5"});
    Wrong("--unset 只用于表中的值", {"set", "CircularCurveRad.MaxRad", "--unset"});
    Wrong("请给出一个值,或用 --unset 去掉它", {"set", kMinRad, "--speed", "80"});
    Wrong("请给出一个值,或用 --unset 去掉它", {"set", kMinRad, "--speed", "80", "5", "--unset"});
    Wrong("表中没有车速 70", {"set", kMinRad, "--speed", "70", "--unset"});
    Wrong("请指定 CircularCurveRad 的字段", {"set", "CircularCurveRad", "5"});
    Wrong("LonGradMaxLen.rows 不是一个值", {"set", "LonGradMaxLen.rows", "5"});
    Wrong("不按车速设置", {"set", std::string(kMinRad) + "[80]", "--speed", "80", "5"});
    Wrong("--speed 只能给一次", {"set", kMinRad, "--speed", "80", "--speed", "60", "5"});
}

TEST_F(SetCommand, ChangesTheOneThatSpecNames)
{
    New("城市");
    New("乡村");
    Done({"set", "--spec", "乡村", "CircularCurveRad.MaxRad", "5"});
    EXPECT_EQ(Done({"query", "--spec", "乡村", "CircularCurveRad.MaxRad"}), "5\n");
    EXPECT_EQ(Done({"query", "--spec", "城市", "CircularCurveRad.MaxRad"}), "10000\n");
}

TEST_F(SetCommand, ChangesAFileNamedByHand)
{
    New("城市");
    std::filesystem::rename(m_folder.Native(FileOf("城市")), m_folder.Native("规范/foo.hds"));
    EXPECT_EQ(Call({"set", kMinRad, "--speed", "80", "260"}).status, 0);
    EXPECT_EQ(At(kMinRad, "80"), "260\n");
    EXPECT_EQ(FileOf("城市"), "规范/城市" + IdOf("城市") + ".hds");
}

} // namespace
