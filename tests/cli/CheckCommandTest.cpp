#include "tests/cli/CommandTest.h"

namespace {

class CheckCommand : public CommandTest {
protected:
    void SetUp() override { New("城市"); }

    // Expects exactly one finding; its text.
    std::string Finding(int status, const std::string& level, const std::string& file) const
    {
        const ProcessResult result = Call({"check", "--json"});
        EXPECT_EQ(result.status, status) << result.err;
        const Json findings = Json::parse(result.out, nullptr, false);
        EXPECT_EQ(findings.size(), 1U) << result.out;
        if (findings.size() != 1) return {};
        EXPECT_EQ(findings[0]["level"], level);
        EXPECT_THAT(findings[0]["file"].get<std::string>(), testing::EndsWith("/" + file));
        const std::string text = findings[0]["text"];
        EXPECT_THAT(Call({"check"}).out, HasSubstr(text));
        return text;
    }
    std::string Content() const { return m_folder.Read(FileOf("城市")); }
    std::string FileName() const { return Entry("城市")["file"]; }
    void Change(const std::string& what, const std::string& by) const
    {
        m_folder.Write(FileOf("城市"), Replaced(Content(), what, by));
    }
    static std::ptrdiff_t LineAt(const std::string& text, size_t at)
    {
        return 1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n');
    }
    // The library file as another specification.
    std::string Other(const std::string& name, const std::string& id) const
    {
        const std::string own = IdOf("城市");
        return Replaced(Replaced(Content(), own, id), R"(Name="城市" ID)",
                        "Name=\"" + name + "\" ID");
    }
};

constexpr char kOtherId[] = "00000000-0000-0000-0000-000000000001";

TEST_F(CheckCommand, SaysWhenThereIsNothingOdd)
{
    const ProcessResult result = Call({"check"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "designspec: 未发现异常\n");
    EXPECT_EQ(DoneJson({"check"}), Json::array());
}

TEST_F(CheckCommand, FindsAnUnreadableFile)
{
    m_folder.Write("规范/bad.hds", "\n<StyleLibrary>");
    EXPECT_THAT(Finding(3, "error", "bad.hds"), HasSubstr("XML"));
    EXPECT_THAT(Call({"check"}).out, HasSubstr("bad.hds:2: "));
}

TEST_F(CheckCommand, FindsAnIdentityThatTwoFilesHave)
{
    const std::string id = IdOf("城市");
    const std::string name = "副本" + id + ".hds";
    m_folder.Write("规范/" + name, Other("副本", id));
    EXPECT_THAT(Finding(3, "error", FileName()), HasSubstr("标识相同"));
}

TEST_F(CheckCommand, FindsNamesThatClash)
{
    const std::string name = std::string("城市") + kOtherId + ".hds";
    m_folder.Write("规范/" + name, Other("城市", kOtherId));
    const ProcessResult result = Call({"check"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, HasSubstr("样式“城市”重名,改称“城市(1)”"));
}

TEST_F(CheckCommand, FindsAFileNameThatDoesNotMatch)
{
    const std::string expected = FileName();
    std::filesystem::rename(m_folder.Native("规范/" + expected), m_folder.Native("规范/foo.hds"));
    EXPECT_EQ(Finding(0, "note", "foo.hds"), "文件名与名称和标识不符,应为 " + expected);
}

TEST_F(CheckCommand, FindsALeftOverOfASaving)
{
    // Such a file is what a saving process leaves that ends between writing and renaming.
    const std::string name = ".designspec-0123456789.tmp";
    m_folder.Write("规范/" + name, "half");
    EXPECT_EQ(Finding(0, "note", name), "中断的保存留下的临时文件,可以删除");
}

TEST_F(CheckCommand, FindsATableOutOfOrder)
{
    Change(R"(<Item speed="80" value="250" />)", R"(<Item speed="55" value="250" />)");
    EXPECT_THAT(Call({"check"}).out, HasSubstr("SuperelevationMinRad 的各项未按 speed 排序"));
}

TEST_F(CheckCommand, FindsASpeedThatATableHoldsTwice)
{
    Change(R"(<Item speed="80" value="250" />)",
           R"(<Item speed="80" value="250" /><Item speed="80" value="251" />)");
    EXPECT_EQ(Finding(0, "note", FileName()), "车速 80 不止一次, 编辑后只留最后一个值");
}

TEST_F(CheckCommand, FindsOddNestedTables)
{
    Change(R"(<Item Grad="5.5">)", R"(<Item Grad="5">)");
    EXPECT_EQ(Finding(0, "note", FileName()), "坡度 5% 不止一次, 查询只用第一个");
    Change(R"(<Items speed="60">)", R"(<Items speed="45">)");
    EXPECT_THAT(Call({"check"}).out, HasSubstr("车速没有从高到低排列, 查询会用错行"));
}

TEST_F(CheckCommand, TellsWhatTheEditorRefusesToStore)
{
    const std::string maximum = "MaxSuperElev.MaxSuperElev";
    Call({"set", maximum, "--speed", "80", "25", "--force"});
    Change(R"(maxRadius="150" />)", R"(maxRadius="149" />)");
    const Json findings = DoneJson({"check"});
    ASSERT_GE(findings.size(), 2U);
    EXPECT_EQ(findings[0]["path"], maximum + "[80]");
    EXPECT_EQ(findings[0]["level"], "error");
    EXPECT_EQ(findings[0]["text"], "设计车速 80 对应的 最大超高 值不合法, 必须在0~20之间!");
    EXPECT_EQ(findings[1]["path"], "SuperElevation.definitions[4].rows[50].ranges[110~149]");
    EXPECT_EQ(findings[1]["text"], "最大超高 4% 在 车速 50km/h 时, 超高 4% 的最大"
                                   "圆曲线半径应该为 3% 的最小圆曲线半径!");
    EXPECT_EQ(Lines(Call({"check"}).out).size(), findings.size());
}

TEST_F(CheckCommand, FindsTheLinesInAFileOfSeveral)
{
    Done({"new", "乡村"});
    Done({"export", "both.hds"});
    Call({"remove", "城市"});
    Call({"remove", "乡村"});
    std::string both = m_folder.Read("both.hds");
    const size_t at = both.rfind("<MinGrad>0.3");
    m_folder.Write("规范/both.hds", both.insert(at + 12, "5"));
    const Json findings = DoneJson({"check"});
    ASSERT_EQ(findings.size(), 3U); // two are about the name of the file
    EXPECT_EQ(findings[2]["path"], "LonGrad.MinGrad");
    EXPECT_EQ(findings[2]["line"], LineAt(both, at));
}

TEST_F(CheckCommand, GivesTheLineOfTheTableWhereAValueIsMissing)
{
    std::string content = Content();
    const size_t table = content.find("<CircularCurveMinLen>");
    const size_t item = content.find("<Item speed=\"60\"", table);
    content.erase(item, content.find("/>", item) + 2 - item);
    m_folder.Write(FileOf("城市"), content);
    const Json findings = DoneJson({"check"});
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0]["path"], "CurveMinLen.CircularCurveMinLen[60]");
    EXPECT_EQ(findings[0]["line"], LineAt(content, table));
}

TEST_F(CheckCommand, GivesTheLineOfAFinding)
{
    const Json none = DoneJson({"check"});
    Change(R"(<Item speed="80" value="250" />)",
           "<Item speed=\"80\" value=\"250\" />\n<Item speed=\"80\" value=\"251\" />");
    const auto line = LineAt(Content(), Content().find(R"(value="251")"));
    const Json findings = DoneJson({"check"});
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0]["line"], line);
}

} // namespace
