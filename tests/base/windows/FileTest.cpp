// Paths, names and attributes, as Windows has them.
#include "tests/base/FileTest.h"

#include <set>
#include <thread>

#include "base/windows/Windows.h"
#include "base/windows/WindowsPath.h"
#include "tests/support/OtherProcess.h"

namespace {

// The name by which the folder shows the file.
std::wstring ShownName(const std::wstring& path)
{
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(WindowsPath(path).c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) FindClose(search);
    return found.cFileName;
}

// Writes the file forty times, each time as much of another letter.
void WriteOften(const std::string& task)
{
    Problems problems;
    for (int i = 0; i < 40; ++i)
        if (!WriteWholeFile(ToWide(task.substr(1)), std::string(200000, task[0]), problems))
            OtherProcess::Tell(ToUtf8(problems.back().Text()));
    OtherProcess::Tell("done");
}

const OtherProcess::Part kWriting("writes often", WriteOften);

} // namespace

TEST_F(File, HasANameThatWindowsKeepsForDevices)
{
    for (const wchar_t* name : {L"CON", L"NUL.hds", L"COM1.hds", L"aux", L"a.", L"a. .", L"b "}) {
        const CString path = m_folder.Path(name);
        std::string bytes;
        EXPECT_TRUE(WriteWholeFile(path, ToUtf8(name), m_problems)) << ToUtf8(name);
        EXPECT_TRUE(ReadWholeFile(path, bytes, m_problems));
        EXPECT_EQ(bytes, ToUtf8(name));
        EXPECT_EQ(FindFiles(m_folder.Path(), L"", m_problems), CStringArray{name});
        EXPECT_TRUE(DeleteFile(path, m_problems));
    }
    ExpectSilence();
}

TEST_F(File, HasAPathOfAnyLength)
{
    CString folder = m_folder.Path();
    for (int i = 0; i < 5; ++i)
        folder += L"\\" + CString(60, static_cast<wchar_t>(L'a' + i));
    ASSERT_GT(folder.size(), size_t{MAX_PATH});
    EXPECT_TRUE(CreateFolder(folder, m_problems));
    const CString path = folder + L"/规范\U00020BB7.hds";
    std::string bytes;
    EXPECT_TRUE(WriteWholeFile(path, "1", m_problems));
    EXPECT_TRUE(WriteWholeFile(path, "2", m_problems));
    EXPECT_TRUE(ReadWholeFile(path, bytes, m_problems));
    EXPECT_EQ(bytes, "2");
    EXPECT_EQ(FindFiles(folder, L".hds", m_problems), CStringArray{L"规范\U00020BB7.hds"});
    EXPECT_TRUE(DeleteFile(path, m_problems));
    for (CString one = folder; one.size() > m_folder.Path().size(); one.resize(one.size() - 61))
        RemoveEmptyFolder(one);
    EXPECT_EQ(m_folder.Count(), 0);
    ExpectSilence();
}

TEST_F(File, IsFoundByADriveAndByThePlaceOnIt)
{
    m_folder.Write("规范/a.hds", "x");
    wchar_t before[MAX_PATH];
    ASSERT_GT(GetCurrentDirectoryW(MAX_PATH, before), 0U);
    ASSERT_TRUE(SetCurrentDirectoryW(m_folder.Native().c_str()));
    const std::wstring drive = m_folder.Native().wstring().substr(0, 2);
    for (const std::wstring& path :
         {std::wstring(L"规范/a.hds"), std::wstring(L".\\规范\\..\\规范\\a.hds"),
          drive + L"规范\\a.hds", m_folder.Native("规范/a.hds").wstring().substr(2)})
        EXPECT_EQ(IsSameFile(path, m_folder.Path(L"规范/a.hds"), m_problems), true) << ToUtf8(path);
    SetCurrentDirectoryW(before);
    ExpectSilence();
}

TEST_F(File, IsNoneWhereWindowsHasAnotherMeaning)
{
    for (const wchar_t* name : {L"a:b", L"a?", L"a*", L"a|b", L"<a>", L"a\"", L"a\tb"}) {
        EXPECT_FALSE(IsFileName(name));
        EXPECT_FALSE(WriteWholeFile(m_folder.Path(name), "x", m_problems));
        ExpectProblem(m_folder.Path(name), L"无法写入: 文件名无效");
        EXPECT_FALSE(PathFileExists(m_folder.Path(name)));
    }
    EXPECT_EQ(m_folder.Count(), 0);
}

TEST_F(File, TakesTheCaseOfTheNameThatItIsWrittenBy)
{
    ASSERT_TRUE(WriteWholeFile(m_folder.Path(L"road.hds"), "old", m_problems));
    EXPECT_EQ(IsSameFile(m_folder.Path(L"ROAD.hds"), m_folder.Path(L"road.hds"), m_problems), true);
    EXPECT_TRUE(WriteWholeFile(m_folder.Path(L"Road.hds"), "new", m_problems));
    EXPECT_EQ(ShownName(m_folder.Path(L"road.hds")), L"Road.hds");
    EXPECT_EQ(m_folder.Count(), 1);
    EXPECT_EQ(m_folder.Read("road.hds"), "new");
    ExpectSilence();
}

TEST_F(File, ThatIsReadOnlyIsNotReplaced)
{
    const CString path = m_folder.Write("a", "old");
    ASSERT_TRUE(SetFileAttributesW(WindowsPath(path).c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_FALSE(WriteWholeFile(path, "new", m_problems));
    ExpectProblem(path, L"无法写入: 文件是只读的");
    EXPECT_EQ(m_folder.Read("a"), "old");
    // A copy of it is there to be changed, and whoever may change the folder may delete it.
    EXPECT_TRUE(CopyFile(path, m_folder.Path(L"b"), m_problems));
    EXPECT_TRUE(WriteWholeFile(m_folder.Path(L"b"), "new", m_problems));
    EXPECT_TRUE(DeleteFile(path, m_problems));
    EXPECT_EQ(m_folder.Count(), 1);
    ExpectSilence();
}

TEST_F(File, KeepsItsAttributesWhenItIsReplaced)
{
    const CString path = m_folder.Write("a", "old");
    ASSERT_TRUE(SetFileAttributesW(WindowsPath(path).c_str(), FILE_ATTRIBUTE_HIDDEN));
    ASSERT_TRUE(GetFileAttributesW(WindowsPath(path).c_str()) & FILE_ATTRIBUTE_HIDDEN);
    EXPECT_TRUE(WriteWholeFile(path, "new", m_problems));
    EXPECT_TRUE(GetFileAttributesW(WindowsPath(path).c_str()) & FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(m_folder.Read("a"), "new");
    EXPECT_EQ(m_folder.Count(), 1);
    ExpectSilence();
}

// Nothing that is open keeps a file from being written for good.
TEST_F(File, IsReplacedOnceAnotherLetsGoOfIt)
{
    const CString path = m_folder.Write("a", "old");
    const HANDLE alone =
        CreateFileW(WindowsPath(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(alone, INVALID_HANDLE_VALUE);
    std::jthread letsGo([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        CloseHandle(alone);
    });
    EXPECT_TRUE(WriteWholeFile(path, "new", m_problems));
    EXPECT_EQ(m_folder.Read("a"), "new");
    ExpectSilence();
}

// As the libraries of most languages open files, and as this one does.
TEST_F(File, ThatIsBeingReadIsReplaced)
{
    const CString path = m_folder.Write("a", "old");
    const HANDLE reader = CreateFileW(WindowsPath(path).c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(WriteWholeFile(path, "new", m_problems));
    EXPECT_EQ(m_folder.Read("a"), "new");
    char bytes[4] = {};
    DWORD got = 0;
    EXPECT_TRUE(ReadFile(reader, bytes, 3, &got, nullptr));
    EXPECT_STREQ(bytes, "old");
    CloseHandle(reader);
    EXPECT_EQ(m_folder.Count(), 1);
    ExpectSilence();
}

TEST_F(File, ThatAnotherKeepsIsToldAndLeftWhole)
{
    const CString path = m_folder.Write("a", "old");
    const HANDLE alone =
        CreateFileW(WindowsPath(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(alone, INVALID_HANDLE_VALUE);
    std::string bytes;
    EXPECT_FALSE(ReadWholeFile(path, bytes, m_problems));
    ExpectProblem(path, L"无法读取: 正由另一程序使用");
    EXPECT_FALSE(WriteWholeFile(path, "new", m_problems));
    ExpectProblem(path, L"无法写入: 正由另一程序使用");
    CloseHandle(alone);
    EXPECT_EQ(m_folder.Read("a"), "old");
    EXPECT_EQ(m_folder.Count(), 1);
}

TEST_F(File, WrittenByManyAtOnceIsAlwaysWhole)
{
    const CString path = m_folder.Path(L"a");
    const std::string texts[] = {std::string(300000, 'a'), std::string(200000, 'b')};
    {
        std::vector<std::jthread> writers;
        for (const std::string& text : texts)
            writers.emplace_back([&path, &text] {
                Problems problems;
                for (int i = 0; i < 20; ++i)
                    EXPECT_TRUE(WriteWholeFile(path, text, problems))
                        << ToUtf8(problems.back().Text());
            });
    }
    const std::string result = m_folder.Read("a");
    EXPECT_TRUE(result == texts[0] || result == texts[1]);
    EXPECT_EQ(m_folder.Count(), 1);
}

TEST_F(File, HasASecondNameUntilItIsReplaced)
{
    const CString a = m_folder.Write("a", "one");
    EXPECT_TRUE(LinkFile(a, m_folder.Path(L"b")));
    EXPECT_TRUE(IsSameFile(a, m_folder.Path(L"b"), m_problems).value());
    EXPECT_FALSE(LinkFile(a, m_folder.Path(L"b"))) << "it is there";
    EXPECT_TRUE(WriteWholeFile(a, "two", m_problems));
    EXPECT_EQ(m_folder.Read("b"), "one");
    ExpectSilence();
}

// Where it is open, there may be none of that name for a moment.
TEST_F(File, ThatTwoProgramsReplaceIsReadWhole)
{
    const CString path = m_folder.Write("规范.hds", std::string(200000, 'a'));
    OtherProcess one("writes often", "a" + ToUtf8(path));
    OtherProcess other("writes often", "b" + ToUtf8(path));
    std::set<char> seen;
    std::jthread reader([&](const std::stop_token& over) {
        while (!over.stop_requested()) {
            std::string bytes;
            Problems problems;
            if (!ReadWholeFile(path, bytes, problems)) continue;
            ASSERT_EQ(bytes.size(), 200000U);
            ASSERT_EQ(bytes.find_first_not_of(bytes[0]), std::string::npos);
            seen.insert(bytes[0]);
        }
    });
    EXPECT_EQ(one.Line(), "done");
    EXPECT_EQ(other.Line(), "done");
    reader.request_stop();
    reader.join();
    EXPECT_EQ(seen, (std::set<char>{'a', 'b'}));
    EXPECT_EQ(m_folder.Count(), 1);
}
