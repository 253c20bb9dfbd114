#include "tests/cli/CommandTest.h"

namespace {

// The files of a specification: as it was, and as two people have changed it.
class MergeCommand : public CommandTest {
protected:
    void SetUp() override
    {
        New("城市");
        m_file = FileOf("城市");
        Copy("原.hds");
    }

    void Copy(const std::string& name) const { m_folder.Write(name, m_folder.Read(m_file)); }
    // Sets a value in the specification as it was, and writes that as the file.
    void Make(const std::string& name, const Words& change) const
    {
        Words words = {"set"};
        words.insert(words.end(), change.begin(), change.end());
        Done(words);
        Copy(name);
        m_folder.Write(m_file, m_folder.Read("原.hds"));
    }
    ProcessResult Merge(const Words& more = {}) const
    {
        Words words = {"merge", "原.hds", "我.hds", "他.hds"};
        words.insert(words.end(), more.begin(), more.end());
        return Call(words);
    }
    std::string Value(const std::string& file, const std::string& speed) const
    {
        const Json json = Json::parse(Done({"show", file, "LonGradMinLen", "--json"}));
        for (const Json& row : json["criteria"]["LonGradMinLen"]["MinLens"])
            if (row["speed"] == std::stoi(speed)) return row["value"].dump();
        return "";
    }

    std::string m_file;
};

TEST_F(MergeCommand, PutsBothChangesOfOneTableIntoOurs)
{
    Make("我.hds", {"LonGradMinLen.MinLens", "--speed", "80", "301"});
    Make("他.hds", {"LonGradMinLen.MinLens", "--speed", "60", "202"});
    const std::string theirs = m_folder.Read("他.hds");
    EXPECT_EQ(Done({"merge", "原.hds", "我.hds", "他.hds"}), "");
    EXPECT_EQ(Value("我.hds", "80"), "301");
    EXPECT_EQ(Value("我.hds", "60"), "202");
    EXPECT_EQ(m_folder.Read("他.hds"), theirs);
}

TEST_F(MergeCommand, WritesIntoTheFileThatIsNamed)
{
    Make("我.hds", {"LonGradMinLen.MinLens", "--speed", "80", "301"});
    Make("他.hds", {"LonGradMinLen.MinLens", "--speed", "60", "202"});
    const std::string ours = m_folder.Read("我.hds");
    EXPECT_EQ(Merge({"-o", "新.hds"}).status, 0);
    EXPECT_EQ(m_folder.Read("我.hds"), ours);
    EXPECT_EQ(Value("新.hds", "80"), "301");
    EXPECT_EQ(Value("新.hds", "60"), "202");
    EXPECT_EQ(Merge({"--output", "没有/新.hds"}).status, 3);
}

TEST_F(MergeCommand, AConflictIsToldWithAllThreeAndNothingWritten)
{
    Make("我.hds", {"LonGradMinLen.MinLens", "--speed", "80", "301"});
    Make("他.hds", {"LonGradMinLen.MinLens", "--speed", "80", "302"});
    const std::string ours = m_folder.Read("我.hds");
    const ProcessResult result = Merge();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "“城市”  " + IdOf("城市") +
                              "\n纵坡最小坡长\n"
                              "  最小坡长  车速 80 km/h  原值  290 m  我方  301 m  对方  302 m\n");
    EXPECT_EQ(result.err, "designspec: 1 处冲突,没有写入文件\n");
    EXPECT_EQ(m_folder.Read("我.hds"), ours);
    EXPECT_EQ(Merge({"-o", "新.hds"}).status, 1);
    EXPECT_FALSE(m_folder.Has("新.hds"));
}

TEST_F(MergeCommand, ASideCanBePreferred)
{
    Make("我.hds", {"LonGradMinLen.MinLens", "--speed", "80", "301"});
    Make("他.hds", {"LonGradMinLen.MinLens", "--speed", "80", "302"});
    EXPECT_EQ(Merge({"--prefer", "ours", "-o", "新.hds"}).status, 0);
    EXPECT_EQ(Value("新.hds", "80"), "301");
    EXPECT_EQ(Merge({"--prefer", "theirs", "-o", "新.hds"}).status, 0);
    EXPECT_EQ(Value("新.hds", "80"), "302");
    Fails(2, "--prefer “mine”不是 ours 或 theirs",
          {"merge", "原.hds", "我.hds", "他.hds", "--prefer", "mine"});
}

TEST_F(MergeCommand, JsonTellsWhoHasChangedWhat)
{
    Make("我.hds", {"LonGradMinLen.MinLens", "--speed", "80", "301"});
    Make("他.hds", {"LonGradMinLen.MinLens", "--speed", "80", "--unset"});
    const ProcessResult result = Merge({"--json"});
    EXPECT_EQ(result.status, 1);
    const Json json = Json::parse(result.out);
    EXPECT_EQ(json["conflicts"], 1);
    const Json& change = json["specifications"][0]["changes"][0];
    EXPECT_EQ(change["path"], "LonGradMinLen.MinLens[80]");
    EXPECT_EQ(change["base"], "290 m");
    EXPECT_EQ(change["mine"], "301 m");
    EXPECT_EQ(change["theirs"], Json());
    EXPECT_EQ(change["by"], "conflict");
}

TEST_F(MergeCommand, SpecificationsThatCameOrWentAreMergedToo)
{
    New("干线");
    Done({"export", "原.hds", "干线"});
    m_folder.Write("我.hds", m_folder.Read("原.hds"));
    New("支路");
    Done({"export", "我.hds", "支路"});
    New("高速");
    Done({"export", "他.hds", "城市", "高速"}); // 干线 is no more
    EXPECT_EQ(Merge().status, 0);
    EXPECT_THAT(Done({"names", "我.hds"}), HasSubstr("城市"));
    EXPECT_THAT(Done({"names", "我.hds"}), HasSubstr("支路"));
    EXPECT_THAT(Done({"names", "我.hds"}), HasSubstr("高速"));
    EXPECT_THAT(Done({"names", "我.hds"}), Not(HasSubstr("干线")));
}

TEST_F(MergeCommand, OneThatWentWhileTheOtherChangedItIsAConflict)
{
    Make("我.hds", {"BeelineLen.MaxLen", "21"});
    New("干线");
    Done({"export", "他.hds", "干线"});
    const ProcessResult result = Merge();
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, HasSubstr("整个设计规范    原值  有  我方  已修改  对方  (无)"));
    EXPECT_EQ(Merge({"--prefer", "theirs", "-o", "新.hds"}).status, 0);
    EXPECT_THAT(Done({"names", "新.hds"}), Not(HasSubstr("城市")));
    EXPECT_EQ(Merge({"--prefer", "ours", "-o", "新.hds"}).status, 0);
    EXPECT_THAT(Done({"names", "新.hds"}), HasSubstr("城市"));
}

TEST_F(MergeCommand, WithoutABaseEveryDifferenceIsAConflict)
{
    Make("我.hds", {"BeelineLen.MaxLen", "21"});
    Make("他.hds", {"BeelineLen.MinLenInOneDir", "7"});
    m_folder.Write("原.hds", "");
    const ProcessResult result = Merge();
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("2 处冲突"));
    EXPECT_EQ(Merge({"--prefer", "theirs"}).status, 0);
    EXPECT_THAT(Done({"show", "我.hds", "BeelineLen"}),
                HasSubstr("同向曲线间最小直线长度(倍设计速度(km/h)): 7\n"));
}

TEST_F(MergeCommand, AFileThatCannotBeReadLeavesAllAsItIs)
{
    Make("我.hds", {"BeelineLen.MaxLen", "21"});
    const std::string ours = m_folder.Read("我.hds");
    for (const char* bytes : {"<StyleLibrary>", "kein XML", "<StyleLibrary/>"}) {
        m_folder.Write("他.hds", bytes);
        const ProcessResult result = Merge();
        EXPECT_EQ(result.status, 3);
        EXPECT_THAT(result.err, HasSubstr("他.hds"));
        EXPECT_THAT(result.err, HasSubstr("designspec: 没有合并\n"));
        EXPECT_EQ(m_folder.Read("我.hds"), ours);
    }
    std::filesystem::remove(m_folder.Native("他.hds"));
    EXPECT_EQ(Merge().status, 3);
}

TEST_F(MergeCommand, WhatElseTheirFileHoldsIsToldNotTaken)
{
    Make("我.hds", {"BeelineLen.MaxLen", "21"});
    m_folder.Write("他.hds", Replaced(m_folder.Read("原.hds"), "</StyleLibrary>",
                                      "<Other a=\"1\"/></StyleLibrary>"));
    const ProcessResult result = Merge();
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("他.hds: 其中设计规范以外的内容没有合并"));
    EXPECT_THAT(m_folder.Read("我.hds"), Not(HasSubstr("<Other")));
}

} // namespace
