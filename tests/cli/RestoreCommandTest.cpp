#include "tests/cli/CommandTest.h"

namespace fs = std::filesystem;

namespace {

class RestoreCommand : public CommandTest {
protected:
    void SetUp() override
    {
        New("城市");
        m_id = IdOf("城市");
        m_file = "城市" + m_id + ".hds";
        m_content = m_folder.Read("规范/" + m_file);
    }
    void Remove(const std::string& name) const { EXPECT_EQ(Call({"remove", name}).status, 0); }

    std::string m_id;
    std::string m_file;
    std::string m_content;
};

using Strings = std::vector<std::string>;

TEST_F(RestoreCommand, ListsTheRemovedOnes)
{
    EXPECT_EQ(Done({"list", "--deleted"}), "");
    EXPECT_EQ(DoneJson({"list", "--deleted"}), Json::array());
    Remove("城市");
    EXPECT_EQ(Done({"list", "--deleted"}), "城市  " + m_id + "  " + m_file + "\n");
    EXPECT_EQ(DoneJson({"list", "--deleted"}),
              Json::array({{{"name", "城市"}, {"id", m_id}, {"file", m_file}}}));
    EXPECT_EQ(Done({"list"}), "");
}

TEST_F(RestoreCommand, BringsBackByNameIdentityOrFile)
{
    for (const std::string& word : {std::string("城市"), m_id, m_file}) {
        Remove("城市");
        EXPECT_EQ(Done({"restore", word}), "") << word;
        EXPECT_EQ(Names(), (Strings{"城市"}));
        EXPECT_EQ(m_folder.Read("规范/" + m_file), m_content);
        EXPECT_EQ(Done({"list", "--deleted"}), "");
    }
    Remove("城市");
    EXPECT_EQ(DoneJson({"restore", "城市"}),
              (Json{{"name", "城市"}, {"id", m_id}, {"file", m_file}}));
}

TEST_F(RestoreCommand, SaysWhichThereAreWhenItFindsNone)
{
    Fails(2, "没有已删除的设计规范\n", {"restore", "乡村"});
    Fails(2, "“城市”没有以前的版本\n", {"restore", "城市"});
    Remove("城市");
    Fails(2, "没有已删除的设计规范“乡村”。可选:\n  城市  " + m_file, {"restore", "乡村"});
    Fails(2, "缺少 NAME", {"restore"});
}

TEST_F(RestoreCommand, AsksForTheFileWhereANameStandsTwice)
{
    Remove("城市");
    New("城市");
    const std::string other = FileOf("城市").substr(std::string("规范/").size());
    Remove("城市");
    Fails(2, "不止一个,请写文件名", {"restore", "城市"});
    Fails(2, "  城市  " + other, {"restore", "城市"});
    EXPECT_EQ(Done({"restore", other}), "");
    EXPECT_EQ(FileOf("城市"), "规范/" + other);
}

TEST_F(RestoreCommand, LeavesOneWhoseIdentityIsInTheLibrary)
{
    Done({"export", "f.hds"});
    Remove("城市");
    Done({"import", "f.hds"});
    Fails(2, "库中已有同一标识的“城市”", {"restore", "城市"});
    EXPECT_EQ(Names(), (Strings{"城市"}));
    EXPECT_TRUE(m_folder.Has("规范/已删除/" + m_file));
}

// Whichever of the two files comes first: the one that is there keeps its name.
TEST_F(RestoreCommand, GivesAnotherNameWhereItIsTakenMeanwhile)
{
    for (int k = 0; k < 4; ++k) {
        Remove("城市");
        New("城市");
        const std::string present = IdOf("城市");
        const ProcessResult result = Call({"restore", m_file, "--json"});
        EXPECT_EQ(result.status, 0);
        EXPECT_THAT(result.err, HasSubstr("样式“城市”重名,改称“城市(1)”"));
        EXPECT_EQ(Json::parse(result.out)["id"], m_id);
        EXPECT_EQ(Json::parse(result.out)["name"], "城市(1)");
        EXPECT_EQ(IdOf("城市"), present);
        EXPECT_EQ(Done({"list", "--deleted"}), "");
        Remove("城市");
        fs::remove_all(m_folder.Native("规范/已删除"));
        Done({"rename", "城市(1)", "城市"});
    }
}

} // namespace
