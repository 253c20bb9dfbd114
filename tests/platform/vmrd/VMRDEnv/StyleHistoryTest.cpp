#include "platform/vmrd/VMRDEnv/StyleHistory.h"

#include "base/Format.h"
#include "base/Text.h"
#include "base/UserName.h"
#include "tests/platform/vmrd/VMRDEnv/FolderOfStyles.h"

using namespace designspec;
using namespace std::chrono;

namespace fs = std::filesystem;

namespace {

class StyleHistoryTest : public FolderOfStyles {
protected:
    bool Keep(const std::string& bytes, const std::string& next)
    {
        return m_history.Keep(m_id, bytes, next, {}, m_problems);
    }
    std::vector<StyleVersion> Versions() { return m_history.Versions(m_id, m_problems); }
    std::vector<int> Numbers()
    {
        std::vector<int> numbers;
        for (const StyleVersion& version : Versions())
            numbers.push_back(version.number);
        return numbers;
    }
    // What each holds.
    std::vector<std::string> Contents()
    {
        std::vector<std::string> contents;
        for (const StyleVersion& version : Versions())
            EXPECT_TRUE(ReadWholeFile(m_history.PathOf(m_id, version), contents.emplace_back(),
                                      m_problems));
        return contents;
    }
    fs::path Native(const CString& file) const
    {
        return m_folder.Native("规范/历史/" + ToUtf8(VMRDPub::GUIDToStr(m_id) + L"/" + file));
    }
    // A version as somebody kept it then.
    void Write(int number, Moment replaced) const
    {
        const CString file = Format(L"%06d-%s-00000000000000aa-00000000000000bb-a.hds", number,
                                    CompactUtc(replaced));
        m_folder.Write(Utf8(Native(file).lexically_relative(m_folder.Native())), "x");
    }

    const GUID m_id = CoCreateGuid();
    StyleHistory m_history{m_folder.Path(L"规范\\历史")};
};

using Strings = std::vector<std::string>;
using Numbers = std::vector<int>;

} // namespace

TEST_F(StyleHistoryTest, KeepsWhatIsReplacedWithTimeAndUser)
{
    const Moment before = Now();
    EXPECT_TRUE(Keep("a", "b"));
    EXPECT_TRUE(Keep("b", "c"));
    EXPECT_EQ(Contents(), (Strings{"a", "b"}));
    const auto versions = Versions();
    ASSERT_EQ(versions.size(), 2U);
    EXPECT_EQ(versions[0].number, 1);
    EXPECT_EQ(versions[1].number, 2);
    EXPECT_GE(versions[0].replaced, before);
    EXPECT_LE(versions[1].replaced, Now());
    EXPECT_EQ(versions[0].user, UserName());
    EXPECT_EQ(versions[0].content, StyleHistory::HashOf("a"));
    EXPECT_EQ(versions[0].next, versions[1].content);
    EXPECT_EQ(m_history.Identities(m_problems), std::vector<GUID>{m_id});
    EXPECT_EQ(m_problems.Text(), L"");
}

TEST_F(StyleHistoryTest, IsEmptyWhereNothingWasReplaced)
{
    EXPECT_TRUE(Versions().empty());
    EXPECT_TRUE(m_history.Identities(m_problems).empty());
    EXPECT_TRUE(Keep("a", "a"));
    EXPECT_FALSE(m_folder.Has("规范/历史"));
    EXPECT_EQ(m_problems.Text(), L"");
}

// A save that was stopped, or that somebody has undone by hand.
TEST_F(StyleHistoryTest, KeepsWhatIsTheLastVersionAlreadyNotOnceMore)
{
    EXPECT_TRUE(Keep("a", "b"));
    EXPECT_TRUE(Keep("a", "c"));
    ASSERT_EQ(Contents(), (Strings{"a"}));
    EXPECT_EQ(Versions()[0].number, 1);
    EXPECT_EQ(Versions()[0].next, StyleHistory::HashOf("c"));
    EXPECT_TRUE(Keep("a", "c"));
    EXPECT_EQ(Contents(), (Strings{"a"}));
}

TEST_F(StyleHistoryTest, HasContentThatComesAgainOnceOnTheDisk)
{
    EXPECT_TRUE(Keep("a", "b"));
    EXPECT_TRUE(Keep("b", "a"));
    EXPECT_TRUE(Keep("a", "c"));
    EXPECT_EQ(Contents(), (Strings{"a", "b", "a"}));
    const auto versions = Versions();
    EXPECT_TRUE(fs::equivalent(Native(versions[0].file), Native(versions[2].file)));
    EXPECT_FALSE(fs::equivalent(Native(versions[0].file), Native(versions[1].file)));
}

// The name of a file says what it held; somebody wrote into it since.
TEST_F(StyleHistoryTest, DoesNotTakeItsWordForWhatAFileHolds)
{
    EXPECT_TRUE(Keep("a", "b"));
    EXPECT_TRUE(Keep("b", "a"));
    m_folder.Write(Utf8(Native(Versions()[0].file).lexically_relative(m_folder.Native())), "?");
    EXPECT_TRUE(Keep("a", "c"));
    EXPECT_EQ(Contents(), (Strings{"?", "b", "a"}));
}

TEST_F(StyleHistoryTest, KeepsFiftyVersions)
{
    for (int i = 1; i <= 50; ++i)
        EXPECT_TRUE(Keep(std::to_string(i), std::to_string(i + 1)));
    EXPECT_EQ(Numbers().size(), 50U);
    EXPECT_EQ(Numbers().front(), 1);
    EXPECT_TRUE(Keep("51", "52"));
    EXPECT_EQ(Numbers().size(), 50U);
    EXPECT_EQ(Numbers().front(), 2);
    EXPECT_EQ(Numbers().back(), 51);
}

TEST_F(StyleHistoryTest, KeepsTwelveMonths)
{
    const Moment edge = MonthsBefore(Now(), 12);
    Write(1, edge - 48h);
    Write(2, edge - 1s);
    Write(3, edge + 1min);
    EXPECT_TRUE(Keep("a", "b"));
    EXPECT_EQ(Numbers(), (::Numbers{3, 4}));
}

TEST_F(StyleHistoryTest, NeverDropsTheLastOne)
{
    Write(7, Moment());
    EXPECT_EQ(Numbers(), (::Numbers{7}));
    EXPECT_TRUE(Keep("x", "y"));
    EXPECT_EQ(Numbers(), (::Numbers{8})) << "which is the last one now";
    EXPECT_TRUE(Keep("x", "z"));
    EXPECT_EQ(Numbers(), (::Numbers{8}));
}

TEST_F(StyleHistoryTest, HasItsOrderWhereTheClockWasSetBack)
{
    Write(4, Now() + 24h * 3000);
    Write(5, Moment());
    EXPECT_TRUE(Keep("a", "b"));
    EXPECT_EQ(Numbers(), (::Numbers{4, 5, 6})) << "none is older than the ones before it";
}

TEST_F(StyleHistoryTest, PassesOverWhatIsNoVersion)
{
    EXPECT_TRUE(Keep("a", "b"));
    const std::string good = ToUtf8(Versions()[0].file);
    const std::string time = "-20260101T000000Z-";
    const std::string hashes = "00000000000000aa-00000000000000bb";
    const Strings names = {"x.hds",
                           "-.hds",
                           "----.hds",
                           "1" + time + hashes + "-a.hds",
                           "000000" + time + hashes + "-a.hds",
                           "-00001" + time + hashes + "-a.hds",
                           "999999999" + time + hashes + "-a.hds",
                           "99999999999999999999" + time + hashes + "-a.hds",
                           "000002-20261301T000000Z-" + hashes + "-a.hds",
                           "000002" + time + "aa-bb-a.hds",
                           "000002" + time + "00000000000000ag-00000000000000bb-a.hds",
                           "000002" + time + hashes + ".hds"};
    for (const std::string& name : names)
        m_folder.Write("规范/历史/" + ToUtf8(VMRDPub::GUIDToStr(m_id)) + "/" + name, "x");
    m_folder.Write("规范/历史/" + ToUtf8(VMRDPub::GUIDToStr(m_id)) + "/note.txt", "x");
    m_folder.Write("规范/历史/x/" + good, "x");
    EXPECT_EQ(Contents(), (Strings{"a"}));
    EXPECT_EQ(m_history.Identities(m_problems), std::vector<GUID>{m_id});
    m_problems.Clear();
    Versions();
    EXPECT_EQ(m_problems.Lines().size(), names.size()) << ToUtf8(m_problems.Text());
    EXPECT_FALSE(HasError(m_problems));
    EXPECT_TRUE(Keep("b", "c"));
    EXPECT_EQ(Numbers(), (::Numbers{1, 2}));
}

TEST_F(StyleHistoryTest, TellsUsersOfAnyName)
{
    const std::string before = "规范/历史/" + ToUtf8(VMRDPub::GUIDToStr(m_id)) +
                               "/000001-20260101T000000Z-00000000000000aa-00000000000000bb-";
    for (const auto& [written, user] :
         {std::pair("DOM%5Czhang-san", L"DOM\\zhang-san"), std::pair("张三", L"张三"),
          std::pair("100%", L"100%"), std::pair("%2", L"%2"), std::pair("", L"")}) {
        m_folder.Write(before + written + ".hds", "x");
        const auto versions = Versions();
        ASSERT_EQ(versions.size(), 1U);
        EXPECT_EQ(versions[0].user, user);
        fs::remove(m_folder.Native(before + written + ".hds"));
    }
}

TEST_F(StyleHistoryTest, IsForThoseWhoMayUseTheFolderOfStyles)
{
    fs::permissions(m_folder.Native("规范"), fs::perms(0770));
    EXPECT_TRUE(Keep("a", "b"));
    EXPECT_EQ(fs::status(m_folder.Native("规范/历史")).permissions(), fs::perms(0770));
    EXPECT_EQ(fs::status(Native(L"")).permissions(), fs::perms(0770));
}

TEST_F(StyleHistoryTest, TellsThatItCannotBeWritten)
{
    m_folder.Write("规范/历史", "no folder");
    EXPECT_FALSE(Keep("a", "b"));
    EXPECT_TRUE(HasError(m_problems));
}

// Each time something is kept, what killed writes have left goes.
TEST_F(StyleHistoryTest, DropsOldTemporaries)
{
    EXPECT_TRUE(Keep("a", "b"));
    const fs::path left = Native(L".designspec-1-abcdefghijkl.tmp");
    std::ofstream(left) << "a part";
    fs::rename(left, Native(L".designspec-0-abcdefghijkl.tmp"));
    fs::last_write_time(Native(L".designspec-0-abcdefghijkl.tmp"),
                        fs::file_time_type::clock::now() - 48h);
    EXPECT_TRUE(Keep("b", "c"));
    EXPECT_FALSE(fs::exists(Native(L".designspec-0-abcdefghijkl.tmp")));
    EXPECT_EQ(m_problems.Text(), L"");
}
