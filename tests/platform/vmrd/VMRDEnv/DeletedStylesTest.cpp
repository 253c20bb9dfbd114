#include "platform/vmrd/VMRDEnv/DeletedStyles.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "tests/platform/vmrd/VMRDEnv/SignStyles.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceCapture.h"

using namespace designspec;

namespace fs = std::filesystem;

namespace {

class Deleted : public testing::Test {
protected:
    Deleted()
    {
        VMRDPub::SetCurPrjPath(m_folder.Path());
        fs::create_directory(m_folder.Native("规范"));
    }
    ~Deleted() override { VMRDPub::SetCurPrjPath(L""); }

    // Makes a file of the library folder that holds a sign of each name; returns their identities.
    std::vector<GUID> FileOf(const CString& file, const CStringArray& names)
    {
        std::vector<GUID> ids;
        CSigns signs;
        for (const CString& name : names) {
            ids.push_back(CoCreateGuid());
            signs.Add(name, ids.back());
        }
        EXPECT_TRUE(signs.Export((StylesFolder() + L"/" + file).c_str(), {}, nullptr));
        return ids;
    }
    // What stands in the folder of the deleted ones, sorted.
    CStringArray AsideFiles() const { return FindFiles(DeletedStylesFolder(), L""); }
    CStringArray NamesIn(std::wstring_view file)
    {
        CStringArray names;
        CArray<GUID> ids;
        EXPECT_TRUE(m_signs.StyleNames(m_folder.Path(file).c_str(), names, ids));
        return names;
    }

    TemporaryFolder m_folder;
    TraceCapture m_trace;
    CSigns m_signs;
};

} // namespace

TEST_F(Deleted, StandsInAFolderOfTheProject)
{
    EXPECT_EQ(StylesFolder(), m_folder.Path() + L"\\规范");
    EXPECT_EQ(DeletedStylesFolder(), m_folder.Path() + L"\\规范\\已删除");
    EXPECT_TRUE(DeletedStyles(m_signs).empty());
    EXPECT_EQ(m_trace.Text(), L"");
}

TEST_F(Deleted, AStyleWithAFileOfItsOwnGoesWithItsFile)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    const std::string bytes = m_folder.Read("规范/甲.hds");
    EXPECT_TRUE(SetStyleAside(m_signs, L"甲.hds", id));
    EXPECT_FALSE(m_folder.Has("规范/甲.hds"));
    EXPECT_EQ(m_folder.Read("规范/已删除/甲.hds"), bytes);
    ASSERT_EQ(m_trace.Lines().size(), 1U);
    EXPECT_EQ(m_trace.Lines()[0].level, TraceLevel::Note);
    EXPECT_EQ(ToUtf8(m_trace.Text()), ToUtf8(m_folder.Path(L"规范/甲.hds: 已移至 ")) +
                                          NativePath(DeletedStylesFolder() + L"\\甲.hds"));
}

TEST_F(Deleted, AFileOfSeveralStylesKeepsTheOthers)
{
    const GUID id = FileOf(L"甲.hds", {L"甲", L"乙"})[0];
    const std::string bytes = m_folder.Read("规范/甲.hds");
    EXPECT_TRUE(SetStyleAside(m_signs, L"甲.hds", id));
    EXPECT_EQ(NamesIn(L"规范/甲.hds"), (CStringArray{L"乙"}));
    EXPECT_EQ(m_folder.Read("规范/已删除/甲.hds"), bytes);
}

TEST_F(Deleted, WhatWasSetAsideEarlierStays)
{
    for (int i = 0; i < 3; ++i) {
        const CString name = Format(L"第%d次", i);
        EXPECT_TRUE(SetStyleAside(m_signs, L"甲.hds", FileOf(L"甲.hds", {name})[0]));
    }
    EXPECT_EQ(NamesIn(L"规范/已删除/甲.hds"), (CStringArray{L"第0次"}));
    EXPECT_EQ(NamesIn(L"规范/已删除/甲(1).hds"), (CStringArray{L"第1次"}));
    EXPECT_EQ(NamesIn(L"规范/已删除/甲(2).hds"), (CStringArray{L"第2次"}));
}

TEST_F(Deleted, AFileThatDoesNotHoldTheStyleStaysWhereItIs)
{
    FileOf(L"甲.hds", {L"甲", L"乙"});
    m_folder.Write("规范/空.hds", "<StyleLibrary/>");
    for (const wchar_t* file : {L"甲.hds", L"空.hds"}) {
        m_trace.Clear();
        EXPECT_FALSE(SetStyleAside(m_signs, file, CoCreateGuid()));
        EXPECT_TRUE(m_folder.Has("规范/" + ToUtf8(file)));
        EXPECT_EQ(ToUtf8(m_trace.Text()),
                  ToUtf8(m_folder.Path(L"规范/") + file + L": 文件中没有要删除的样式"));
    }
    EXPECT_FALSE(m_folder.Has("规范/已删除"));
}

TEST_F(Deleted, AFileWithOneStyleGoesEvenIfItsIdentityCannotBeRead)
{
    m_folder.Write("规范/甲.hds", "<StyleLibrary><Group Name='标志'><Styles Name='标志'>"
                                  "<Style Name='甲'/></Styles></Group></StyleLibrary>");
    EXPECT_TRUE(SetStyleAside(m_signs, L"甲.hds", CoCreateGuid()));
    EXPECT_FALSE(m_folder.Has("规范/甲.hds"));
    EXPECT_EQ(NamesIn(L"规范/已删除/甲.hds"), (CStringArray{L"甲"}));
}

TEST_F(Deleted, NoCopyIsLeftWhenTheStyleCannotBeTakenOut)
{
    const GUID id = FileOf(L"甲.hds", {L"甲", L"乙"})[0];
    const std::string bytes = m_folder.Read("规范/甲.hds");
    fs::create_directory(m_folder.Native("规范/已删除"));
    fs::permissions(m_folder.Native(), fs::perms(0755));
    fs::permissions(m_folder.Native("规范"), fs::perms(0555));
    fs::permissions(m_folder.Native("规范/已删除"), fs::perms(0777));
    const bool root = geteuid() == 0;
    ASSERT_TRUE(!root || seteuid(65534) == 0); // permissions do not bind root
    EXPECT_FALSE(SetStyleAside(m_signs, L"甲.hds", id));
    ASSERT_TRUE(!root || seteuid(0) == 0);
    fs::permissions(m_folder.Native("规范"), fs::perms(0755));
    EXPECT_EQ(m_folder.Read("规范/甲.hds"), bytes);
    EXPECT_TRUE(AsideFiles().empty());
    EXPECT_EQ(m_trace.Lines().size(), 1U);
}

TEST_F(Deleted, AFileThatCannotBeReadStaysWhereItIs)
{
    m_folder.Write("规范/甲.hds", "<StyleLibrary>");
    EXPECT_FALSE(SetStyleAside(m_signs, L"甲.hds", CoCreateGuid()));
    EXPECT_EQ(m_folder.Read("规范/甲.hds"), "<StyleLibrary>");
    EXPECT_FALSE(SetStyleAside(m_signs, L"none.hds", CoCreateGuid()));
    EXPECT_EQ(m_trace.Lines().size(), 2U);
}

TEST_F(Deleted, AStyleStaysWhenTheFolderForItCannotBeMade)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    m_folder.Write("规范/已删除", "a file in the way");
    EXPECT_FALSE(SetStyleAside(m_signs, L"甲.hds", id));
    EXPECT_TRUE(m_folder.Has("规范/甲.hds"));
    EXPECT_EQ(ToUtf8(m_trace.Text()),
              ToUtf8(m_folder.Path(L"规范/已删除") + L": 文件夹无法创建: 路径中有一段不是文件夹"));
}

TEST_F(Deleted, AStyleIsSetAsideWithEveryFileThatHoldsIt)
{
    const GUID id = FileOf(L"a.hds", {L"甲"})[0];
    fs::copy_file(m_folder.Native("规范/a.hds"), m_folder.Native("规范/B.HDS"));
    FileOf(L"c.hds", {L"丙"});
    m_folder.Write("规范/broken.hds", "<");
    fs::create_directory(m_folder.Native("规范/folder.hds"));
    EXPECT_TRUE(SetStyleAside(m_signs, id));
    EXPECT_EQ(AsideFiles(), (CStringArray{L"a.hds", L"B.HDS"}));
    EXPECT_TRUE(m_folder.Has("规范/c.hds"));
    EXPECT_TRUE(m_folder.Has("规范/broken.hds"));
    EXPECT_TRUE(SetStyleAside(m_signs, CoCreateGuid()));
}

TEST_F(Deleted, AreListedByTheirFiles)
{
    const GUID second = FileOf(L"b.hds", {L"乙"})[0];
    const GUID first = FileOf(L"A.hds", {L"甲"})[0];
    EXPECT_TRUE(SetStyleAside(m_signs, second));
    EXPECT_TRUE(SetStyleAside(m_signs, first));
    m_folder.Write("规范/已删除/broken.hds", "<");
    m_folder.Write("规范/已删除/empty.hds", "<StyleLibrary/>");
    m_folder.Write("规范/已删除/note.txt", "x");
    m_trace.Clear();
    const auto deleted = DeletedStyles(m_signs);
    ASSERT_EQ(deleted.size(), 2U);
    EXPECT_EQ(deleted[0].file, L"A.hds");
    EXPECT_EQ(deleted[0].name, L"甲");
    EXPECT_EQ(deleted[0].id, first);
    EXPECT_EQ(deleted[1].file, L"b.hds");
    EXPECT_EQ(deleted[1].name, L"乙");
    EXPECT_EQ(deleted[1].id, second);
    ASSERT_EQ(m_trace.Lines().size(), 1U);
    EXPECT_EQ(m_trace.Lines()[0].file, m_folder.Path(L"规范/已删除/broken.hds"));
}

TEST_F(Deleted, AStyleIsBroughtBack)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    const std::string bytes = m_folder.Read("规范/甲.hds");
    ASSERT_TRUE(SetStyleAside(m_signs, id));
    EXPECT_TRUE(BringStyleBack(L"甲.hds"));
    EXPECT_EQ(m_folder.Read("规范/甲.hds"), bytes);
    EXPECT_FALSE(m_folder.Has("规范/已删除/甲.hds"));
}

TEST_F(Deleted, AStyleIsNotBroughtBackOverAnother)
{
    ASSERT_TRUE(SetStyleAside(m_signs, FileOf(L"甲.hds", {L"旧"})[0]));
    FileOf(L"甲.hds", {L"新"});
    m_trace.Clear();
    EXPECT_FALSE(BringStyleBack(L"甲.hds"));
    EXPECT_EQ(ToUtf8(m_trace.Text()),
              ToUtf8(m_folder.Path(L"规范/甲.hds") + L": 无法恢复: 同名文件已存在"));
    EXPECT_EQ(NamesIn(L"规范/甲.hds"), (CStringArray{L"新"}));
    EXPECT_EQ(NamesIn(L"规范/已删除/甲.hds"), (CStringArray{L"旧"}));
}

TEST_F(Deleted, WhatIsNotThereIsNotBroughtBack)
{
    EXPECT_FALSE(BringStyleBack(L"none.hds"));
    EXPECT_EQ(ToUtf8(m_trace.Text()),
              ToUtf8(m_folder.Path(L"规范/已删除/none.hds") + L": 无法移动: 不存在"));
}

TEST_F(Deleted, ANameThatLeavesTheFolderIsRefused)
{
    const GUID id = FileOf(L"..\\外.hds", {L"外"})[0];
    for (const CString& name : {CString(L"..\\外.hds"), CString(L"../外.hds"), CString(L".."),
                                CString(L""), CString(L"a\0.hds", 6), CString(256, L'a')}) {
        m_trace.Clear();
        EXPECT_FALSE(SetStyleAside(m_signs, name, id));
        EXPECT_EQ(m_trace.Lines().size(), 1U);
        m_trace.Clear();
        EXPECT_FALSE(BringStyleBack(name));
        ASSERT_EQ(m_trace.Lines().size(), 1U);
        EXPECT_EQ(ToUtf8(m_trace.Lines()[0].text), "文件名无效");
    }
    EXPECT_TRUE(m_folder.Has("外.hds"));
}
