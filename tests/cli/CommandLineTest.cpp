#include "base/Text.h"
#include "model/ValuePath.h"
#include "roads/Rules.h"
#include "tests/cli/CommandTest.h"

using namespace designspec;

namespace {

using CommandLine = CommandTest;

const Words kCommands = {"list",    "show", "query",  "new",    "rename", "remove",   "restore",
                         "default", "set",  "export", "import", "names",  "template", "check"};

TEST_F(CommandLine, HelpListsEveryCommandAndGlobalOption)
{
    for (const char* option : {"--help", "-h"}) {
        const std::string help = Done({option});
        for (const std::string& command : kCommands)
            EXPECT_THAT(help, HasSubstr("\n  " + command + " "));
        for (const char* word :
             {"--project DIR", "--spec NAME", "--json", "--version", "用法:", "退出状态: 0", "例:"})
            EXPECT_THAT(help, HasSubstr(word));
    }
}

TEST_F(CommandLine, HelpOfACommandListsItsArgumentsAndOptions)
{
    const std::vector<std::pair<std::string, Words>> uses = {
        {"list", {"--deleted"}},
        {"show", {"CRITERION"}},
        {"query",
         {"PATH", "--speed V", "--mode M", "--grad G", "--max-super M", "--radius R",
          "--tolerance T", "--car TYPE"}},
        {"new", {"NAME", "--from NAME", "--force"}},
        {"rename", {"OLD", "NEW"}},
        {"remove", {"NAME"}},
        {"restore", {"NAME"}},
        {"default", {"NAME"}},
        {"set", {"PATH", "VALUE", "--speed V", "--unset", "--force"}},
        {"export", {"FILE", "NAME"}},
        {"import", {"FILE", "NAME", "--overwrite", "--force"}},
        {"names", {"FILE"}},
        {"template", {"DIR"}},
        {"check", {}},
    };
    EXPECT_EQ(uses.size(), kCommands.size());
    for (const auto& [command, words] : uses) {
        const std::string help = Done({command, "--help"});
        EXPECT_THAT(help, HasSubstr("designspec " + command));
        for (const std::string& word : words)
            EXPECT_THAT(help, HasSubstr("\n  " + word)) << command;
        EXPECT_THAT(help, Not(HasSubstr("TEXT"))) << command;
        EXPECT_THAT(help, Not(HasSubstr("Options"))) << command;
    }
}

TEST_F(CommandLine, HelpOfQueryAndSetListsEveryField)
{
    for (const char* command : {"query", "set"}) {
        const std::string help = Done({command, "--help"});
        for (const CriterionInfo& criterion : Criteria()) {
            EXPECT_THAT(help, HasSubstr("\n  " + ToUtf8(criterion.name) + "  "));
            for (const PathLabel& one : PathsOf(criterion)) {
                const size_t at = help.find("\n    " + ToUtf8(one.path) + "  ");
                ASSERT_NE(at, std::string::npos) << ToUtf8(one.path);
                EXPECT_TRUE(
                    help.substr(0, help.find('\n', at + 1)).ends_with("  " + ToUtf8(one.label)))
                    << ToUtf8(one.path);
            }
        }
    }
    EXPECT_THAT(Done({"query", "--help"}),
                HasSubstr("nearest(默认) upper lower interpolate exact"));
    for (const CriterionInfo& criterion : Criteria())
        EXPECT_THAT(Done({"show", "--help"}), HasSubstr("\n  " + ToUtf8(criterion.name) + "  "));
    const std::string rules = Done({"verify", "--help"});
    for (const roadcheck::Rule& rule : roadcheck::Rules()) {
        const std::string id = ToUtf8(rule.id), title = ToUtf8(rule.title);
        EXPECT_THAT(rules, testing::ContainsRegex("\n  " + id + " +" +
                                                  ToUtf8(roadcheck::SeverityLabel(rule.severity)) +
                                                  "  " + title + "\n"));
    }
}

TEST_F(CommandLine, TellsItsVersion)
{
    EXPECT_EQ(Done({"--version"}), "designspec " DESIGNSPEC_VERSION "\n");
}

TEST_F(CommandLine, RefusesACallWithoutOrWithAnUnknownCommand)
{
    Fails(2, "没有命令", {});
    Fails(2, "没有命令“lst”,是不是 list?", {"lst"});
    Fails(2, "没有命令“delete”,是不是 remove?", {"delete", "城市"});
    Fails(2, "没有命令“xyzzy”\n", {"xyzzy"});
    Fails(2, "没有选项“--bogus”\n", {"list", "--bogus"});
    Fails(2, "没有选项“--spede=60”,是不是 --speed?", {"query", "LonGrad.MinGrad", "--spede=60"});
    Fails(2, "没有选项“--jsn”,是不是 --json?", {"list", "--jsn"});
    Fails(2, "多余的参数“x”", {"list", "x"});
    Fails(2, "用 designspec --help 查看用法", {});
    Fails(2, "用 designspec set --help 查看用法", {"set"});
}

// Help for the program is no answer to a command that there is not.
TEST_F(CommandLine, RefusesUnknownWordsBesideHelp)
{
    Fails(2, "没有命令“delete”,是不是 remove?", {"delete", "--help"});
    Fails(2, "没有命令“delete”", {"--help", "delete"});
    Fails(2, "没有命令“delete”", {"--version", "delete"});
    Fails(2, "没有选项“--speed”", {"list", "--speed", "--help"});
    Fails(2, "多余的参数“x”", {"list", "x", "--help"});
}

TEST_F(CommandLine, HelpIsEnglishInAnEnglishLocale)
{
    const auto help = [this](const Words& words) {
        SetVariable("LC_ALL", "en_US.UTF-8");
        const ProcessResult result = Call(words);
        EXPECT_EQ(result.status, 0);
        return result.out;
    };
    const std::string all = help({"--help"});
    EXPECT_THAT(all, HasSubstr("Queries and edits road design specifications."));
    EXPECT_THAT(all, HasSubstr("\nOptions:\n"));
    EXPECT_THAT(all, HasSubstr("\nCommands:\n"));
    EXPECT_THAT(all, HasSubstr("Exit status: 0"));
    for (const char* word : {"用法", "命令", "选项", "退出", "显示"})
        EXPECT_THAT(all, Not(HasSubstr(word)));
    for (const std::string& command : kCommands) {
        EXPECT_THAT(all, HasSubstr("\n  " + command + " "));
        std::string own = help({command, "--help"});
        own = own.substr(0, own.find("\nCriteria")); // labels are what the editor calls them
        for (const char* word : {"用法", "命令", "选项", "名称", "(必需)"})
            EXPECT_THAT(own, Not(HasSubstr(word))) << command;
    }
}

TEST_F(CommandLine, NamesAnOptionWithoutValueOrGivenTwice)
{
    Fails(2, "--speed 后缺少值", {"query", "LonGrad.MinGrad", "--speed"});
    Fails(2, "--project 后缺少值", {"list", "--project"});
    Fails(2, "--spec 只能给一次", {"show", "--spec", "a", "--spec", "b"});
}

TEST_F(CommandLine, SpeaksChineseAlone)
{
    for (const Words& words : std::vector<Words>{{},
                                                 {"x"},
                                                 {"new"},
                                                 {"rename", "a"},
                                                 {"show", "--spec"},
                                                 {"query"},
                                                 {"query", "a", "b"},
                                                 {"set", "--speed"},
                                                 {"list", "--json", "--json=x"}}) {
        const ProcessResult result = Call(words);
        EXPECT_EQ(result.status, 2) << testing::PrintToString(words);
        for (const char* english : {"required", "missing", "Requires", "expected", "argument"})
            EXPECT_THAT(result.err, Not(HasSubstr(english)));
    }
}

TEST_F(CommandLine, TakesGlobalOptionsBeforeAndBehindTheCommand)
{
    New("a");
    New("b");
    const std::string expected = Call({"--json", "--spec", "a", "show"}).out;
    EXPECT_EQ(Call({"show", "--spec", "a", "--json"}).out, expected);
    EXPECT_EQ(Call({"--spec=a", "show", "--json"}).out, expected);
    EXPECT_EQ(Json::parse(expected)["name"], "a");
}

TEST_F(CommandLine, NeedsNoParticularLocale)
{
    New("城市");
    for (const char* locale : {"C", "POSIX", "zh_CN.GB18030", "de_DE.UTF-8", "none"}) {
        SetVariable("LC_ALL", locale);
        const ProcessResult result = Call({"query", "LonGrad.MinGrad", "--spec", "城市"});
        EXPECT_EQ(result.out, "0.3\n") << locale;
    }
}

} // namespace
