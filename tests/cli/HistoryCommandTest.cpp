#include <algorithm>

#include "base/Moment.h"
#include "base/Text.h"
#include "tests/cli/CommandTest.h"

namespace fs = std::filesystem;

namespace {

class HistoryCommand : public CommandTest {
protected:
    // 20, 21 and 22 times the speed, one after the other.
    void SetUp() override
    {
        New("城市");
        Set("21");
        Set("22");
        m_id = IdOf("城市");
    }
    void Set(const std::string& length) const
    {
        Done({"--spec", "城市", "set", "BeelineLen.MaxLen", length});
    }
    std::string Length() const { return Done({"--spec", "城市", "query", "BeelineLen.MaxLen"}); }
    std::vector<std::string> Files() const
    {
        std::vector<std::string> files;
        for (const auto& entry : fs::directory_iterator(m_folder.Native("规范/历史/" + m_id)))
            files.push_back(Utf8(entry.path().filename()));
        std::sort(files.begin(), files.end());
        return files;
    }

    std::string m_id;
};

} // namespace

TEST_F(HistoryCommand, ListsWhatSavesHaveReplaced)
{
    const auto lines = Lines(Done({"history", "城市"}));
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_THAT(lines[0], testing::StartsWith("现在  "));
    EXPECT_THAT(lines[0],
                testing::EndsWith("  最大直线长度: 21 倍设计速度(km/h) → 22 倍设计速度(km/h)"));
    EXPECT_THAT(lines[1], testing::StartsWith("2     "));
    EXPECT_THAT(lines[1],
                testing::EndsWith("  最大直线长度: 20 倍设计速度(km/h) → 21 倍设计速度(km/h)"));
    EXPECT_THAT(lines[2], testing::StartsWith("1     "));
    EXPECT_THAT(lines[2], testing::EndsWith(" 以前"));
    EXPECT_EQ(Done({"history"}), Done({"history", m_id}));
    EXPECT_EQ(Done({"history"}), Done({"--spec", "城市", "history"}));
}

TEST_F(HistoryCommand, PrintsJson)
{
    const Json json = DoneJson({"history", "城市"});
    ASSERT_EQ(json.size(), 3U);
    EXPECT_EQ(json[0]["version"], nullptr);
    EXPECT_EQ(json[0]["replaced"], nullptr);
    EXPECT_EQ(json[0]["name"], "城市");
    EXPECT_EQ(json[0]["changes"].size(), 1U);
    EXPECT_EQ(json[0]["changes"][0]["path"], "BeelineLen.MaxLen");
    EXPECT_EQ(json[0]["saved"], json[1]["replaced"]);
    EXPECT_EQ(json[0]["by"], json[1]["by"]);
    EXPECT_EQ(json[1]["version"], 2);
    EXPECT_EQ(json[2]["version"], 1);
    EXPECT_EQ(json[2]["saved"], nullptr);
    EXPECT_EQ(json[2]["by"], nullptr);
    EXPECT_EQ(json[2]["changes"], Json::array());
}

TEST_F(HistoryCommand, IsThereOfARemovedOne)
{
    Call({"remove", "城市"});
    EXPECT_THAT(Done({"history", "城市"}), testing::StartsWith("删除前  "));
    EXPECT_EQ(DoneJson({"history", m_id}).size(), 3U);
    fs::remove_all(m_folder.Native("规范/已删除"));
    EXPECT_EQ(DoneJson({"history", m_id}).size(), 2U);
    Fails(2, "没有设计规范“城市”", {"history", "城市"});
    New("城市");
    Call({"remove", "城市"});
    New("城市");
    Call({"remove", "城市"});
    Fails(2, "不止一个,请写 GUID", {"history", "城市"});
}

TEST_F(HistoryCommand, PassesOverWhatCannotBeRead)
{
    m_folder.Write("规范/历史/" + m_id + "/" + Files()[0], "<");
    m_folder.Write("规范/历史/" + m_id + "/x.hds", "x");
    const ProcessResult result = Call({"history", "城市"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Lines(result.out).size(), 2U);
    EXPECT_THAT(result.err, HasSubstr("x.hds: 不是历史版本的文件名,已略过"));
    EXPECT_THAT(result.err, HasSubstr(Files()[0]));
    Fails(2, "没有版本“1”。可选:\n  2  ", {"restore", "城市", "--version", "1"});
}

TEST_F(HistoryCommand, RestoresTheVersionBefore)
{
    EXPECT_EQ(Done({"restore", "城市"}), "");
    EXPECT_EQ(Length(), "21\n");
    EXPECT_EQ(Done({"restore", m_id}), "");
    EXPECT_EQ(Length(), "22\n") << "which it replaced";
    EXPECT_EQ(DoneJson({"history"}).size(), 5U);
    EXPECT_EQ(DoneJson({"restore", "城市"})["id"], m_id);
}

TEST_F(HistoryCommand, RestoresANumberOrATime)
{
    EXPECT_EQ(Done({"restore", "城市", "--version", "1"}), "");
    EXPECT_EQ(Length(), "20\n");
    // As if the changes had been made seven, five and three months ago.
    for (const std::string& file : Files()) {
        const int months = 9 - 2 * std::stoi(file.substr(0, 6));
        const std::string time = ToUtf8(CompactUtc(MonthsBefore(Now(), months)));
        fs::rename(
            m_folder.Native("规范/历史/" + m_id + "/" + file),
            m_folder.Native("规范/历史/" + m_id + "/" + Replaced(file, file.substr(7, 16), time)));
    }
    const auto time = [](int monthsAgo, const std::string& as) {
        return ToUtf8(LocalTime(MonthsBefore(Now(), monthsAgo))).substr(0, as.size());
    };
    EXPECT_EQ(Done({"restore", "城市", "--version", time(6, "2026-05-23")}), "");
    EXPECT_EQ(Length(), "21\n");
    EXPECT_EQ(Done({"restore", "城市", "--version", time(4, "2026-07-23 12:00")}), "");
    EXPECT_EQ(Length(), "22\n");
    EXPECT_EQ(Done({"restore", "城市", "--version", time(8, "2026-03-23 12:00:30")}), "");
    EXPECT_EQ(Length(), "20\n");
    Fails(2, "没有版本“99”。可选:\n  ", {"restore", "城市", "--version", "99"});
    Fails(2, "没有版本“2999-01-01”", {"restore", "城市", "--version", "2999-01-01"});
    Fails(2, "既不是版本号,也不是时间", {"restore", "城市", "--version", "昨天"});
}

TEST_F(HistoryCommand, RestoresTheNameThatItHad)
{
    Done({"rename", "城市", "乡村"});
    EXPECT_EQ(Done({"restore", "乡村"}), "");
    EXPECT_EQ(Names(), std::vector<std::string>{"城市"});
    Done({"rename", "城市", "乡村"});
    New("城市");
    const ProcessResult result = Call({"restore", "乡村"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("样式“城市”重名,改称“城市(1)”"));
    EXPECT_EQ(IdOf("城市(1)"), m_id);
}

TEST_F(HistoryCommand, RestoresAVersionOfARemovedOne)
{
    Call({"remove", "城市"});
    EXPECT_EQ(Done({"restore", "城市", "--version", "1"}), "");
    EXPECT_EQ(Length(), "20\n");
    EXPECT_EQ(Done({"restore", "城市", "--version", "3"}), "") << "what it was when removed";
    EXPECT_EQ(Length(), "22\n");
    Call({"remove", "城市"});
    fs::remove_all(m_folder.Native("规范/已删除"));
    EXPECT_EQ(Done({"restore", m_id}), "");
    EXPECT_EQ(Length(), "20\n") << "the last version";
}

TEST_F(HistoryCommand, SaysWhenThereIsNoVersionOrTwoMeanings)
{
    New("新");
    Fails(2, "“新”没有以前的版本", {"restore", "新"});
    Fails(2, "没有版本“1”。没有以前的版本", {"restore", "新", "--version", "1"});
    Done({"export", "f.hds", "城市"});
    Call({"remove", "城市"});
    New("城市");
    Set("30");
    Fails(2, "有以前的版本,也有已删除的同名规范", {"restore", "城市"});
    EXPECT_EQ(Length(), "30\n");
    EXPECT_EQ(Done({"restore", "城市", "--version", "1"}), "");
    EXPECT_EQ(Length(), "20\n");
}
