#include "platform/vmrd/VMRDEnv/DeletedStyles.h"

#include "tests/platform/vmrd/VMRDEnv/FolderOfStyles.h"

using namespace designspec;

namespace {

using DeletedStylesTest = FolderOfStyles;

} // namespace

TEST_F(DeletedStylesTest, AreListedByTheirFiles)
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

TEST_F(DeletedStylesTest, KeepsACopyAmongTheDeleted)
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
