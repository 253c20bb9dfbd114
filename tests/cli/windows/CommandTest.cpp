// The command as a program for Windows.
#include "tests/cli/CommandTest.h"

namespace {

class WindowsCommand : public CommandTest {
protected:
    WindowsCommand() { std::filesystem::create_directory(m_folder.Native("规范")); }
};

} // namespace

TEST_F(WindowsCommand, TakesAndGivesEveryCharacter)
{
    New("城市𠮷道路");
    EXPECT_EQ(Names(), std::vector<std::string>{"城市𠮷道路"});
    EXPECT_TRUE(m_folder.Has(FileOf("城市𠮷道路")));
    const std::string quoted = R"(a "b" \ c\)";
    Fails(2, "没有设计规范“" + quoted + "”", {"show", "--spec", quoted, "LonGrad"});
}

TEST_F(WindowsCommand, EndsLinesAsOnAllSystems)
{
    New("甲");
    EXPECT_EQ(Done({"list"}).find('\r'), std::string::npos);
    EXPECT_EQ(Done({"--version"}), "designspec " DESIGNSPEC_VERSION "\n");
    EXPECT_EQ(m_folder.Read(FileOf("甲")).find('\r'), std::string::npos);
}

TEST_F(WindowsCommand, KeepsNamesThatNoFileOfItsOwnCanHave)
{
    for (const char* name : {"CON", "NUL", "com1.hds", "甲.", "乙 ."}) {
        New(name);
        EXPECT_TRUE(m_folder.Has(FileOf(name))) << name;
    }
    EXPECT_EQ(Names().size(), 5U);
    EXPECT_EQ(Done({"check"}), "未发现异常\n");
    EXPECT_EQ(Done({"export", "NUL.hds", "CON"}), "");
    EXPECT_EQ(Call({"--json", "diff", "NUL.hds", "CON"}).status, 0);
}

TEST_F(WindowsCommand, RenamesByCaseAlone)
{
    New("road");
    const std::string id = IdOf("road");
    EXPECT_EQ(Done({"rename", "road", "ROAD"}), "");
    EXPECT_EQ(Names(), std::vector<std::string>{"ROAD"});
    EXPECT_EQ(IdOf("ROAD"), id);
    EXPECT_EQ(FileOf("ROAD"), "规范/ROAD" + id + ".hds");
    EXPECT_EQ(Done({"check"}), "未发现异常\n");
}

TEST_F(WindowsCommand, TakesPathsWithBackslashesAndDrives)
{
    New("甲");
    const std::string project = m_folder.Native().string(); // C:\…
    EXPECT_EQ(project[1], ':');
    const auto called = CallIn(m_folder.Native().parent_path(), {"--project", project, "list"});
    EXPECT_EQ(called.status, 0) << called.err;
    EXPECT_EQ(Done({"export", ".\\导出.hds", "甲"}), "");
    EXPECT_TRUE(m_folder.Has("导出.hds"));
}

TEST_F(WindowsCommand, SaysThatItHasNoSpreadsheets)
{
    New("甲");
    Fails(2, "此程序没有电子表格功能", {"sheet", "write", "甲", "a.xlsx"});
}
