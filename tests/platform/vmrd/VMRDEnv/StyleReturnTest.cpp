#include "platform/vmrd/VMRDEnv/StyleReturn.h"

#include "base/Text.h"
#include "tests/platform/vmrd/VMRDEnv/FolderOfStyles.h"

using namespace designspec;

namespace fs = std::filesystem;

namespace {

using StyleReturnTest = FolderOfStyles;

} // namespace

TEST_F(StyleReturnTest, AStyleIsBroughtBack)
{
    const GUID id = FileOf(L"甲.hds", {L"甲"})[0];
    const std::string bytes = m_folder.Read("规范/甲.hds");
    ASSERT_TRUE(m_styles.SetAside(id, m_problems));
    EXPECT_TRUE(m_styles.BringBack(L"甲.hds", m_problems));
    EXPECT_EQ(m_folder.Read("规范/甲.hds"), bytes);
    EXPECT_FALSE(m_folder.Has("规范/已删除/甲.hds"));
}

// Removed twice, the second file got a number behind its name among the deleted ones.
TEST_F(StyleReturnTest, AFileComesBackUnderTheNameThatItHad)
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

TEST_F(StyleReturnTest, AStyleIsNotBroughtBackOverAnother)
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

TEST_F(StyleReturnTest, AStyleWhoseNameIsTakenIsBroughtBackUnderAFreeOne)
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

TEST_F(StyleReturnTest, AStyleThatIsThereIsNotBroughtBackASecondTime)
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

TEST_F(StyleReturnTest, WhatIsNotThereIsNotBroughtBack)
{
    EXPECT_FALSE(m_styles.BringBack(L"none.hds", m_problems));
    EXPECT_EQ(ToUtf8(m_problems.Text()),
              ToUtf8(m_folder.Path(L"规范/已删除/none.hds") + L": 无法读取: 不存在"));
}

TEST_F(StyleReturnTest, ANameThatLeavesTheFolderIsRefused)
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
