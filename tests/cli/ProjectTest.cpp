#include "base/Text.h"
#include "tests/cli/CommandTest.h"

using namespace designspec;

namespace {

class Project : public CommandTest {
protected:
    std::string MaxRadOf(Words words) const
    {
        words.insert(words.begin(), {"query", "CircularCurveRad.MaxRad"});
        return Done(words);
    }
};

TEST_F(Project, IsTheCurrentFolderOrTheOneNamed)
{
    New("城市");
    std::filesystem::create_directory(m_folder.Native("sub"));
    const auto query = [&](const std::string& project) {
        return CallIn(m_folder.Native("sub"),
                      {"--project", project, "query", "CircularCurveRad.MaxRad"});
    };
    EXPECT_EQ(query("..").out, "10000\n");
    EXPECT_EQ(query("../").out, "10000\n");
    EXPECT_EQ(query(Utf8(m_folder.Native())).out, "10000\n");
    EXPECT_EQ(query("../sub/..").out, "10000\n");
    const ProcessResult after = CallIn("/", {"list", "--project", Utf8(m_folder.Native())});
    EXPECT_EQ(after.status, 0);
    EXPECT_THAT(after.out, HasSubstr("城市"));
}

TEST_F(Project, FailsWhenItDoesNotExist)
{
    for (const Words& words : std::vector<Words>{{"list"}, {"new", "a"}, {"check"}, {"default"}}) {
        Words all = words;
        all.insert(all.end(), {"--project", "nowhere"});
        Fails(3, "nowhere: 项目文件夹不存在", all);
    }
    EXPECT_FALSE(m_folder.Has("nowhere"));
    Fails(2, "--project: 不能为空", {"list", "--project", ""});
}

TEST_F(Project, FailsWithoutALibraryFolderExceptWhenOneIsMade)
{
    for (const Words& words : std::vector<Words>{{"list"},
                                                 {"show"},
                                                 {"query", "LonGrad.MinGrad"},
                                                 {"rename", "a", "b"},
                                                 {"remove", "a"},
                                                 {"default"},
                                                 {"set", "LonGrad.MinGrad", "1"},
                                                 {"export", "x.hds"},
                                                 {"template", "x"},
                                                 {"check"}})
        Fails(3, "不是项目文件夹,其中没有“规范”文件夹", words);
    EXPECT_FALSE(m_folder.Has("规范"));
    New("a");
    EXPECT_TRUE(m_folder.Has("规范"));
}

TEST_F(Project, FindsASpecificationByNameInAnyCaseOrByIdentity)
{
    New("City");
    New("b");
    Done({"set", "--spec", "City", "CircularCurveRad.MaxRad", "5"});
    const std::string id = IdOf("City");
    std::string lower = id;
    for (char& c : lower)
        c = static_cast<char>(std::tolower(c));
    for (const std::string& name :
         {std::string("City"), std::string("cITY"), id, lower, "{" + id + "}", "{" + lower + "}"})
        EXPECT_EQ(MaxRadOf({"--spec", name}), "5\n") << name;
}

TEST_F(Project, TakesTheDefaultSpecification)
{
    New("a");
    New("b");
    Done({"set", "--spec", "b", "CircularCurveRad.MaxRad", "5"});
    Done({"default", "b"});
    EXPECT_EQ(MaxRadOf({}), "5\n");
    EXPECT_EQ(MaxRadOf({"--spec", "a"}), "10000\n");
}

TEST_F(Project, TakesTheOnlySpecification)
{
    New("a");
    EXPECT_EQ(MaxRadOf({}), "10000\n");
}

TEST_F(Project, ListsTheNamesWhenThereAreSeveralAndNoDefault)
{
    New("b");
    New("a");
    const std::string text = "没有默认的设计规范,请用 --spec 指定。可选:\n  a\n  b\n";
    Fails(2, text, {"query", "CircularCurveRad.MaxRad"});
    Fails(2, text, {"show"});
    Fails(2, text, {"set", "CircularCurveRad.MaxRad", "5"});
    Fails(2, "没有设计规范“c”。可选:\n  a\n  b\n", {"show", "--spec", "c"});
    Fails(2, "没有设计规范“”", {"show", "--spec", ""});
}

TEST_F(Project, SaysSoWhenThereIsNoSpecification)
{
    m_folder.Write("规范/readme.txt", "");
    Fails(2, "项目中没有设计规范", {"show"});
}

TEST_F(Project, ReadsFilesInOlderEncodings)
{
    New("城市");
    const std::string file = FileOf("城市");
    const std::string text =
        Replaced(m_folder.Read(file), R"(<?xml version="1.0" encoding="UTF-8"?>)", "");
    std::string utf16 = "\xFF\xFE";
    for (wchar_t c : ToWide(text)) {
        utf16 += static_cast<char>(c & 0xFF);
        utf16 += static_cast<char>(c >> 8);
    }
    m_folder.Write(file, utf16);
    EXPECT_EQ(Done({"query", "--spec", "城市", "LonGrad.MinGrad"}), "0.3\n");
}

} // namespace
