#include "base/linux/FileAccess.h"

#include <functional>

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "base/File.h"
#include "tests/support/ProblemList.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

// Some user numbers; nobody needs to have them.
constexpr uid_t kAlice = 40001;
constexpr uid_t kBob = 40002;
constexpr gid_t kTeam = 40100;

class FileAccess : public testing::Test {
protected:
    void SetUp() override
    {
        if (geteuid() != 0) GTEST_SKIP() << "only root can act for two users";
        fs::permissions(m_folder.Native(), fs::perms::all);
    }

    // A file of Alice's with these rights.
    void MakeFile(mode_t mode, gid_t group = kAlice)
    {
        m_folder.Write("a", "old");
        ASSERT_EQ(chown(m_path.c_str(), kAlice, group), 0);
        ASSERT_EQ(chmod(m_path.c_str(), mode), 0);
    }

    // What the test returns when it runs for that user, in these groups.
    static bool As(uid_t user, const std::vector<gid_t>& groups, const std::function<bool()>& test)
    {
        const pid_t child = fork();
        if (child == 0) {
            const gid_t own = user;
            const bool became = setgroups(groups.size(), groups.data()) == 0 &&
                                setresgid(own, own, own) == 0 && setresuid(user, user, user) == 0;
            _exit(became && test() ? 0 : 1);
        }
        int status = 0;
        return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
    bool SavesAs(uid_t user, const std::vector<gid_t>& groups)
    {
        return As(user, groups, [&] { return WriteWholeFile(m_file, "new", m_problems); });
    }
    bool CanRead(uid_t user, const std::vector<gid_t>& groups = {})
    {
        return As(user, groups, [&] { return access(m_path.c_str(), R_OK) == 0; });
    }
    bool CanWrite(uid_t user, const std::vector<gid_t>& groups = {})
    {
        return As(user, groups, [&] { return access(m_path.c_str(), W_OK) == 0; });
    }
    struct stat Status() const
    {
        struct stat status = {};
        EXPECT_EQ(stat(m_path.c_str(), &status), 0);
        return status;
    }
    std::string Attribute(const char* name) const
    {
        std::string value(1000, '\0');
        const ssize_t size = getxattr(m_path.c_str(), name, value.data(), value.size());
        value.resize(size < 0 ? 0 : static_cast<size_t>(size));
        return value;
    }
    // Sets an access control list that lets Bob read.
    void LetBobRead() const
    {
        std::string bytes;
        const posix_acl_xattr_header head = {htole32(POSIX_ACL_XATTR_VERSION)};
        bytes.append(reinterpret_cast<const char*>(&head), sizeof head);
        const auto none = static_cast<std::uint32_t>(ACL_UNDEFINED_ID);
        for (const auto& [tag, perm, id] :
             std::vector<std::tuple<int, int, std::uint32_t>>{{ACL_USER_OBJ, 6, none},
                                                              {ACL_USER, 4, kBob},
                                                              {ACL_GROUP_OBJ, 0, none},
                                                              {ACL_MASK, 4, none},
                                                              {ACL_OTHER, 0, none}}) {
            const posix_acl_xattr_entry one = {htole16(static_cast<std::uint16_t>(tag)),
                                               htole16(static_cast<std::uint16_t>(perm)),
                                               htole32(id)};
            bytes.append(reinterpret_cast<const char*>(&one), sizeof one);
        }
        EXPECT_EQ(
            setxattr(m_path.c_str(), "system.posix_acl_access", bytes.data(), bytes.size(), 0), 0);
    }

    TemporaryFolder m_folder;
    const std::string m_path = m_folder.Native("a");
    const CString m_file = m_folder.Path(L"a");
    ProblemList m_problems;
};

} // namespace

TEST_F(FileAccess, OwnerGroupListAndAttributesStayWhereTheSystemLetsThem)
{
    MakeFile(0640, kTeam);
    LetBobRead();
    const std::string list = Attribute("system.posix_acl_access");
    ASSERT_EQ(setxattr(m_path.c_str(), "user.note", "mine", 4, 0), 0);
    ASSERT_TRUE(WriteWholeFile(m_file, "new", m_problems));
    EXPECT_EQ(Status().st_uid, kAlice);
    EXPECT_EQ(Status().st_gid, kTeam);
    EXPECT_EQ(Attribute("system.posix_acl_access"), list);
    EXPECT_EQ(Attribute("user.note"), "mine");
    EXPECT_EQ(m_folder.Read("a"), "new");
}

TEST_F(FileAccess, ACommonGroupStaysAndTheFormerOwnerIsNotLockedOut)
{
    MakeFile(0660, kTeam);
    ASSERT_TRUE(SavesAs(kBob, {kTeam}));
    EXPECT_EQ(Status().st_uid, kBob);
    EXPECT_EQ(Status().st_gid, kTeam);
    EXPECT_TRUE(CanWrite(kAlice)); // in the group or not
    EXPECT_TRUE(CanWrite(kBob));
    EXPECT_TRUE(CanWrite(50000, {kTeam}));
    EXPECT_FALSE(CanRead(50000));
}

TEST_F(FileAccess, AGroupThatCannotBeGivenKeepsWhatItCouldDo)
{
    MakeFile(0664, kTeam);
    ASSERT_TRUE(SavesAs(kBob, {}));
    EXPECT_EQ(Status().st_gid, kBob);
    EXPECT_TRUE(CanWrite(kAlice));
    EXPECT_TRUE(CanWrite(50000, {kTeam}));
    EXPECT_FALSE(CanWrite(50000, {kBob})); // the saver's own group gains nothing
    EXPECT_TRUE(CanRead(50000));
    EXPECT_FALSE(CanWrite(50000));
}

TEST_F(FileAccess, SavingInTurnsKeepsBothIn)
{
    MakeFile(0600, kTeam);
    LetBobRead();
    ASSERT_TRUE(SavesAs(kBob, {}));
    ASSERT_TRUE(SavesAs(kAlice, {}));
    ASSERT_TRUE(SavesAs(kBob, {}));
    EXPECT_TRUE(CanWrite(kAlice));
    EXPECT_FALSE(CanRead(50000));
    EXPECT_FALSE(CanRead(50000, {kTeam}));
}

TEST_F(FileAccess, AListThatTheFolderHandsDownDoesNotWidenIt)
{
    MakeFile(0600);
    LetBobRead();
    const std::string list = Attribute("system.posix_acl_access");
    ASSERT_EQ(setxattr(m_folder.Native().c_str(), "system.posix_acl_default", list.data(),
                       list.size(), 0),
              0);
    m_folder.Write("b", "for Bob too");
    fs::remove(m_folder.Native("a"));
    const int fd = open(m_path.c_str(), O_CREAT | O_WRONLY, 0600);
    ASSERT_EQ(removexattr(m_path.c_str(), "system.posix_acl_access"), 0);
    ASSERT_EQ(fchmod(fd, 0600), 0);
    close(fd);
    ASSERT_TRUE(WriteWholeFile(m_file, "new", m_problems));
    EXPECT_FALSE(CanRead(kBob));
    EXPECT_EQ(Attribute("system.posix_acl_access"), "");
}

TEST_F(FileAccess, NothingIsGivenWhereThereIsNoFile)
{
    const int fd = open(m_folder.Native("b").c_str(), O_CREAT | O_WRONLY, 0640);
    EXPECT_EQ(GiveAccessOf(m_folder.Native("none"), fd), 0);
    EXPECT_EQ(GiveAccessOf(m_folder.Native(), fd), 0);
    close(fd);
    EXPECT_EQ(fs::status(m_folder.Native("b")).permissions(), fs::perms(0640));
}
