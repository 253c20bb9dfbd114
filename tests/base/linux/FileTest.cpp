// Permissions, links, pipes and limits, as Linux has them.
#include "tests/base/FileTest.h"

#include <chrono>
#include <csignal>
#include <functional>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

// Runs `test` in a process of its own, which may give up rights and limit itself; prints what went
// wrong there.
bool PassesInChild(const std::function<std::string()>& test)
{
    const pid_t child = fork();
    if (child == 0) {
        const std::string wrong = test();
        if (!wrong.empty()) std::fprintf(stderr, "in the child: %s\n", wrong.c_str());
        _exit(wrong.empty() ? 0 : 1);
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Permissions do not bind root; an ordinary user is bound.
void BecomeOrdinaryUser()
{
    if (geteuid() == 0 && seteuid(65534) != 0) _exit(2);
}

ino_t InodeOf(const fs::path& path)
{
    struct stat status = {};
    return lstat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

} // namespace

TEST_F(File, ANewFileHasThePermissionsThatTheMaskLeaves)
{
    const mode_t before = umask(027);
    EXPECT_TRUE(WriteWholeFile(m_folder.Path(L"a"), "x", m_problems));
    umask(before);
    EXPECT_EQ(fs::status(m_folder.Native("a")).permissions(), fs::perms(0640));
}

TEST_F(File, KeepsThePermissionsOfTheFileItReplaces)
{
    m_folder.Write("a", "old");
    for (const auto mode : {fs::perms(0600), fs::perms(0664), fs::perms(0640)}) {
        fs::permissions(m_folder.Native("a"), mode);
        EXPECT_TRUE(WriteWholeFile(m_folder.Path(L"a"), "new", m_problems));
        EXPECT_EQ(fs::status(m_folder.Native("a")).permissions(), mode);
    }
}

TEST_F(File, ReplacesALinkAndLeavesWhatItLeadsTo)
{
    m_folder.Write("real", "old");
    fs::create_symlink("real", m_folder.Native("link"));
    EXPECT_TRUE(WriteWholeFile(m_folder.Path(L"link"), "new", m_problems));
    EXPECT_FALSE(fs::is_symlink(m_folder.Native("link")));
    EXPECT_EQ(m_folder.Read("link"), "new");
    EXPECT_EQ(m_folder.Read("real"), "old");
}

TEST_F(File, AFullDiskLeavesTheOldFileWhole)
{
    m_folder.Write("a", "old");
    EXPECT_TRUE(PassesInChild([this]() -> std::string {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {1 << 16, 1 << 16};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return "no limit";
        if (WriteWholeFile(m_folder.Path(L"a"), std::string(1 << 17, 'x'), m_problems))
            return "written";
        if (m_problems.Text() != m_folder.Path(L"a") + L": 无法写入: 超出文件大小限制")
            return ToUtf8(m_problems.Text());
        return "";
    }));
    EXPECT_EQ(m_folder.Read("a"), "old");
    EXPECT_EQ(m_folder.Count(), 1);
}

TEST_F(File, AFolderWithoutPermissionLeavesTheOldFileWhole)
{
    m_folder.Write("a", "old");
    fs::permissions(m_folder.Native(), fs::perms(0555));
    EXPECT_TRUE(PassesInChild([this]() -> std::string {
        BecomeOrdinaryUser();
        if (WriteWholeFile(m_folder.Path(L"a"), "new", m_problems)) return "written";
        if (m_problems.Text() != m_folder.Path(L"a") + L": 无法写入: 没有权限")
            return ToUtf8(m_problems.Text());
        m_problems.Clear();
        if (DeleteFile(m_folder.Path(L"a"), m_problems)) return "deleted";
        if (m_problems.Text() != m_folder.Path(L"a") + L": 无法删除: 没有权限")
            return ToUtf8(m_problems.Text());
        m_problems.Clear();
        if (MoveFile(m_folder.Path(L"a"), m_folder.Path(L"b"), m_problems)) return "moved";
        if (m_problems.Text() != m_folder.Path(L"a") + L": 无法移动: 没有权限")
            return ToUtf8(m_problems.Text());
        return "";
    }));
    fs::permissions(m_folder.Native(), fs::perms(0755));
    EXPECT_EQ(m_folder.Read("a"), "old");
    EXPECT_EQ(m_folder.Count(), 1);
}

TEST_F(File, AFolderThatMayNotBeListedIsStillWrittenInto)
{
    fs::permissions(m_folder.Native(), fs::perms(0333));
    EXPECT_TRUE(PassesInChild([this]() -> std::string {
        BecomeOrdinaryUser();
        if (!WriteWholeFile(m_folder.Path(L"a"), "new", m_problems))
            return ToUtf8(m_problems.Text());
        if (!FindFiles(m_folder.Path(), L"", m_problems).empty()) return "listed";
        if (m_problems.Text() != m_folder.Path() + L": 文件夹无法读取: 没有权限")
            return ToUtf8(m_problems.Text());
        return "";
    }));
    fs::permissions(m_folder.Native(), fs::perms(0755));
    EXPECT_EQ(m_folder.Read("a"), "new");
}

TEST_F(File, AnUnreadableFileIsTold)
{
    fs::permissions(m_folder.Native(), fs::perms(0755));
    m_folder.Write("a", "old");
    fs::permissions(m_folder.Native("a"), fs::perms(0));
    EXPECT_TRUE(PassesInChild([this]() -> std::string {
        BecomeOrdinaryUser();
        std::string bytes;
        if (ReadWholeFile(m_folder.Path(L"a"), bytes, 100, m_problems)) return "read";
        return m_problems.Text() == m_folder.Path(L"a") + L": 无法读取: 没有权限"
                   ? ""
                   : ToUtf8(m_problems.Text());
    }));
}

// A file without any right to write is one that nobody wants changed.
TEST_F(File, DoesNotReplaceAFileThatIsReadOnly)
{
    m_folder.Write("a", "old");
    fs::permissions(m_folder.Native("a"), fs::perms(0444));
    EXPECT_FALSE(WriteWholeFile(m_folder.Path(L"a"), "new", m_problems));
    ExpectProblem(m_folder.Path(L"a"), L"无法写入: 文件是只读的");
    EXPECT_EQ(m_folder.Read("a"), "old");
    EXPECT_EQ(m_folder.Count(), 1);
    // A copy of it is there to be changed.
    EXPECT_TRUE(CopyFile(m_folder.Path(L"a"), m_folder.Path(L"b"), m_problems));
    EXPECT_EQ(fs::status(m_folder.Native("b")).permissions(), fs::perms(0644));
}

TEST_F(File, ACopyOfAPrivateFileIsPrivate)
{
    m_folder.Write("a", "mine");
    fs::permissions(m_folder.Native("a"), fs::perms(0600));
    fs::create_symlink("a", m_folder.Native("link"));
    EXPECT_TRUE(CopyFile(m_folder.Path(L"link"), m_folder.Path(L"b"), m_problems));
    EXPECT_EQ(fs::symlink_status(m_folder.Native("b")).permissions(), fs::perms(0600));
}

TEST_F(File, WhatCannotBeSeenIsNotTakenForMissing)
{
    fs::permissions(m_folder.Native(), fs::perms(0755));
    m_folder.Write("closed/a", "old");
    fs::permissions(m_folder.Native("closed"), fs::perms(0));
    EXPECT_TRUE(PassesInChild([this]() -> std::string {
        BecomeOrdinaryUser();
        const CString path = m_folder.Path(L"closed/a");
        const CString told = path + L": 无法查看: 没有权限";
        if (PathFileExists(path, m_problems) || m_problems.Text() != told)
            return ToUtf8(m_problems.Text());
        m_problems.Clear();
        if (IsSameFile(path, path, m_problems) || m_problems.Text() != told)
            return ToUtf8(m_problems.Text());
        m_problems.Clear();
        return FindFiles(m_folder.Path(L"closed/b"), L"", m_problems).empty() &&
                       !m_problems.Lines().empty()
                   ? ""
                   : "seen";
    }));
    fs::permissions(m_folder.Native("closed"), fs::perms(0755));
    EXPECT_EQ(PathFileExists(m_folder.Path(L"closed/a"), m_problems), true);
    EXPECT_EQ(PathFileExists(m_folder.Path(L"closed/b"), m_problems), false);
    EXPECT_EQ(PathFileExists(m_folder.Path(L"closed/a/b"), m_problems), false);
    ExpectSilence();
}

// The signal that comes with the limit would end the process.
TEST_F(File, AFileBeyondTheLimitOfSizesIsToldWithoutASignal)
{
    EXPECT_TRUE(PassesInChild([this]() -> std::string {
        const rlimit limit = {1 << 16, 1 << 16};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return "no limit";
        if (WriteWholeFile(m_folder.Path(L"a"), std::string(1 << 17, 'x'), m_problems))
            return "written";
        sigset_t pending;
        sigset_t blocked;
        if (sigpending(&pending) != 0 || sigismember(&pending, SIGXFSZ) != 0) return "pending";
        sigprocmask(SIG_SETMASK, nullptr, &blocked);
        return sigismember(&blocked, SIGXFSZ) == 0 ? "" : "blocked";
    }));
    EXPECT_EQ(m_folder.Count(), 0);
}

TEST_F(File, WritersAtTheSameTimeNeverMixTheirText)
{
    const CString path = m_folder.Path(L"a");
    const std::string texts[] = {std::string(300000, 'a'), std::string(200000, 'b')};
    pid_t children[2] = {};
    for (int i = 0; i < 2; ++i) {
        children[i] = fork();
        if (children[i] != 0) continue;
        bool done = true;
        for (int k = 0; k < 20; ++k)
            done = WriteWholeFile(path, texts[i], m_problems) && done;
        _exit(done ? 0 : 1);
    }
    for (const pid_t child : children) {
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    const std::string result = m_folder.Read("a");
    EXPECT_TRUE(result == texts[0] || result == texts[1]);
    EXPECT_EQ(m_folder.Count(), 1);
}

TEST_F(File, FindsANameThatIsNotUtf8AndReadsIt)
{
    m_folder.Write("\xB9\xE6.hds", "content");
    const CStringArray names = FindFiles(m_folder.Path(), L".hds", m_problems);
    ASSERT_EQ(names.size(), 1U);
    std::string bytes;
    EXPECT_TRUE(ReadWholeFile(m_folder.Path(names[0]), bytes, 100, m_problems));
    EXPECT_EQ(bytes, "content");
}

TEST_F(File, DoesNotWaitForAPipeToBeWritten)
{
    ASSERT_EQ(mkfifo(m_folder.Native("pipe").c_str(), 0666), 0);
    const auto start = std::chrono::steady_clock::now();
    std::string bytes;
    EXPECT_FALSE(ReadWholeFile(m_folder.Path(L"pipe"), bytes, 100, m_problems));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    ExpectProblem(m_folder.Path(L"pipe"), L"无法读取: 不是普通文件");
}

TEST_F(File, ReadsNoLinkThatLeadsToItself)
{
    fs::create_symlink("b", m_folder.Native("a"));
    fs::create_symlink("a", m_folder.Native("b"));
    std::string bytes;
    EXPECT_FALSE(ReadWholeFile(m_folder.Path(L"a"), bytes, 100, m_problems));
    ExpectProblem(m_folder.Path(L"a"), L"无法读取: 符号链接成环");
    EXPECT_TRUE(PathFileExists(m_folder.Path(L"a")));
}

TEST_F(File, IsTheSameByWhateverPath)
{
    const CString path = m_folder.Write("a", "x");
    m_folder.Write("b", "x");
    fs::create_symlink("a", m_folder.Native("link"));
    fs::create_hard_link(m_folder.Native("a"), m_folder.Native("hard"));
    EXPECT_TRUE(IsSameFile(path, path, m_problems).value());
    EXPECT_TRUE(IsSameFile(path, m_folder.Path(L"link"), m_problems).value());
    EXPECT_TRUE(IsSameFile(path, m_folder.Path(L"hard"), m_problems).value());
    EXPECT_TRUE(IsSameFile(path, m_folder.Path(L".\\a"), m_problems).value());
    EXPECT_FALSE(IsSameFile(path, m_folder.Path(L"b"), m_problems).value());
    EXPECT_FALSE(IsSameFile(m_folder.Path(L"none"), m_folder.Path(L"none"), m_problems).value());
    ExpectSilence();
}

TEST_F(File, MovesAndDeletes)
{
    m_folder.Write("a", "text");
    const ino_t inode = InodeOf(m_folder.Native("a"));
    EXPECT_TRUE(MoveFile(m_folder.Path(L"a"), m_folder.Path(L"b"), m_problems));
    EXPECT_EQ(InodeOf(m_folder.Native("b")), inode);
    EXPECT_FALSE(m_folder.Has("a"));
    EXPECT_TRUE(DeleteFile(m_folder.Path(L"b"), m_problems));
    EXPECT_EQ(m_folder.Count(), 0);
    ExpectSilence();
}

TEST_F(File, HasASecondNameUntilItIsWrittenAnew)
{
    const std::wstring a = m_folder.Write("a", "one");
    const std::wstring b = m_folder.Path(L"b");
    EXPECT_TRUE(LinkFile(a, b));
    EXPECT_EQ(fs::hard_link_count(m_folder.Native("a")), 2U);
    EXPECT_FALSE(LinkFile(a, b)) << "it is there";
    EXPECT_FALSE(LinkFile(m_folder.Path(L"none"), m_folder.Path(L"c")));
    EXPECT_FALSE(LinkFile(L"", m_folder.Path(L"c")));
    EXPECT_FALSE(LinkFile(a, L""));
    EXPECT_FALSE(LinkFile(a, std::wstring(L"/proc/self/x")));
    EXPECT_TRUE(WriteWholeFile(a, "two", m_problems));
    EXPECT_EQ(m_folder.Read("b"), "one");
    ExpectSilence();
}

TEST_F(File, MakesAFolderForThoseWhoMayUseAnother)
{
    fs::create_directory(m_folder.Native("model"));
    fs::permissions(m_folder.Native("model"), fs::perms(0770));
    EXPECT_TRUE(CreateFolder(m_folder.Path(L"new"), m_problems, m_folder.Path(L"model")));
    EXPECT_EQ(fs::status(m_folder.Native("new")).permissions(), fs::perms(0770));
    fs::permissions(m_folder.Native("model"), fs::perms(0700));
    EXPECT_TRUE(CreateFolder(m_folder.Path(L"new"), m_problems, m_folder.Path(L"model")));
    EXPECT_EQ(fs::status(m_folder.Native("new")).permissions(), fs::perms(0770)) << "not new";
    EXPECT_TRUE(CreateFolder(m_folder.Path(L"other"), m_problems, m_folder.Path(L"none")));
    ExpectSilence();
}

TEST_F(File, DoesNotWriteBelowAFile)
{
    m_folder.Write("a", "old");
    const CString path = m_folder.Path(L"a/b");
    EXPECT_FALSE(WriteWholeFile(path, "new", m_problems));
    ExpectProblem(path, L"无法写入: 路径中有一段不是文件夹");
    EXPECT_EQ(m_folder.Read("a"), "old");
}

TEST_F(File, DoesNotWriteANameThatIsTooLong)
{
    const CString path = m_folder.Path(CString(256, L'a'));
    EXPECT_FALSE(WriteWholeFile(path, "new", m_problems));
    ExpectProblem(path, L"无法写入: 文件名过长");
    EXPECT_EQ(m_folder.Count(), 0);
    EXPECT_TRUE(WriteWholeFile(m_folder.Path(CString(255, L'a')), "new", m_problems));
}

TEST_F(File, CopiesNoFileThatWouldNotFitIntoMemory)
{
    m_folder.Write("huge", "");
    fs::resize_file(m_folder.Native("huge"), std::uintmax_t{1} << 40); // a hole: takes no room
    EXPECT_FALSE(CopyFile(m_folder.Path(L"huge"), m_folder.Path(L"b"), m_problems));
    ExpectProblem(m_folder.Path(L"huge"),
                  L"无法读取: 文件大于 " + std::to_wstring(LargestWholeFile() >> 20) + L" MiB");
    EXPECT_FALSE(m_folder.Has("b"));
}

TEST_F(File, FindsNamesThatDifferByCaseInAnOrderOfTheirOwn)
{
    m_folder.Write("a.hds", "");
    m_folder.Write("A.HDS", "");
    EXPECT_EQ(FindFiles(m_folder.Path(), L".hds", m_problems), (CStringArray{L"A.HDS", L"a.hds"}));
}
