#include "platform/vmrd/VMRDEnv/StyleFolder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "tests/support/ProblemList.h"
#include "tests/support/TemporaryFolder.h"

using namespace designspec;

namespace fs = std::filesystem;

namespace {

class StyleFolderTest : public testing::Test {
protected:
    StyleFolderTest() { fs::create_directory(m_folder.Native("规范")); }

    // A document with a style of each name; `ids` are their identities.
    static CXTPPropExchangeXMLNode Document(const CStringArray& names, std::vector<GUID>& ids)
    {
        CXTPPropExchangeXMLNode root;
        CXTPPropExchange styles;
        CreateStylesNode({}, L"标志", L"标志", root, styles);
        for (CString name : names) {
            ids.push_back(CoCreateGuid());
            CString id = VMRDPub::GUIDToStr(ids.back());
            CXTPPropExchange style = styles.AppendSection(L"Style");
            style.EnableCompactMode(true);
            PX_String(&style, L"Name", name);
            PX_String(&style, L"ID", id);
        }
        return root;
    }
    // Makes a file of the folder that holds a style of each name; returns their identities.
    std::vector<GUID> FileOf(const CString& file, const CStringArray& names)
    {
        std::vector<GUID> ids;
        const CXTPPropExchangeXMLNode root = Document(names, ids);
        EXPECT_TRUE(root.SaveToFile(m_styles.PathOf(file).c_str()));
        return ids;
    }
    // What stands in the folder of the deleted ones, sorted.
    CStringArray AsideFiles() { return FindFiles(m_styles.DeletedPath(), L"", m_problems); }
    CStringArray NamesIn(std::wstring_view file)
    {
        CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
        EXPECT_TRUE(root.LoadFromFile(m_folder.Path(file).c_str()));
        CStringArray names;
        for (const StyleEntry& entry : StyleEntries(root, L"标志"))
            names.push_back(entry.name);
        return names;
    }

    TemporaryFolder m_folder;
    ProblemList m_problems;
    StyleFolder m_styles{m_folder.Path() + L"\\规范", L"标志"};
};

} // namespace

TEST_F(StyleFolderTest, StandsInAFolderOfTheProject)
{
    EXPECT_EQ(StylesFolderOf(m_folder.Path()), m_styles.Path());
    EXPECT_EQ(m_styles.DeletedPath(), m_folder.Path() + L"\\规范\\已删除");
    EXPECT_TRUE(m_styles.Deleted(m_problems).empty());
    EXPECT_EQ(m_problems.Text(), L"");
}

TEST_F(StyleFolderTest, AStyleWithAFileOfItsOwnGoesWithItsFile)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    const std::string bytes = m_folder.Read("规范/甲.hds");
    EXPECT_TRUE(m_styles.SetAside(L"甲.hds", id, m_problems));
    EXPECT_FALSE(m_folder.Has("规范/甲.hds"));
    EXPECT_EQ(m_folder.Read("规范/已删除/甲.hds"), bytes);
    ASSERT_EQ(m_problems.Lines().size(), 1U);
    EXPECT_EQ(m_problems.Lines()[0].severity, Severity::Note);
    EXPECT_EQ(ToUtf8(m_problems.Text()), ToUtf8(m_folder.Path(L"规范/甲.hds: 已移至 ")) +
                                             NativePath(m_styles.DeletedPath() + L"\\甲.hds"));
}

TEST_F(StyleFolderTest, AFileOfSeveralStylesKeepsTheOthers)
{
    const GUID id = FileOf(L"甲.hds", {L"甲", L"乙"})[0];
    EXPECT_TRUE(m_styles.SetAside(L"甲.hds", id, m_problems));
    EXPECT_EQ(NamesIn(L"规范/甲.hds"), (CStringArray{L"乙"}));
    // It can come back beside the others.
    EXPECT_EQ(NamesIn(L"规范/已删除/甲(1).hds"), (CStringArray{L"甲"}));
    EXPECT_TRUE(m_styles.BringBack(L"甲(1).hds", m_problems));
    EXPECT_EQ(NamesIn(L"规范/甲(1).hds"), (CStringArray{L"甲"}));
}

TEST_F(StyleFolderTest, AFileKeepsWhatOtherProgramsHaveInIt)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    std::string bytes = m_folder.Read("规范/甲.hds");
    m_folder.Write("规范/甲.hds", bytes.insert(bytes.find("</StyleLibrary>"), "<Group Name='x'/>"));
    EXPECT_TRUE(m_styles.SetAside(L"甲.hds", id, m_problems));
    EXPECT_NE(m_folder.Read("规范/甲.hds").find("<Group Name=\"x\""), std::string::npos);
    EXPECT_TRUE(NamesIn(L"规范/甲.hds").empty());
    EXPECT_EQ(NamesIn(L"规范/已删除/甲(1).hds"), (CStringArray{L"甲"}));
}

TEST_F(StyleFolderTest, AFileIsSetAsideWhateverItHolds)
{
    m_folder.Write("规范/甲.hds", "half a file");
    EXPECT_TRUE(m_styles.SetAside(L"甲.hds", m_problems));
    EXPECT_FALSE(m_folder.Has("规范/甲.hds"));
    EXPECT_EQ(m_folder.Read("规范/已删除/甲.hds"), "half a file");
    EXPECT_FALSE(m_styles.SetAside(L"..\\外.hds", m_problems));
}

TEST_F(StyleFolderTest, ALinkThatIsSetAsideLeadsWhereItLed)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    fs::create_directory(m_folder.Native("共享"));
    fs::rename(m_folder.Native("规范/甲.hds"), m_folder.Native("共享/甲.hds"));
    fs::create_symlink("../共享/甲.hds", m_folder.Native("规范/甲.hds"));
    ASSERT_TRUE(m_styles.SetAside(id, m_problems));
    EXPECT_FALSE(m_folder.Has("规范/甲.hds"));
    EXPECT_EQ(NamesIn(L"规范/已删除/甲.hds"), (CStringArray{L"甲"}));
    EXPECT_TRUE(fs::is_symlink(m_folder.Native("规范/已删除/甲.hds")));
    EXPECT_TRUE(m_styles.BringBack(L"甲.hds", m_problems));
    EXPECT_EQ(fs::read_symlink(m_folder.Native("规范/甲.hds")), "../共享/甲.hds");
}

TEST_F(StyleFolderTest, SavingTakesAwayWhatKilledWritesLeft)
{
    const auto left = [&](const std::string& name, int hours) {
        m_folder.Write(name, "half");
        fs::last_write_time(m_folder.Native(name),
                            fs::file_time_type::clock::now() - std::chrono::hours(hours));
    };
    const std::string ours = ".designspec-" + std::to_string(getpid()) + "-abcdefghijkl.tmp";
    left("规范/.designspec-abcdefghijkl.tmp", 25);
    left("规范/.designspec-bbcdefghijkl.tmp", 23);
    left("规范/.designspec-999999999-abcdefghijkl.tmp", 25);
    left("规范/已删除/.designspec-cbcdefghijkl.tmp", 25);
    left("规范/" + ours, 25);
    left("规范/notes.tmp", 25);
    std::vector<GUID> ids;
    EXPECT_TRUE(m_styles.Save(L"甲.hds", Document({L"甲"}, ids), m_problems));
    EXPECT_EQ(FindFiles(m_styles.Path(), L".tmp", m_problems),
              (CStringArray{L".designspec-" + std::to_wstring(getpid()) + L"-abcdefghijkl.tmp",
                            L".designspec-bbcdefghijkl.tmp", L"notes.tmp"}));
    EXPECT_TRUE(FindFiles(m_styles.DeletedPath(), L".tmp", m_problems).empty());
}

TEST_F(StyleFolderTest, NoProjectHasNoFolder)
{
    EXPECT_EQ(StylesFolderOf(L""), L"");
    StyleFolder none(StylesFolderOf(L""), L"标志");
    EXPECT_EQ(none.PathOf(L"甲.hds"), L"");
    std::vector<GUID> ids;
    EXPECT_FALSE(none.Save(L"甲.hds", Document({L"甲"}, ids), m_problems));
    EXPECT_TRUE(none.Files(m_problems).empty());
}

TEST_F(StyleFolderTest, AFileWithABackslashInItsNameIsNoneOfItsFiles)
{
    FileOf(L"甲.hds", {L"甲"});
    m_folder.Write("规范/..\\甲.hds", "<StyleLibrary/>");
    EXPECT_EQ(m_styles.Files(m_problems), (CStringArray{L"甲.hds"}));
    ASSERT_EQ(m_problems.Lines().size(), 1U);
    EXPECT_EQ(ToUtf8(m_problems.Text()),
              ToUtf8(m_styles.Path() == L"" ? L"" : ToWide(NativePath(m_styles.Path()))) +
                  ": 文件名“..\\甲.hds”含有反斜线,无法使用");
}

TEST_F(StyleFolderTest, WhatWasSetAsideEarlierStays)
{
    for (int i = 0; i < 3; ++i) {
        const CString name = Format(L"第%d次", i);
        EXPECT_TRUE(m_styles.SetAside(L"甲.hds", FileOf(L"甲.hds", {name})[0], m_problems));
    }
    EXPECT_EQ(NamesIn(L"规范/已删除/甲.hds"), (CStringArray{L"第0次"}));
    EXPECT_EQ(NamesIn(L"规范/已删除/甲(1).hds"), (CStringArray{L"第1次"}));
    EXPECT_EQ(NamesIn(L"规范/已删除/甲(2).hds"), (CStringArray{L"第2次"}));
}

TEST_F(StyleFolderTest, AFileThatDoesNotHoldTheStyleStaysWhereItIs)
{
    FileOf(L"甲.hds", {L"甲", L"乙"});
    m_folder.Write("规范/空.hds", "<StyleLibrary/>");
    for (const wchar_t* file : {L"甲.hds", L"空.hds"}) {
        m_problems.Clear();
        EXPECT_FALSE(m_styles.SetAside(file, CoCreateGuid(), m_problems));
        EXPECT_TRUE(m_folder.Has("规范/" + ToUtf8(file)));
        EXPECT_EQ(ToUtf8(m_problems.Text()),
                  ToUtf8(m_folder.Path(L"规范/") + file + L": 文件中没有要删除的样式"));
    }
    EXPECT_FALSE(m_folder.Has("规范/已删除"));
}

TEST_F(StyleFolderTest, AFileWithOneStyleGoesEvenIfItsIdentityCannotBeRead)
{
    m_folder.Write("规范/甲.hds", "<StyleLibrary><Group Name='标志'><Styles Name='标志'>"
                                  "<Style Name='甲'/></Styles></Group></StyleLibrary>");
    EXPECT_TRUE(m_styles.SetAside(L"甲.hds", CoCreateGuid(), m_problems));
    EXPECT_FALSE(m_folder.Has("规范/甲.hds"));
    EXPECT_EQ(NamesIn(L"规范/已删除/甲.hds"), (CStringArray{L"甲"}));
}

TEST_F(StyleFolderTest, NoCopyIsLeftWhenTheStyleCannotBeTakenOut)
{
    const GUID id = FileOf(L"甲.hds", {L"甲", L"乙"})[0];
    const std::string bytes = m_folder.Read("规范/甲.hds");
    fs::create_directory(m_folder.Native("规范/已删除"));
    fs::permissions(m_folder.Native(), fs::perms(0755));
    fs::permissions(m_folder.Native("规范"), fs::perms(0555));
    fs::permissions(m_folder.Native("规范/已删除"), fs::perms(0777));
    const bool root = geteuid() == 0;
    ASSERT_TRUE(!root || seteuid(65534) == 0); // permissions do not bind root
    EXPECT_FALSE(m_styles.SetAside(L"甲.hds", id, m_problems));
    ASSERT_TRUE(!root || seteuid(0) == 0);
    fs::permissions(m_folder.Native("规范"), fs::perms(0755));
    EXPECT_EQ(m_folder.Read("规范/甲.hds"), bytes);
    EXPECT_TRUE(AsideFiles().empty());
    EXPECT_EQ(m_problems.Lines().size(), 1U);
}

TEST_F(StyleFolderTest, AFileThatCannotBeReadStaysWhereItIs)
{
    m_folder.Write("规范/甲.hds", "<StyleLibrary>");
    EXPECT_FALSE(m_styles.SetAside(L"甲.hds", CoCreateGuid(), m_problems));
    EXPECT_EQ(m_folder.Read("规范/甲.hds"), "<StyleLibrary>");
    EXPECT_FALSE(m_styles.SetAside(L"none.hds", CoCreateGuid(), m_problems));
    EXPECT_EQ(m_problems.Lines().size(), 2U);
}

TEST_F(StyleFolderTest, AStyleStaysWhenTheFolderForItCannotBeMade)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    m_folder.Write("规范/已删除", "a file in the way");
    EXPECT_FALSE(m_styles.SetAside(L"甲.hds", id, m_problems));
    EXPECT_TRUE(m_folder.Has("规范/甲.hds"));
    EXPECT_EQ(ToUtf8(m_problems.Text()),
              ToUtf8(m_folder.Path(L"规范/已删除") + L": 文件夹无法创建: 路径中有一段不是文件夹"));
}

TEST_F(StyleFolderTest, AStyleIsSetAsideWithEveryFileThatHoldsIt)
{
    const GUID id = FileOf(L"a.hds", {L"甲"})[0];
    fs::copy_file(m_folder.Native("规范/a.hds"), m_folder.Native("规范/B.HDS"));
    FileOf(L"c.hds", {L"丙"});
    m_folder.Write("规范/broken.hds", "<");
    fs::create_directory(m_folder.Native("规范/folder.hds"));
    EXPECT_TRUE(m_styles.SetAside(id, m_problems));
    EXPECT_EQ(AsideFiles(), (CStringArray{L"a.hds", L"B.HDS"}));
    EXPECT_TRUE(m_folder.Has("规范/c.hds"));
    EXPECT_TRUE(m_folder.Has("规范/broken.hds"));
    EXPECT_TRUE(m_styles.SetAside(CoCreateGuid(), m_problems));
}

// What was there when the file could be read may be there still.
TEST_F(StyleFolderTest, AStyleIsNotSetAsideWhileAFileThatHeldItCannotBeRead)
{
    const GUID id = FileOf(L"a.hds", {L"甲"})[0];
    const GUID other = FileOf(L"b.hds", {L"乙"})[0];
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    EXPECT_TRUE(m_styles.Load(L"a.hds", root, m_problems));
    EXPECT_TRUE(m_styles.Load(L"b.hds", root, m_problems));
    const std::string bytes = m_folder.Read("规范/a.hds");
    m_folder.Write("规范/a.hds", bytes.substr(0, bytes.size() / 2));
    EXPECT_FALSE(m_styles.SetAside(id, m_problems));
    EXPECT_TRUE(m_folder.Has("规范/a.hds"));
    EXPECT_TRUE(AsideFiles().empty());
    m_problems.Clear();
    EXPECT_TRUE(m_styles.SetAside(other, m_problems));
    EXPECT_NE(m_problems.Text().find(L"a.hds"), CString::npos) << "what could not be read is told";
    EXPECT_EQ(AsideFiles(), CStringArray{L"b.hds"});
    m_folder.Write("规范/a.hds", bytes);
    EXPECT_TRUE(m_styles.SetAside(id, m_problems));
    EXPECT_EQ(AsideFiles(), (CStringArray{L"a.hds", L"b.hds"}));
}

TEST_F(StyleFolderTest, AreListedByTheirFiles)
{
    const GUID second = FileOf(L"b.hds", {L"乙"})[0];
    const GUID first = FileOf(L"A.hds", {L"甲"})[0];
    EXPECT_TRUE(m_styles.SetAside(second, m_problems));
    EXPECT_TRUE(m_styles.SetAside(first, m_problems));
    m_folder.Write("规范/已删除/broken.hds", "<");
    m_folder.Write("规范/已删除/empty.hds", "<StyleLibrary/>");
    m_folder.Write("规范/已删除/note.txt", "x");
    m_problems.Clear();
    const auto deleted = m_styles.Deleted(m_problems);
    ASSERT_EQ(deleted.size(), 2U);
    EXPECT_EQ(deleted[0].file, L"A.hds");
    EXPECT_EQ(deleted[0].name, L"甲");
    EXPECT_EQ(deleted[0].id, first);
    EXPECT_EQ(deleted[1].file, L"b.hds");
    EXPECT_EQ(deleted[1].name, L"乙");
    EXPECT_EQ(deleted[1].id, second);
    ASSERT_EQ(m_problems.Lines().size(), 1U);
    EXPECT_EQ(m_problems.Lines()[0].file, m_folder.Path(L"规范/已删除/broken.hds"));
}

TEST_F(StyleFolderTest, AStyleIsBroughtBack)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    const std::string bytes = m_folder.Read("规范/甲.hds");
    ASSERT_TRUE(m_styles.SetAside(id, m_problems));
    EXPECT_TRUE(m_styles.BringBack(L"甲.hds", m_problems));
    EXPECT_EQ(m_folder.Read("规范/甲.hds"), bytes);
    EXPECT_FALSE(m_folder.Has("规范/已删除/甲.hds"));
}

// Removed twice, the second file got a number behind its name among the deleted ones.
TEST_F(StyleFolderTest, AFileComesBackUnderTheNameThatItHad)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    const CString name = L"甲" + VMRDPub::GUIDToStr(id), file = name + L".hds";
    std::filesystem::rename(m_folder.Native("规范/甲.hds"),
                            m_folder.Native(ToUtf8(L"规范/" + file)));
    ASSERT_FALSE(m_styles.KeepCopy(file, m_problems).empty());
    ASSERT_TRUE(m_styles.SetAside(id, m_problems));
    EXPECT_EQ(AsideFiles(), (CStringArray{name + L"(1).hds", file}));
    EXPECT_TRUE(m_styles.BringBack(name + L"(1).hds", m_problems));
    EXPECT_EQ(NamesIn(L"规范/" + file), CStringArray{L"甲"});
    EXPECT_EQ(AsideFiles(), CStringArray{file});
}

TEST_F(StyleFolderTest, AStyleIsNotBroughtBackOverAnother)
{
    ASSERT_TRUE(m_styles.SetAside(FileOf(L"甲.hds", {L"旧"})[0], m_problems));
    FileOf(L"甲.hds", {L"新"});
    m_problems.Clear();
    EXPECT_FALSE(m_styles.BringBack(L"甲.hds", m_problems));
    EXPECT_EQ(ToUtf8(m_problems.Text()),
              ToUtf8(m_folder.Path(L"规范/甲.hds") + L": 无法恢复: 同名文件已存在"));
    EXPECT_EQ(NamesIn(L"规范/甲.hds"), (CStringArray{L"新"}));
    EXPECT_EQ(NamesIn(L"规范/已删除/甲.hds"), (CStringArray{L"旧"}));
}

TEST_F(StyleFolderTest, AStyleWhoseNameIsTakenIsBroughtBackUnderAFreeOne)
{
    std::vector<GUID> ids;
    for (const CString file : {L"a.hds", L"b.hds"}) {
        ids.push_back(FileOf(file, {L"甲"})[0]);
        ASSERT_TRUE(m_styles.SetAside(ids.back(), m_problems));
    }
    FileOf(L"甲.hds", {L"甲"});
    FileOf(L"乙.hds", {L"甲(1)"});
    const auto nameOf = [&](size_t k, const CString& number) {
        return L"甲" + number + VMRDPub::GUIDToStr(ids[k]) + L".hds";
    };
    m_problems.Clear();
    std::vector<StyleEntry> present = m_styles.Present(m_problems);
    EXPECT_TRUE(m_styles.BringBack(L"a.hds", present, m_problems));
    EXPECT_TRUE(m_styles.BringBack(L"b.hds", present, m_problems));
    EXPECT_EQ(NamesIn(L"规范/" + nameOf(0, L"(2)")), CStringArray{L"甲(2)"});
    EXPECT_EQ(NamesIn(L"规范/" + nameOf(1, L"(3)")), CStringArray{L"甲(3)"});
    EXPECT_EQ(NamesIn(L"规范/甲.hds"), CStringArray{L"甲"});
    EXPECT_TRUE(AsideFiles().empty());
    ASSERT_EQ(m_problems.Lines().size(), 2U);
    EXPECT_EQ(ToUtf8(m_problems.Lines()[1].text), "样式“甲”重名,改称“甲(3)”");
    EXPECT_TRUE(m_styles.IsKnown(nameOf(0, L"(2)")));
}

TEST_F(StyleFolderTest, AStyleThatIsThereIsNotBroughtBackASecondTime)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    EXPECT_EQ(m_styles.KeepCopy(L"甲.hds", m_problems), L"甲.hds");
    fs::rename(m_folder.Native("规范/甲.hds"), m_folder.Native("规范/乙.hds"));
    EXPECT_FALSE(m_styles.BringBack(L"甲.hds", m_problems));
    EXPECT_EQ(ToUtf8(m_problems.Lines().back().text), "无法恢复: 库中已有同一标识的样式");
    EXPECT_FALSE(m_folder.Has("规范/甲.hds"));
    ASSERT_TRUE(m_styles.SetAside(L"乙.hds", id, m_problems));
    EXPECT_TRUE(m_styles.BringBack(L"甲.hds", m_problems));
}

TEST_F(StyleFolderTest, WhatIsNotThereIsNotBroughtBack)
{
    EXPECT_FALSE(m_styles.BringBack(L"none.hds", m_problems));
    EXPECT_EQ(ToUtf8(m_problems.Text()),
              ToUtf8(m_folder.Path(L"规范/已删除/none.hds") + L": 无法读取: 不存在"));
}

TEST_F(StyleFolderTest, ANameThatLeavesTheFolderIsRefused)
{
    const GUID id = FileOf(L"..\\外.hds", {L"外"})[0];
    for (const CString& name : {CString(L"..\\外.hds"), CString(L"../外.hds"), CString(L".."),
                                CString(L""), CString(L"a\0.hds", 6), CString(256, L'a')}) {
        m_problems.Clear();
        EXPECT_FALSE(m_styles.SetAside(name, id, m_problems));
        EXPECT_EQ(m_problems.Lines().size(), 1U);
        m_problems.Clear();
        EXPECT_FALSE(m_styles.BringBack(name, m_problems));
        ASSERT_EQ(m_problems.Lines().size(), 1U);
        EXPECT_EQ(ToUtf8(m_problems.Lines()[0].text), "文件名无效");
    }
    EXPECT_TRUE(m_folder.Has("外.hds"));
}

TEST_F(StyleFolderTest, KnowsTheContentThatItSaved)
{
    std::vector<GUID> ids;
    EXPECT_TRUE(m_styles.Save(L"甲.hds", Document({L"甲"}, ids), m_problems));
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds"));
    const std::string bytes = m_folder.Read("规范/甲.hds");
    m_folder.Write("规范/甲.hds", bytes + " ");
    EXPECT_FALSE(m_styles.IsKnown(L"甲.hds"));
    m_folder.Write("规范/甲.hds", bytes);
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds")) << "whoever wrote it";
    EXPECT_TRUE(m_styles.Delete(L"甲.hds", m_problems));
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds")) << "gone, as it was left";
    m_folder.Write("规范/甲.hds", bytes);
    EXPECT_FALSE(m_styles.IsKnown(L"甲.hds"));
}

TEST_F(StyleFolderTest, KnowsTheContentThatItLoadedMovedAndBroughtBack)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    EXPECT_FALSE(m_styles.IsKnown(L"甲.hds"));
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    EXPECT_TRUE(m_styles.Load(L"甲.hds", root, m_problems));
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds"));
    EXPECT_TRUE(m_styles.SetAside(id, m_problems));
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds"));
    EXPECT_TRUE(m_styles.BringBack(L"甲.hds", m_problems));
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds"));
    m_styles.Forget();
    EXPECT_FALSE(m_styles.IsKnown(L"甲.hds"));
}

TEST_F(StyleFolderTest, KnowsTheSettingsThatItWrote)
{
    EXPECT_EQ(m_styles.Setting(L"设置", L"键", m_problems), L"");
    EXPECT_TRUE(m_styles.SetSetting(L"设置", L"键", L"值", m_problems));
    EXPECT_EQ(m_styles.Setting(L"设置", L"键", m_problems), L"值");
    EXPECT_TRUE(m_styles.IsKnown(L"setting.ini"));
    m_folder.Write("规范/setting.ini", "[设置]\n");
    EXPECT_FALSE(m_styles.IsKnown(L"setting.ini"));
}

TEST_F(StyleFolderTest, KnowsNothingOfAnotherFolder)
{
    std::vector<GUID> ids;
    EXPECT_TRUE(m_styles.Save(L"甲.hds", Document({L"甲"}, ids), m_problems));
    m_styles.MoveTo(m_styles.Path());
    EXPECT_TRUE(m_styles.IsKnown(L"甲.hds"));
    const CString path = m_styles.Path();
    m_styles.MoveTo(m_folder.Path() + L"\\别");
    m_styles.MoveTo(path);
    EXPECT_FALSE(m_styles.IsKnown(L"甲.hds"));
}

TEST_F(StyleFolderTest, KeepsACopyAmongTheDeleted)
{
    FileOf(L"甲.hds", {L"甲"});
    EXPECT_EQ(m_styles.KeepCopy(L"甲.hds", m_problems), L"甲.hds");
    const CString second = m_styles.KeepCopy(L"甲.hds", m_problems);
    EXPECT_EQ(second, L"甲(1).hds");
    EXPECT_EQ(m_folder.Read("规范/已删除/甲(1).hds"), m_folder.Read("规范/甲.hds"));
    m_styles.DropCopy(second, m_problems);
    EXPECT_EQ(AsideFiles(), (CStringArray{L"甲.hds"}));
    EXPECT_EQ(m_styles.KeepCopy(L"none.hds", m_problems), L"");
    EXPECT_EQ(m_problems.Lines().size(), 1U);
}
