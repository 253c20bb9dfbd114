// Real git with the configuration that docs/git.md gives.
#include <regex>

#include "TreePaths.h"
#include "tests/cli/CommandTest.h"

namespace {

class Git : public CommandTest {
protected:
    void SetUp() override
    {
        // Whatever is configured on this machine stays out of it.
        setenv("GIT_CONFIG_GLOBAL", "/dev/null", 1);
        setenv("GIT_CONFIG_SYSTEM", "/dev/null", 1);
        for (const char* who : {"AUTHOR", "COMMITTER"}) {
            setenv((std::string("GIT_") + who + "_NAME").c_str(), "Tester", 1);
            setenv((std::string("GIT_") + who + "_EMAIL").c_str(), "tester@example.org", 1);
        }
        const std::filesystem::path program = DESIGNSPEC_PROGRAM;
        setenv("PATH", (program.parent_path().string() + ":" + getenv("PATH")).c_str(), 1);
        DoneGit({"init", "-q", "-b", "main"});
        Configure();
        New("城市");
        m_file = FileOf("城市");
        Commit("as it was");
    }

    ProcessResult RunGit(Words words) const
    {
        words.insert(words.begin(), {"/usr/bin/git", "-c", "core.quotePath=false"});
        return RunProcess(words, m_folder.Native());
    }
    std::string DoneGit(const Words& words) const
    {
        const ProcessResult result = RunGit(words);
        EXPECT_EQ(result.status, 0) << testing::PrintToString(words) << result.out << result.err;
        return result.out;
    }
    // As a reader does it: the lines of the document go where it says.
    void Configure() const
    {
        std::ifstream file(SOURCE_DIR "/docs/git.md");
        const std::string text(std::istreambuf_iterator<char>(file), {});
        const std::regex block("```(gitattributes|gitignore|sh)\n([^`]*)```");
        int count = 0;
        for (std::sregex_iterator found(text.begin(), text.end(), block), end; found != end;
             ++found, ++count) {
            const std::string what = (*found)[1].str(), lines = (*found)[2].str();
            if (what != "sh")
                m_folder.Write("." + what, lines);
            else
                EXPECT_EQ(RunProcess({"/bin/sh", "-ec", lines}, m_folder.Native()).status, 0);
        }
        ASSERT_EQ(count, 3);
    }
    void Commit(const std::string& what) const
    {
        DoneGit({"add", "."});
        DoneGit({"commit", "-qm", what});
    }
    void Set(const std::string& speed, const std::string& value) const
    {
        Done({"set", "LonGradMinLen.MinLens", "--speed", speed, value});
    }
    std::string Value(const std::string& speed) const
    {
        return Done({"query", "LonGradMinLen.MinLens", "--speed", speed});
    }

    std::string m_file;
};

TEST_F(Git, MergesBranchesThatChangeDifferentSpeedsOfOneTable)
{
    DoneGit({"checkout", "-qb", "theirs"});
    Set("60", "202");
    Commit("theirs");
    DoneGit({"checkout", "-q", "main"});
    Set("50", "151"); // stands on the next line
    Commit("ours");
    DoneGit({"merge", "-q", "theirs"});
    EXPECT_EQ(Value("60"), "202\n");
    EXPECT_EQ(Value("50"), "151\n");
    EXPECT_EQ(DoneGit({"status", "--porcelain"}), "");
    EXPECT_EQ(Call({"check"}).status, 0);
}

TEST_F(Git, StopsAtAConflictAndNamesTheValue)
{
    DoneGit({"checkout", "-qb", "theirs"});
    Set("60", "202");
    Commit("theirs");
    DoneGit({"checkout", "-q", "main"});
    Set("60", "201");
    Commit("ours");
    const ProcessResult result = RunGit({"merge", "theirs"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out + result.err,
                HasSubstr("最小坡长  车速 60 km/h  原值  170 m  我方  201 m  对方  202 m"));
    EXPECT_THAT(DoneGit({"status", "--porcelain"}), testing::StartsWith("UU "));
    EXPECT_EQ(Value("60"), "201\n"); // a whole file, no marks of a conflict in it
}

TEST_F(Git, ShowsChangesAsThePagesShowThem)
{
    Set("60", "202");
    const std::string shown = DoneGit({"diff"});
    EXPECT_THAT(shown, HasSubstr("\n-  最小坡长(m)"));
    EXPECT_THAT(shown, HasSubstr("\n+  最小坡长(m)"));
    EXPECT_THAT(shown, Not(HasSubstr("<Item")));
}

} // namespace
