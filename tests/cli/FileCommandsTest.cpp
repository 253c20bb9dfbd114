#include "tests/cli/CommandTest.h"

namespace {

class FileCommands : public CommandTest {
protected:
    void SetUp() override
    {
        New("城市");
        New("乡村");
    }
    std::vector<std::string> NamesIn(const std::string& file) const
    {
        std::vector<std::string> names;
        for (const Json& entry : DoneJson({"names", file}))
            names.push_back(entry["name"]);
        return names;
    }
    std::string MaxRad(const std::string& spec) const
    {
        return Done({"query", "--spec", spec, "CircularCurveRad.MaxRad"});
    }
    // Another, empty project beside this one.
    std::filesystem::path OtherProject() const
    {
        std::filesystem::create_directories(m_folder.Native("other"));
        return m_folder.Native("other");
    }
};

using Strings = std::vector<std::string>;

TEST_F(FileCommands, ExportAll)
{
    EXPECT_EQ(Done({"export", "all.hds"}), "");
    EXPECT_EQ(NamesIn("all.hds"), (Strings{"乡村", "城市"}));
}

TEST_F(FileCommands, ExportTheNamedOnesInAnyCase)
{
    New("City");
    EXPECT_EQ(Done({"export", "some.hds", "城市", "CITY"}), "");
    EXPECT_EQ(NamesIn("some.hds"), (Strings{"城市", "City"}));
}

TEST_F(FileCommands, ANameInBracketsIsAName)
{
    New("[公路二级]");
    New("[]");
    EXPECT_EQ(Done({"export", "some.hds", "[公路二级]", "[]"}), "");
    EXPECT_EQ(NamesIn("some.hds"), (Strings{"[公路二级]", "[]"}));
    const auto other = OtherProject();
    EXPECT_EQ(CallIn(other, {"import", "../some.hds", "[公路二级]"}).status, 0);
    EXPECT_EQ(Json::parse(CallIn(other, {"list", "--json"}).out).at(0).at("name"), "[公路二级]");
    EXPECT_EQ(CallIn(other, {"import", "../some.hds", "[]", "[公路二级]"}).status, 0);
    EXPECT_EQ(Json::parse(CallIn(other, {"list", "--json"}).out).size(), 2U);
}

// A file's names must not move the cursor of a terminal, nor make two lines of one.
TEST_F(FileCommands, WhatActsOnALineIsShownInstead)
{
    m_folder.Write("odd.hds", "<StyleLibrary><Group Name='设计规范'><Styles Name='设计规范'>"
                              "<Style Name='a&#10;b&#9;c&#x85;&#x202E;d' ID='"
                              "AAAAAAAA-0000-4000-8000-00000000000A'/>"
                              "</Styles></Group></StyleLibrary>");
    const std::string shown = "a\\nb\\tc\\x85\\u202Ed";
    EXPECT_THAT(Done({"names", "odd.hds"}), HasSubstr(shown));
    std::filesystem::copy_file(m_folder.Native("odd.hds"), m_folder.Native("规范/odd.hds"));
    EXPECT_THAT(Call({"list"}).out, HasSubstr(shown));
    EXPECT_THAT(Call({"query", "--spec", "x", "CircularCurveRad.MaxRad"}).err, HasSubstr(shown));
}

TEST_F(FileCommands, ExportSaysWhichNameThereIsNot)
{
    const ProcessResult result = Call({"export", "some.hds", "公路", "城市"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("没有名为“公路”的样式"));
    EXPECT_EQ(NamesIn("some.hds"), (Strings{"城市"}));
}

TEST_F(FileCommands, ExportKeepsTheOthersOfTheFile)
{
    Done({"export", "f.hds", "城市"});
    Done({"set", "--spec", "乡村", "CircularCurveRad.MaxRad", "5"});
    Done({"export", "f.hds", "乡村"});
    EXPECT_EQ(NamesIn("f.hds"), (Strings{"城市", "乡村"}));
    Done({"set", "--spec", "乡村", "CircularCurveRad.MaxRad", "6"});
    Done({"export", "f.hds", "乡村"});
    EXPECT_EQ(NamesIn("f.hds"), (Strings{"城市", "乡村"}));
    EXPECT_THAT(m_folder.Read("f.hds"), HasSubstr("<MaxRad>6</MaxRad>"));
    EXPECT_THAT(m_folder.Read("f.hds"), Not(HasSubstr("<MaxRad>5</MaxRad>")));
}

TEST_F(FileCommands, ExportLeavesAFileThatIsNoneOfItsOwn)
{
    m_folder.Write("notes.txt", "not XML");
    Fails(3, "notes.txt", {"export", "notes.txt"});
    EXPECT_EQ(m_folder.Read("notes.txt"), "not XML");
    Fails(3, "nowhere/f.hds", {"export", "nowhere/f.hds"});
}

TEST_F(FileCommands, ImportIntoANewProject)
{
    Done({"export", "all.hds"});
    const auto other = OtherProject();
    const ProcessResult result = CallIn(other, {"import", "../all.hds"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(CallIn(other, {"list"}).out, Done({"list"}));
}

TEST_F(FileCommands, ImportOnlyTheNamedOnes)
{
    Done({"export", "all.hds"});
    const auto other = OtherProject();
    EXPECT_EQ(CallIn(other, {"import", "../all.hds", "城市", "公路"}).status, 0);
    const Json list = Json::parse(CallIn(other, {"list", "--json"}).out);
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0]["name"], "城市");
}

TEST_F(FileCommands, ImportLeavesWhatIsThereUnlessToldToOverwrite)
{
    Done({"export", "all.hds"});
    Done({"set", "--spec", "城市", "CircularCurveRad.MaxRad", "5"});
    const ProcessResult kept = Call({"import", "all.hds"});
    EXPECT_EQ(kept.status, 0);
    EXPECT_THAT(kept.err, HasSubstr("未导入"));
    EXPECT_EQ(MaxRad("城市"), "5\n");
    EXPECT_EQ(Call({"import", "all.hds", "--overwrite", "乡村"}).status, 0);
    EXPECT_EQ(MaxRad("城市"), "5\n");
    EXPECT_EQ(Call({"import", "all.hds", "--overwrite"}).status, 0);
    EXPECT_EQ(MaxRad("城市"), "10000\n");
    EXPECT_EQ(Names(), (Strings{"乡村", "城市"}));
}

TEST_F(FileCommands, ImportOfNothingSaysSo)
{
    Done({"export", "all.hds"});
    Fails(1, "文件中没有名为“公路”的样式\n", {"import", "all.hds", "公路"});
    Fails(1, "没有导入任何设计规范\n", {"import", "all.hds", "公路"});
    m_folder.Write(
        "empty.hds",
        R"(<StyleLibrary><Group Name="设计规范"><Styles Name="设计规范"/></Group></StyleLibrary>)");
    Fails(1, "没有导入任何设计规范", {"import", "empty.hds"});
    EXPECT_EQ(Json::parse(Call({"import", "empty.hds", "--json"}).out), Json::array());
    EXPECT_EQ(Names(), (Strings{"乡村", "城市"}));
}

TEST_F(FileCommands, ImportPrintsWhatItTookAsJson)
{
    Done({"export", "all.hds"});
    const auto other = OtherProject();
    CallIn(other, {"import", "../all.hds", "城市"});
    Json expected = Json::array({{{"name", "乡村"},
                                  {"id", IdOf("乡村")},
                                  {"file", Entry("乡村")["file"]},
                                  {"how", "added"},
                                  {"saved", true}},
                                 {{"name", "城市"},
                                  {"id", IdOf("城市")},
                                  {"file", Entry("城市")["file"]},
                                  {"how", "left"},
                                  {"saved", true}}});
    EXPECT_EQ(Json::parse(CallIn(other, {"import", "../all.hds", "--json"}).out), expected);
    expected[0]["how"] = expected[1]["how"] = "overwritten";
    EXPECT_EQ(Json::parse(CallIn(other, {"import", "../all.hds", "--overwrite", "--json"}).out),
              expected);
}

// A page of the editor would not store it.
TEST_F(FileCommands, ImportRefusesFaultsThatItWouldBringIn)
{
    const Words wrong = {"set",     "--spec", "城市", "MaxSuperElev.MaxSuperElev",
                         "--speed", "80",     "25",   "--force"};
    EXPECT_EQ(Call(wrong).status, 0);
    Done({"export", "all.hds"});
    const auto other = OtherProject();
    const ProcessResult refused = CallIn(other, {"import", "../all.hds"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.err,
                HasSubstr("没有导入,编辑器不接受其中的值:\n  “城市” "
                          "MaxSuperElev.MaxSuperElev[80]: 设计车速 80 对应的 最大超高 值不合法"));
    EXPECT_FALSE(m_folder.Has("other/规范"));
    EXPECT_EQ(CallIn(other, {"import", "../all.hds", "乡村"}).status, 0);
    const ProcessResult forced = CallIn(other, {"import", "../all.hds", "城市", "--force"});
    EXPECT_EQ(forced.status, 0);
    EXPECT_THAT(forced.err, HasSubstr("“城市” MaxSuperElev.MaxSuperElev[80]"));
    // What has the fault already may be overwritten by what has it too, or is left.
    EXPECT_EQ(CallIn(other, {"import", "../all.hds"}).status, 0);
    EXPECT_EQ(CallIn(other, {"import", "../all.hds", "--overwrite"}).status, 0);
    CallIn(other, {"set", "--spec", "城市", "MaxSuperElev.MaxSuperElev", "--speed", "80", "6"});
    EXPECT_EQ(CallIn(other, {"import", "../all.hds", "--overwrite"}).status, 2);
}

TEST_F(FileCommands, ImportMakesAnEqualNameUnique)
{
    const auto other = OtherProject();
    CallIn(other, {"new", "城市"});
    CallIn(other, {"export", "../other.hds"});
    const ProcessResult result = Call({"import", "other.hds"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("改称“城市(1)”"));
    EXPECT_EQ(Names(), (Strings{"乡村", "城市(1)", "城市"}));
}

TEST_F(FileCommands, ImportTakesTheFileRelativeToTheCurrentFolder)
{
    Done({"export", "all.hds"});
    OtherProject();
    EXPECT_EQ(Done({"--project", "other", "import", "all.hds"}), "");
    EXPECT_EQ(Done({"--project", "other", "export", "back.hds"}), "");
    EXPECT_TRUE(m_folder.Has("back.hds"));
    EXPECT_EQ(Done({"--project", "other", "template", "tmpl"}), "");
    EXPECT_TRUE(m_folder.Has("tmpl/规范"));
}

TEST_F(FileCommands, ImportFailsWithoutTheFile)
{
    Fails(3, "none.hds", {"import", "none.hds"});
    m_folder.Write("bad.hds", "<StyleLibrary>");
    Fails(3, "bad.hds:1", {"import", "bad.hds"});
    EXPECT_EQ(Names(), (Strings{"乡村", "城市"}));
}

TEST_F(FileCommands, NamesNeedNoProject)
{
    Done({"export", "all.hds", "城市"});
    const auto other = OtherProject();
    EXPECT_EQ(CallIn(other, {"names", "../all.hds"}).out, "城市  " + IdOf("城市") + "\n");
    EXPECT_FALSE(m_folder.Has("other/规范"));
    EXPECT_EQ(DoneJson({"names", "all.hds"}),
              Json::array({{{"name", "城市"}, {"id", IdOf("城市")}}}));
    Fails(3, "none.hds", {"names", "none.hds"});
}

TEST_F(FileCommands, NamesAlignTheIdentities)
{
    New("a");
    Done({"export", "all.hds"});
    EXPECT_EQ(Done({"names", "all.hds"}),
              "a     " + IdOf("a") + "\n乡村  " + IdOf("乡村") + "\n城市  " + IdOf("城市") + "\n");
}

TEST_F(FileCommands, TemplateCopiesEverySpecificationAndTheDefault)
{
    Done({"default", "城市"});
    EXPECT_EQ(Done({"template", "tmpl/a"}), "");
    const auto target = m_folder.Native("tmpl/a");
    EXPECT_EQ(CallIn(target, {"list"}).out, Done({"list"}));
    EXPECT_EQ(CallIn(target, {"default"}).out, "城市\n");
    Done({"set", "--spec", "城市", "CircularCurveRad.MaxRad", "5"});
    EXPECT_EQ(Done({"template", "tmpl/a"}), "");
    EXPECT_EQ(CallIn(target, {"query", "CircularCurveRad.MaxRad"}).out, "5\n");
}

TEST_F(FileCommands, TemplateFailsWhereNoFolderCanBe)
{
    m_folder.Write("file", "");
    Fails(3, "file", {"template", "file"});
}

TEST_F(FileCommands, EachNeedsItsArguments)
{
    Fails(2, "缺少 FILE", {"export"});
    Fails(2, "缺少 FILE", {"import"});
    Fails(2, "缺少 FILE", {"names"});
    Fails(2, "缺少 DIR", {"template"});
    Fails(2, "多余的参数“b”", {"names", "a", "b"});
}

} // namespace
