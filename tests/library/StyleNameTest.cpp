#include "library/StyleName.h"

#include "tests/support/LibraryTest.h"

namespace {

class StyleName : public LibraryTest {
protected:
    static CString Problem(const CString& name, const CString& opened = {})
    {
        return StyleNameProblem(Library().Folder(), name, opened);
    }
};

} // namespace

TEST_F(StyleName, MayNotBeEmpty)
{
    EXPECT_EQ(Problem(L""), L"样式名不能为空!");
}

TEST_F(StyleName, MayHoldNoneOfThirteenCharacters)
{
    const CString forbidden = L"<>/\\\":;=|,*?'";
    ASSERT_EQ(forbidden.size(), 13U);
    for (const wchar_t c : forbidden)
        EXPECT_EQ(Problem(CString(L"a") + c + L"b"),
                  L"样式名中不允许出现如下字符: <>/\\\":;=|,*?'");
    EXPECT_EQ(Problem(L"a.b[c]{d}(e) 规范+-_&%"), L"");
}

TEST_F(StyleName, MayHoldNothingThatActsOnALine)
{
    for (const wchar_t c : {L'\n', L'\r', L'\t', L'\x1B', L'\x7F', L'\x85', L'\x2028', L'\x202E'})
        EXPECT_EQ(Problem(CString(L"a") + c + L"b"), L"样式名中不允许出现控制字符和换行");
    EXPECT_EQ(Problem(L"a\xA0\x3000 b"), L"");
}

TEST_F(StyleName, MayNotBeThatOfAnother)
{
    Add(Make(L"Abc"));
    Add(Make(L"x"));
    EXPECT_EQ(Problem(L"aBC"), L"和已有样式重名!");
    EXPECT_EQ(Problem(L"aBC", L"x"), L"和已有样式重名!");
    EXPECT_EQ(Problem(L"aBC", L"abc"), L""); // its own, in another case
    EXPECT_EQ(Problem(L"abcd"), L"");
}

TEST_F(StyleName, IsWrongInItselfWhateverOthersThereAre)
{
    Add(Make(L"Abc"));
    EXPECT_EQ(StyleNameProblem(L"Abc"), L"");
    EXPECT_EQ(StyleNameProblem(L""), L"样式名不能为空!");
    EXPECT_EQ(StyleNameProblem(L"a?"), L"样式名中不允许出现如下字符: <>/\\\":;=|,*?'");
    EXPECT_EQ(StyleNameProblem(L"a..b"), L"名称含有路径分隔符、“..”或空字符,不能用作文件名");
    EXPECT_EQ(StyleNameProblem(L"a\x1"), L"样式名中不允许出现控制字符和换行");
    EXPECT_EQ(StyleNameProblem(L"a\xFFFF"), L"样式名中有文件无法记录的字符");
}

TEST(StorableName, IsTheNameWithItsEndingWhereThatWillDo)
{
    EXPECT_EQ(StorableName(L"规范 1.5", L"[副本]"), L"规范 1.5[副本]");
    EXPECT_EQ(StorableName(CString(68, L'规'), L"[副]"), CString(68, L'规') + L"[副]");
}

TEST(StorableName, CutsWhatIsTooLongBeforeTheEnding)
{
    EXPECT_EQ(StorableName(CString(71, L'规'), L"[副本]"), CString(68, L'规') + L"[副本]");
    EXPECT_EQ(StorableName(CString(300, L'a'), L"[副本]"), CString(205, L'a') + L"[副本]");
}

TEST(StorableName, HoldsNothingThatIsRefused)
{
    EXPECT_EQ(StorableName(L"a/b:c", L""), L"a-b-c");
    EXPECT_EQ(StorableName(L"a\nb", L""), L"a-b");
    EXPECT_EQ(StorableName(L"a....b..", L"[副本]"), L"a.b.[副本]");
}

TEST(FileName, MayNotLeaveTheFolder)
{
    const CString kLeaves = L"名称含有路径分隔符、“..”或空字符,不能用作文件名";
    for (const CString& name :
         {CString(L"a/b"), CString(L"a\\b"), CString(L".."), CString(L"a..b"), CString(L"a\0b", 3)})
        EXPECT_EQ(FileNameProblem(name), kLeaves);
    for (const wchar_t* name : {L"", L"a", L".", L"a.b", L"规范 1"})
        EXPECT_EQ(FileNameProblem(name), L"");
}

TEST(FileName, MayNotBeTooLongForAFile)
{
    EXPECT_EQ(FileNameProblem(CString(213, L'a')), L"");
    EXPECT_EQ(FileNameProblem(CString(214, L'a')), L"名称过长,不能用作文件名");
    EXPECT_EQ(FileNameProblem(CString(71, L'规')), L"");
    EXPECT_EQ(FileNameProblem(CString(72, L'规')), L"名称过长,不能用作文件名");
}
