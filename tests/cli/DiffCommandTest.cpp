#include "tests/cli/CommandTest.h"

namespace {

class DiffCommand : public CommandTest {
protected:
    void SetUp() override
    {
        New("城市");
        Done({"new", "干线", "--from", "城市"});
    }

    ProcessResult Diff(const Words& words) const
    {
        Words all = {"diff"};
        all.insert(all.end(), words.begin(), words.end());
        return Call(all);
    }
    // Expects that they differ.
    std::string Differ(const Words& words) const
    {
        const ProcessResult result = Diff(words);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err, "");
        return result.out;
    }
    // A gap in a table is told.
    void Unset(const std::string& path) const
    {
        EXPECT_EQ(Call({"--spec", "干线", "set", path, "--unset"}).status, 0);
    }
    void Set(const Words& words) const
    {
        Words all = {"--spec", "干线", "set"};
        all.insert(all.end(), words.begin(), words.end());
        Done(all);
    }
};

TEST_F(DiffCommand, TheSameIsStatusZeroAndNothing)
{
    EXPECT_EQ(Done({"diff", "城市", "城市"}), "");
    EXPECT_EQ(DoneJson({"diff", "城市", "城市"})["differences"], Json::array());
}

TEST_F(DiffCommand, TellsEveryValueInTheOrderOfThePages)
{
    Set({"CircularCurveRad.SuperelevationMinRad", "--speed", "80", "260"});
    Unset("CircularCurveRad.SuperelevationMinRad[30]");
    Set({"CircularCurveRad.MaxRadCriterion", "院标"});
    Set({"BeelineLen.MaxLen", "21"});
    Set({"LonGradMaxLen.rows[6].lengths[60]", "410"});
    EXPECT_EQ(
        Differ({"城市", "干线"}),
        "--- 城市  " + IdOf("城市") + "\n+++ 干线  " + IdOf("干线") +
            "\n"
            "设计规范\n"
            "  名称                                             城市                 →  干线\n"
            "直线长度\n"
            "  最大直线长度                                     20 倍设计速度(km/h)  →  "
            "21 倍设计速度(km/h)\n"
            "圆曲线半径\n"
            "  设超高最小半径            车速 80 km/h           250 m                →  260 m\n"
            "  设超高最小半径            车速 30 km/h           40 m                 →  (无)\n"
            "  圆曲线最大半径的数据来源                         (未填)               →  院标\n"
            "纵坡最大坡长\n"
            "  最大坡长                  坡度 6%, 车速 60 km/h  400 m                →  410 m\n");
}

TEST_F(DiffCommand, WithoutASecondOneComparesWithTheBuiltInLimits)
{
    EXPECT_EQ(Done({"diff", "城市"}), "");
    Set({"BeelineLen.MaxLen", "21"});
    const std::string text = Differ({"干线"});
    EXPECT_THAT(text, testing::StartsWith("--- 内置限值\n+++ 干线  "));
    EXPECT_THAT(text, HasSubstr("\n直线长度\n  最大直线长度"));
    EXPECT_THAT(text, Not(HasSubstr("名称")));
}

TEST_F(DiffCommand, JsonTellsPathsAndBothValues)
{
    Set({"CircularCurveRad.SuperelevationMinRad", "--speed", "80", "260"});
    Unset("CircularCurveRad.SuperelevationMinRad[30]");
    const Json json = Json::parse(Differ({"城市", "干线", "--json"}));
    EXPECT_EQ(json["left"]["id"], IdOf("城市"));
    EXPECT_EQ(json["right"]["name"], "干线");
    ASSERT_EQ(json["differences"].size(), 3);
    EXPECT_EQ(json["differences"][0]["criterion"], Json());
    EXPECT_EQ(json["differences"][0]["path"], "Name");
    const Json changed = {{"criterion", "CircularCurveRad"},
                          {"path", "CircularCurveRad.SuperelevationMinRad[80]"},
                          {"label", "设超高最小半径"},
                          {"key", "车速 80 km/h"},
                          {"left", "250 m"},
                          {"right", "260 m"}};
    EXPECT_EQ(json["differences"][1], changed);
    EXPECT_EQ(json["differences"][2]["left"], "40 m");
    EXPECT_EQ(json["differences"][2]["right"], Json());
}

TEST_F(DiffCommand, TakesNamesIdentitiesFilesAndFolders)
{
    Set({"BeelineLen.MaxLen", "21"});
    Done({"export", "两个#.hds"});
    Done({"export", "一个", "干线"});
    const std::string text = Differ({"城市", "干线"});
    const std::string folder = Utf8(m_folder.Native());
    for (const std::string& left :
         {IdOf("城市"), std::string("两个#.hds#城市"), "./两个#.hds#" + IdOf("城市"),
          folder + "#城市", folder + "/规范#城市", FileOf("城市")})
        for (const std::string& right : {std::string("一个"), FileOf("干线"),
                                         std::string("两个#.hds#干线"), std::string("./一个#干线")})
            EXPECT_EQ(Differ({left, right}), text) << left << ' ' << right;
}

TEST_F(DiffCommand, NeedsNoProjectForFiles)
{
    Done({"export", "两个.hds"});
    const TemporaryFolder other;
    const std::string file = Utf8(m_folder.Native("两个.hds"));
    const ProcessResult result = CallIn(other.Native(), {"diff", file + "#城市", file + "#干线"});
    EXPECT_EQ(result.status, 1) << result.err;
    EXPECT_THAT(result.out, HasSubstr("名称"));
}

TEST_F(DiffCommand, SaysWhatCannotBeFound)
{
    Done({"export", "两个.hds"});
    Fails(2, "没有设计规范“高速”,也没有这个文件。可选:\n  城市\n  干线", {"diff", "城市", "高速"});
    Fails(3, "没有.hds: 文件不存在", {"diff", "城市", "没有.hds"});
    Fails(3, "没有/x: 文件不存在", {"diff", "城市", "没有/x"});
    Fails(2, "“两个.hds”不止一个设计规范,请写作“两个.hds#名称”。可选:\n  城市\n  干线",
          {"diff", "城市", "两个.hds"});
    Fails(2, "“两个.hds”中没有设计规范“高速”。可选:\n  城市", {"diff", "城市", "两个.hds#高速"});
    Fails(2, "不能为空", {"diff", ""});
    Fails(2, "缺少 A", {"diff"});
    m_folder.Write("坏.hds", "<StyleLibrary>");
    Fails(3, "坏.hds:1: ", {"diff", "城市", "坏.hds"});
    m_folder.Write("空.hds", "<StyleLibrary/>");
    Fails(3, "空.hds:1: 文件中没有“设计规范”的样式", {"diff", "城市", "空.hds"});
    std::filesystem::create_directory(m_folder.Native("夹"));
    Fails(3, "不是项目文件夹,其中没有“规范”文件夹", {"diff", "城市", "./夹"});
}

} // namespace
