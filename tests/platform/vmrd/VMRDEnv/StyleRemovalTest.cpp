#include "platform/vmrd/VMRDEnv/StyleRemoval.h"

#include "base/Format.h"
#include "base/Text.h"
#include "tests/platform/vmrd/VMRDEnv/FolderOfStyles.h"

using namespace designspec;

namespace fs = std::filesystem;

namespace {

using StyleRemovalTest = FolderOfStyles;

} // namespace

TEST_F(StyleRemovalTest, AStyleWithAFileOfItsOwnGoesWithItsFile)
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

TEST_F(StyleRemovalTest, AFileOfSeveralStylesKeepsTheOthers)
{
    const GUID id = FileOf(L"甲.hds", {L"甲", L"乙"})[0];
    EXPECT_TRUE(m_styles.SetAside(L"甲.hds", id, m_problems));
    EXPECT_EQ(NamesIn(L"规范/甲.hds"), (CStringArray{L"乙"}));
    // It can come back beside the others.
    EXPECT_EQ(NamesIn(L"规范/已删除/甲(1).hds"), (CStringArray{L"甲"}));
    EXPECT_TRUE(m_styles.BringBack(L"甲(1).hds", m_problems));
    EXPECT_EQ(NamesIn(L"规范/甲(1).hds"), (CStringArray{L"甲"}));
}

TEST_F(StyleRemovalTest, AFileKeepsWhatOtherProgramsHaveInIt)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    std::string bytes = m_folder.Read("规范/甲.hds");
    m_folder.Write("规范/甲.hds", bytes.insert(bytes.find("</StyleLibrary>"), "<Group Name='x'/>"));
    EXPECT_TRUE(m_styles.SetAside(L"甲.hds", id, m_problems));
    EXPECT_NE(m_folder.Read("规范/甲.hds").find("<Group Name=\"x\""), std::string::npos);
    EXPECT_TRUE(NamesIn(L"规范/甲.hds").empty());
    EXPECT_EQ(NamesIn(L"规范/已删除/甲(1).hds"), (CStringArray{L"甲"}));
}

TEST_F(StyleRemovalTest, AFileIsSetAsideWhateverItHolds)
{
    m_folder.Write("规范/甲.hds", "half a file");
    EXPECT_TRUE(m_styles.SetAside(L"甲.hds", m_problems));
    EXPECT_FALSE(m_folder.Has("规范/甲.hds"));
    EXPECT_EQ(m_folder.Read("规范/已删除/甲.hds"), "half a file");
    EXPECT_FALSE(m_styles.SetAside(L"..\\外.hds", m_problems));
}

TEST_F(StyleRemovalTest, WhatWasSetAsideEarlierStays)
{
    for (int i = 0; i < 3; ++i) {
        const CString name = Format(L"第%d次", i);
        EXPECT_TRUE(m_styles.SetAside(L"甲.hds", FileOf(L"甲.hds", {name})[0], m_problems));
    }
    EXPECT_EQ(NamesIn(L"规范/已删除/甲.hds"), (CStringArray{L"第0次"}));
    EXPECT_EQ(NamesIn(L"规范/已删除/甲(1).hds"), (CStringArray{L"第1次"}));
    EXPECT_EQ(NamesIn(L"规范/已删除/甲(2).hds"), (CStringArray{L"第2次"}));
}

TEST_F(StyleRemovalTest, AFileThatDoesNotHoldTheStyleStaysWhereItIs)
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

TEST_F(StyleRemovalTest, AFileWithOneStyleGoesEvenIfItsIdentityCannotBeRead)
{
    m_folder.Write("规范/甲.hds", "<StyleLibrary><Group Name='标志'><Styles Name='标志'>"
                                  "<Style Name='甲'/></Styles></Group></StyleLibrary>");
    EXPECT_TRUE(m_styles.SetAside(L"甲.hds", CoCreateGuid(), m_problems));
    EXPECT_FALSE(m_folder.Has("规范/甲.hds"));
    EXPECT_EQ(NamesIn(L"规范/已删除/甲.hds"), (CStringArray{L"甲"}));
}

TEST_F(StyleRemovalTest, AFileThatCannotBeReadStaysWhereItIs)
{
    m_folder.Write("规范/甲.hds", "<StyleLibrary>");
    EXPECT_FALSE(m_styles.SetAside(L"甲.hds", CoCreateGuid(), m_problems));
    EXPECT_EQ(m_folder.Read("规范/甲.hds"), "<StyleLibrary>");
    EXPECT_FALSE(m_styles.SetAside(L"none.hds", CoCreateGuid(), m_problems));
    EXPECT_EQ(m_problems.Lines().size(), 2U);
}

TEST_F(StyleRemovalTest, AStyleStaysWhenTheFolderForItCannotBeMade)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    m_folder.Write("规范/已删除", "a file in the way");
    EXPECT_FALSE(m_styles.SetAside(L"甲.hds", id, m_problems));
    EXPECT_TRUE(m_folder.Has("规范/甲.hds"));
    EXPECT_EQ(ToUtf8(m_problems.Text()),
              ToUtf8(m_folder.Path(L"规范/已删除") + L": 文件夹无法创建: 路径中有一段不是文件夹"));
}

TEST_F(StyleRemovalTest, AStyleIsSetAsideWithEveryFileThatHoldsIt)
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
TEST_F(StyleRemovalTest, AStyleIsNotSetAsideWhileAFileThatHeldItCannotBeRead)
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
