// Links, pipes and permissions.
#include "tests/library/BadInputTest.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

// Permissions do not bind root: acts as an ordinary user while it stands.
class OrdinaryUser {
public:
    OrdinaryUser()
    {
        if (geteuid() == 0) m_changed = seteuid(65534) == 0;
    }
    ~OrdinaryUser()
    {
        if (m_changed && seteuid(0) != 0) std::abort();
    }

private:
    bool m_changed = false;
};

} // namespace

TEST_F(BadInput, ALinkToItself)
{
    fs::create_symlink("m.hds", m_project.Native("规范/m.hds"));
    ExpectRefusedAsItIs(0, L"无法读取: 符号链接成环");
}

TEST_F(BadInput, ALinkToNowhere)
{
    fs::create_symlink("nowhere", m_project.Native("规范/m.hds"));
    ExpectRefusedAsItIs(0, L"无法读取: 不存在");
}

TEST_F(BadInput, APipe)
{
    ASSERT_EQ(mkfifo(m_project.Native("规范/m.hds").c_str(), 0600), 0);
    ExpectRefusedAsItIs(0, L"无法读取: 不是普通文件");
}

TEST_F(BadInput, WithoutPermission)
{
    m_project.Write("规范/m.hds", Envelope(Style("m", kIdC)));
    fs::permissions(m_project.Native("规范/m.hds"), fs::perms::none);
    fs::permissions(m_project.Native(), fs::perms::all);
    {
        const OrdinaryUser user;
        ExpectRefusedAsItIs(0, L"无法读取: 没有权限");
    }
    fs::permissions(m_project.Native("规范"), fs::perms::none);
    {
        const OrdinaryUser user;
        m_trace.Clear();
        Library().Update();
        EXPECT_EQ(Library().Count(), 0);
        EXPECT_TRUE(Traced("规范", 0, L"文件夹无法读取: 没有权限"));
        EXPECT_FALSE(Library().Save(&Add(Make(L"new"))));
    }
    fs::permissions(m_project.Native("规范"), fs::perms::all);
    EXPECT_EQ(std::distance(fs::directory_iterator(m_project.Native("规范")), {}), 3);
}
