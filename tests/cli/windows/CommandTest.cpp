// The command as a program for Windows.
#include "tests/cli/CommandTest.h"
#include "base/File.h"

namespace {

class WindowsCommand : public CommandTest {
protected:
    WindowsCommand() { std::filesystem::create_directory(m_folder.Native("规范")); }
    // The standard library takes names of devices for the devices, and cannot delete such files.
    ~WindowsCommand() override
    {
        Problems problems;
        for (const CString& folder : {m_folder.Path(), m_folder.Path(L"规范")})
            for (const CString& file : FindFiles(folder, L".hds", problems))
                DeleteFile(folder + L'/' + file, problems);
        EXPECT_TRUE(problems.empty());
    }

    bool IsThere(const std::string& below) const
    {
        return PathFileExists(m_folder.Path(ToWide(below)));
    }
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
        EXPECT_TRUE(IsThere(FileOf(name))) << name;
    }
    EXPECT_EQ(Names().size(), 5U);
    EXPECT_EQ(Call({"check"}).err, "designspec: 未发现异常\n");
    EXPECT_EQ(Done({"rename", "NUL", "LPT1"}), "");
    EXPECT_TRUE(IsThere(FileOf("LPT1")));
    EXPECT_EQ(Call({"remove", "com1.hds"}).status, 0);
    EXPECT_EQ(Done({"restore", "com1.hds"}), "");
    EXPECT_EQ(Done({"export", "NUL.hds", "CON"}), "");
    EXPECT_TRUE(IsThere("NUL.hds"));
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
    EXPECT_EQ(Call({"check"}).err, "designspec: 未发现异常\n");
}

TEST_F(WindowsCommand, RenamesByAnotherCaseAndLeavesNoOldFile)
{
    New("road");
    EXPECT_EQ(Done({"rename", "ROAD", "street"}), "");
    Problems problems;
    EXPECT_EQ(FindFiles(m_folder.Path(L"规范"), L".hds", problems),
              CStringArray{ToWide(FileOf("street")).substr(3)});
}

TEST_F(WindowsCommand, TakesPathsWithBackslashesAndDrives)
{
    New("甲");
    const std::string project = m_folder.Native().string(); // C:\…
    EXPECT_EQ(project.substr(1, 2), ":\\");
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
