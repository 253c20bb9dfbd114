#include "tests/base/FileTest.h"

namespace fs = std::filesystem;

TEST_F(File, NativePathTakesBothSeparators)
{
    EXPECT_EQ(NativePath(L"\\项目\\规范/a.hds"), "/项目/规范/a.hds");
}

TEST_F(File, AFileNameStaysInItsFolder)
{
    for (const CString& name : {CString(L"规范.hds"), CString(L"a..b"), CString(L"..."),
                                CString(L" "), CString(255, L'a'), CString(85, L'规')})
        EXPECT_TRUE(IsFileName(name)) << ToUtf8(name);
    for (const CString& name :
         {CString(), CString(L"."), CString(L".."), CString(L"a/b"), CString(L"a\\b"),
          CString(L"a\0", 2), CString(256, L'a'), CString(86, L'规')})
        EXPECT_FALSE(IsFileName(name)) << ToUtf8(name);
}

TEST_F(File, WritesANewFileAndNothingElse)
{
    EXPECT_TRUE(WriteWholeFile(m_folder.Path(L"规范.hds"), "新的", m_problems));
    EXPECT_EQ(m_folder.Read("规范.hds"), "新的");
    EXPECT_EQ(m_folder.Count(), 1);
    ExpectSilence();
}

TEST_F(File, ReplacesAFileWhole)
{
    m_folder.Write("a", "a longer text than the new one");
    EXPECT_TRUE(WriteWholeFile(m_folder.Path(L"a"), "new", m_problems));
    EXPECT_EQ(m_folder.Read("a"), "new");
    EXPECT_TRUE(WriteWholeFile(m_folder.Path(L"a"), "", m_problems));
    EXPECT_EQ(m_folder.Read("a"), "");
    EXPECT_EQ(m_folder.Count(), 1);
}

TEST_F(File, DoesNotWriteOverAFolder)
{
    fs::create_directory(m_folder.Native("a.hds"));
    const CString path = m_folder.Path(L"a.hds");
    EXPECT_FALSE(WriteWholeFile(path, "new", m_problems));
    ExpectProblem(path, L"无法写入: 是文件夹,不是文件");
    EXPECT_EQ(m_folder.Count(), 1);
}

TEST_F(File, DoesNotMakeAMissingFolder)
{
    const CString path = m_folder.Path(L"none\\a.hds");
    EXPECT_FALSE(WriteWholeFile(path, "new", m_problems));
    ExpectProblem(path, L"无法写入: 不存在");
    EXPECT_EQ(m_folder.Count(), 0);
}

TEST_F(File, ANameWithANulIsNeverCutShort)
{
    m_folder.Write("a", "old");
    const CString path = m_folder.Path(std::wstring_view(L"a\0.hds", 6));
    const CString other = m_folder.Path(L"b");
    std::string bytes = "kept";
    EXPECT_FALSE(WriteWholeFile(path, "new", m_problems));
    ExpectProblem(path, L"无法写入: 文件名无效");
    EXPECT_FALSE(ReadWholeFile(path, bytes, 100, m_problems));
    ExpectProblem(path, L"无法读取: 文件名无效");
    EXPECT_FALSE(CopyFile(path, other, m_problems));
    ExpectProblem(path, L"无法读取: 文件名无效");
    EXPECT_FALSE(CopyFile(m_folder.Path(L"a"), path, m_problems));
    ExpectProblem(path, L"无法写入: 文件名无效");
    EXPECT_FALSE(MoveFile(path, other, m_problems));
    ExpectProblem(path, L"无法移动: 文件名无效");
    EXPECT_FALSE(MoveFile(m_folder.Path(L"a"), path, m_problems));
    ExpectProblem(m_folder.Path(L"a"), L"无法移动: 文件名无效");
    EXPECT_FALSE(DeleteFile(path, m_problems));
    ExpectProblem(path, L"无法删除: 文件名无效");
    EXPECT_FALSE(PathFileExists(path));
    EXPECT_FALSE(IsSameFile(path, m_folder.Path(L"a"), m_problems).value());
    EXPECT_TRUE(FindFiles(path, L"", m_problems).empty());
    EXPECT_EQ(m_folder.Read("a"), "old");
    EXPECT_EQ(m_folder.Count(), 1);
    ExpectSilence();
}

TEST_F(File, AnEmptyPathIsNoFile)
{
    std::string bytes;
    EXPECT_FALSE(WriteWholeFile(L"", "new", m_problems));
    ExpectProblem(L"", L"无法写入: 文件名无效");
    EXPECT_FALSE(ReadWholeFile(L"", bytes, 100, m_problems));
    ExpectProblem(L"", L"无法读取: 文件名无效");
    EXPECT_FALSE(CreateFolder(L"", m_problems));
    ExpectProblem(L"", L"文件夹无法创建: 文件名无效");
    EXPECT_FALSE(PathFileExists(L""));
    EXPECT_TRUE(FindFiles(L"", L"", m_problems).empty());
    ExpectSilence();
}

TEST_F(File, TemporaryFilesAreKnownByTheirName)
{
    EXPECT_TRUE(IsTemporaryFile(L".designspec-0123456789ab.tmp"));
    EXPECT_FALSE(IsTemporaryFile(L"designspec-0123456789ab.tmp"));
    EXPECT_FALSE(IsTemporaryFile(L".designspec-0123456789ab.hds"));
    EXPECT_FALSE(IsTemporaryFile(L""));
}

TEST_F(File, FindsFilesByTheirEndingSortedIgnoringCase)
{
    for (const char* name : {"b.hds", "A1.HDS", "c.Hds", "a.hds", "B2.hds", "中.hds", "a.hds.bak",
                             "hds", ".hds", "x.xml"})
        m_folder.Write(name, "");
    fs::create_directory(m_folder.Native("a9.hds"));
    EXPECT_EQ(FindFiles(m_folder.Path(), L".hds", m_problems),
              (CStringArray{L".hds", L"a.hds", L"A1.HDS", L"a9.hds", L"b.hds", L"B2.hds", L"c.Hds",
                            L"中.hds"}));
    ExpectSilence();
}

TEST_F(File, FindsNothingWhereThereIsNoFolder)
{
    EXPECT_TRUE(FindFiles(m_folder.Path(L"none"), L".hds", m_problems).empty());
    ExpectSilence();
    const CString file = m_folder.Write("a.hds", "");
    EXPECT_TRUE(FindFiles(file, L".hds", m_problems).empty());
    ExpectProblem(file, L"文件夹无法读取: 路径中有一段不是文件夹");
}

TEST_F(File, ReadsAFileUpToItsLimit)
{
    const CString path = m_folder.Write("a", std::string(1 << 20, 'x'));
    std::string bytes = "old";
    EXPECT_TRUE(ReadWholeFile(path, bytes, 1 << 20, m_problems));
    EXPECT_EQ(bytes.size(), size_t{1 << 20});
    m_folder.Write("a", std::string((1 << 20) + 1, 'x'));
    EXPECT_FALSE(ReadWholeFile(path, bytes, 1 << 20, m_problems));
    ExpectProblem(path, L"无法读取: 文件大于 1 MiB");
}

TEST_F(File, ReadsNoFolder)
{
    std::string bytes;
    EXPECT_FALSE(ReadWholeFile(m_folder.Path(), bytes, 100, m_problems));
    ExpectProblem(m_folder.Path(), L"无法读取: 是文件夹,不是文件");
}

TEST_F(File, ReadsNothingThatIsNotThere)
{
    std::string bytes;
    EXPECT_FALSE(ReadWholeFile(m_folder.Path(L"a"), bytes, 100, m_problems));
    ExpectProblem(m_folder.Path(L"a"), L"无法读取: 不存在");
}

TEST_F(File, CopiesOverTheTarget)
{
    const std::string bytes("规范\0\r\n", 9);
    m_folder.Write("a", bytes);
    m_folder.Write("b", "old and longer than the new text");
    EXPECT_TRUE(CopyFile(m_folder.Path(L"a"), m_folder.Path(L"b"), m_problems));
    EXPECT_EQ(m_folder.Read("b"), bytes);
    EXPECT_EQ(m_folder.Read("a"), bytes);
    EXPECT_EQ(m_folder.Count(), 2);
}

TEST_F(File, CopiedOntoItselfStaysAsItIs)
{
    const CString path = m_folder.Write("a", "text");
    fs::create_hard_link(m_folder.Native("a"), m_folder.Native("hard"));
    EXPECT_TRUE(CopyFile(path, path, m_problems));
    EXPECT_TRUE(CopyFile(path, m_folder.Path(L"./a"), m_problems));
    EXPECT_TRUE(CopyFile(path, m_folder.Path(L"hard"), m_problems));
    EXPECT_EQ(m_folder.Read("a"), "text");
    EXPECT_EQ(m_folder.Read("hard"), "text");
    EXPECT_EQ(m_folder.Count(), 2);
    ExpectSilence();
}

TEST_F(File, ACopyTellsWhichOfTheTwoFailed)
{
    const CString path = m_folder.Write("a", "text");
    EXPECT_FALSE(CopyFile(m_folder.Path(L"none"), path, m_problems));
    ExpectProblem(m_folder.Path(L"none"), L"无法读取: 不存在");
    EXPECT_EQ(m_folder.Read("a"), "text");
    EXPECT_FALSE(CopyFile(path, m_folder.Path(L"none/b"), m_problems));
    ExpectProblem(m_folder.Path(L"none/b"), L"无法写入: 不存在");
}

TEST_F(File, WhatCannotBeMovedOrDeletedIsTold)
{
    EXPECT_FALSE(MoveFile(m_folder.Path(L"a"), m_folder.Path(L"b"), m_problems));
    ExpectProblem(m_folder.Path(L"a"), L"无法移动: 不存在");
    EXPECT_FALSE(DeleteFile(m_folder.Path(L"a"), m_problems));
    ExpectSilence();
    fs::create_directory(m_folder.Native("folder"));
    EXPECT_FALSE(DeleteFile(m_folder.Path(L"folder"), m_problems));
    ExpectProblem(m_folder.Path(L"folder"), L"无法删除: 是文件夹,不是文件");
}

TEST_F(File, IsDroppedWithoutAWord)
{
    const std::wstring a = m_folder.Write("a", "one");
    DropFile(a);
    EXPECT_FALSE(m_folder.Has("a"));
    DropFile(a);
    DropFile(L"");
    m_folder.Write("b", "one");
    DropFile(m_folder.Path(std::wstring_view(L"b\0c", 3)));
    EXPECT_TRUE(m_folder.Has("b"));
}

TEST_F(File, MakesAFolderWithWhatIsMissingAboveIt)
{
    EXPECT_TRUE(CreateFolder(m_folder.Path(L"规范\\已删除"), m_problems));
    EXPECT_TRUE(fs::is_directory(m_folder.Native("规范/已删除")));
    EXPECT_TRUE(CreateFolder(m_folder.Path(L"规范/已删除/"), m_problems));
    ExpectSilence();
}

TEST_F(File, TellsWhyAFolderCannotBeMade)
{
    const std::wstring file = m_folder.Write("规范", "a file");
    EXPECT_FALSE(CreateFolder(file, m_problems));
    ExpectProblem(file, L"文件夹无法创建: 路径中有一段不是文件夹");
    EXPECT_FALSE(CreateFolder(file + L"/已删除", m_problems));
    ExpectProblem(file + L"/已删除", L"文件夹无法创建: 路径中有一段不是文件夹");
    const std::wstring nul = m_folder.Path(std::wstring_view(L"a\0b", 3));
    EXPECT_FALSE(CreateFolder(nul, m_problems));
    ExpectProblem(nul, L"文件夹无法创建: 文件名无效");
    EXPECT_FALSE(m_folder.Has("a"));
}
