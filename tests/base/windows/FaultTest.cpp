// What Windows is asked to do when a file is written, and what becomes of the file where it fails.
#include <algorithm>
#include <map>

#include "base/FileSystem.h"
#include "tests/base/FileTest.h"
#include "tests/support/windows/Import.h"

namespace {

constexpr int kAlways = 1000;

struct Failure {
    DWORD error = 0;
    int times = kAlways;
};

// What was called, in its order, and what is to fail.
std::vector<std::string> g_calls;
std::map<std::string, Failure> g_failures;

bool Fails(const std::string& call)
{
    g_calls.push_back(call);
    const auto found = g_failures.find(call);
    if (found == g_failures.end() || found->second.times-- <= 0) return false;
    SetLastError(found->second.error);
    return true;
}

decltype(WriteFile)* g_write;
decltype(FlushFileBuffers)* g_flush;
decltype(ReplaceFileW)* g_replace;
decltype(MoveFileExW)* g_move;

BOOL WINAPI Write(HANDLE file, const void* bytes, DWORD size, DWORD* written, OVERLAPPED* place)
{
    if (!Fails("write")) return g_write(file, bytes, size, written, place);
    const DWORD error = GetLastError();
    g_write(file, bytes, size / 2, written, place); // as much as there was room for
    SetLastError(error);
    return FALSE;
}

BOOL WINAPI Flush(HANDLE file)
{
    return !Fails("flush") && g_flush(file);
}

// Where the second of its renames fails, the first one has been made.
BOOL WINAPI Replace(LPCWSTR target, LPCWSTR source, LPCWSTR backup, DWORD how, void* a, void* b)
{
    if (!Fails("replace")) return g_replace(target, source, backup, how, a, b);
    const DWORD error = GetLastError();
    if (error == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2) g_move(target, backup, 0);
    SetLastError(error);
    return FALSE;
}

BOOL WINAPI Move(LPCWSTR source, LPCWSTR target, DWORD how)
{
    return !Fails("move") && g_move(source, target, how);
}

class FileFaults : public File {
protected:
    FileFaults()
    {
        const HMODULE program = GetModuleHandleW(nullptr);
        g_write = Import(program, "WriteFile", Write);
        g_flush = Import(program, "FlushFileBuffers", Flush);
        g_replace = Import(program, "ReplaceFileW", Replace);
        g_move = Import(program, "MoveFileExW", Move);
        g_calls.clear();
    }
    ~FileFaults() override
    {
        const HMODULE program = GetModuleHandleW(nullptr);
        Import(program, "WriteFile", g_write);
        Import(program, "FlushFileBuffers", g_flush);
        Import(program, "ReplaceFileW", g_replace);
        Import(program, "MoveFileExW", g_move);
        g_failures.clear();
    }

    // Expects that the file is not written, for that cause, and is as it was, with nothing beside.
    void ExpectUnchanged(const CString& cause)
    {
        const CString path = m_folder.Write("a.hds", "old");
        EXPECT_FALSE(WriteWholeFile(path, "new", m_problems));
        ExpectProblem(path, L"无法写入: " + cause);
        EXPECT_EQ(m_folder.Read("a.hds"), "old");
        EXPECT_EQ(m_folder.Count(), 1);
    }

    using Calls = std::vector<std::string>;
};

} // namespace

TEST_F(FileFaults, AreMetByFlushingBeforeAndAfterAFileIsPutInPlace)
{
    const CString path = m_folder.Path(L"a.hds");
    for (const char* bytes : {"1", "2"}) {
        g_calls.clear();
        ASSERT_TRUE(WriteWholeFile(path, bytes, m_problems));
        EXPECT_EQ(g_calls, (Calls{"write", "flush", "move", "flush"})) << "the last: the folder";
    }
    // Others have it open.
    g_calls.clear();
    g_failures = {{"move", {ERROR_ACCESS_DENIED}}};
    ASSERT_TRUE(WriteWholeFile(path, "3", m_problems));
    g_calls.erase(std::unique(g_calls.begin(), g_calls.end()), g_calls.end());
    EXPECT_EQ(g_calls, (Calls{"write", "flush", "move", "replace", "flush"}));
    EXPECT_EQ(m_folder.Read("a.hds"), "3");
    EXPECT_EQ(m_folder.Count(), 1);
    ExpectSilence();
}

TEST_F(FileFaults, OfAFullDiskLeaveTheOldFile)
{
    const DWORD errors[] = {ERROR_DISK_FULL, ERROR_HANDLE_DISK_FULL};
    for (const DWORD error : errors)
        for (const char* call : {"write", "flush"}) {
            g_failures = {{call, {error}}};
            ExpectUnchanged(L"磁盘空间不足");
        }
}

TEST_F(FileFaults, OfTheDeviceLeaveTheOldFile)
{
    for (const char* call : {"write", "flush", "move"}) {
        g_failures = {{call, {ERROR_IO_DEVICE}}};
        ExpectUnchanged(L"读写出错");
    }
    g_failures = {{"move", {ERROR_ACCESS_DENIED}}, {"replace", {ERROR_IO_DEVICE}}};
    ExpectUnchanged(L"读写出错");
}

TEST_F(FileFaults, OfANewFileLeaveNone)
{
    for (const char* call : {"write", "flush", "move"}) {
        g_failures = {{call, {ERROR_IO_DEVICE}}};
        EXPECT_FALSE(WriteWholeFile(m_folder.Path(L"a.hds"), "new", m_problems));
        ExpectProblem(m_folder.Path(L"a.hds"), L"无法写入: 读写出错");
        EXPECT_EQ(m_folder.Count(), 0);
    }
}

// The old file has another name then.
TEST_F(FileFaults, BetweenTheRenamesOfAReplacementEndWithTheNewFileOrTheOldOne)
{
    const CString path = m_folder.Write("a.hds", "old");
    g_failures = {{"move", {ERROR_ACCESS_DENIED}}};
    ASSERT_TRUE(WriteWholeFile(path, "old", m_problems));
    // How often it is tried without a replacement.
    const int before = static_cast<int>(std::count(g_calls.begin(), g_calls.end(), "move"));
    g_failures = {{"move", {ERROR_ACCESS_DENIED, before}},
                  {"replace", {ERROR_UNABLE_TO_MOVE_REPLACEMENT_2}}};
    EXPECT_TRUE(WriteWholeFile(path, "new", m_problems));
    EXPECT_EQ(m_folder.Read("a.hds"), "new");
    EXPECT_EQ(m_folder.Count(), 1);
    ExpectSilence();
    g_failures = {{"move", {ERROR_ACCESS_DENIED, before + 1}},
                  {"replace", {ERROR_UNABLE_TO_MOVE_REPLACEMENT_2, 1}}};
    EXPECT_TRUE(WriteWholeFile(path, "newer", m_problems)) << "tried again";
    EXPECT_EQ(m_folder.Read("a.hds"), "newer");
    EXPECT_EQ(m_folder.Count(), 1);
}
