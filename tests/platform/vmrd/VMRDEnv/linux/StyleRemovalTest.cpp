// Links and permissions.
#include "platform/vmrd/VMRDEnv/StyleRemoval.h"

#include <unistd.h>

#include "base/Text.h"
#include "tests/platform/vmrd/VMRDEnv/FolderOfStyles.h"

using namespace designspec;

namespace fs = std::filesystem;

namespace {

using StyleRemovalTest = FolderOfStyles;

} // namespace

TEST_F(StyleRemovalTest, ALinkThatIsSetAsideLeadsWhereItLed)
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

TEST_F(StyleRemovalTest, NoCopyIsLeftWhenTheStyleCannotBeTakenOut)
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
