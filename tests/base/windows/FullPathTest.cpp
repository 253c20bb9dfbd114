#include "base/windows/FullPath.h"

#include <gtest/gtest.h>

#include "base/Text.h"

using namespace designspec;

namespace {

std::wstring Current(wchar_t drive)
{
    if (drive == L'D' || drive == L'd') return L"D:\\数据";
    return L"C:\\项目\\路线";
}

std::wstring Full(std::wstring_view path)
{
    return FullPath(path, Current);
}

} // namespace

TEST(FullPath, BeginsAtADriveOrAShare)
{
    EXPECT_EQ(Full(L"C:\\a\\b.hds"), L"\\\\?\\C:\\a\\b.hds");
    EXPECT_EQ(Full(L"c:/a/b.hds"), L"\\\\?\\c:\\a\\b.hds");
    EXPECT_EQ(Full(L"C:\\"), L"\\\\?\\C:\\");
    EXPECT_EQ(Full(L"\\\\server\\share\\a"), L"\\\\?\\UNC\\server\\share\\a");
    EXPECT_EQ(Full(L"//server/share/a"), L"\\\\?\\UNC\\server\\share\\a");
    EXPECT_EQ(Full(L"\\\\server\\share"), L"\\\\?\\UNC\\server\\share\\");
    EXPECT_EQ(Full(L"\\\\?\\C:\\a"), L"\\\\?\\C:\\a");
    EXPECT_EQ(Full(L"\\\\?\\UNC\\server\\share\\a/b"), L"\\\\?\\UNC\\server\\share\\a\\b");
}

TEST(FullPath, BeginsAtTheCurrentFolder)
{
    EXPECT_EQ(Full(L"规范\\a.hds"), L"\\\\?\\C:\\项目\\路线\\规范\\a.hds");
    EXPECT_EQ(Full(L"."), L"\\\\?\\C:\\项目\\路线");
    EXPECT_EQ(Full(L"..\\a"), L"\\\\?\\C:\\项目\\a");
    EXPECT_EQ(Full(L"\\a"), L"\\\\?\\C:\\a");
    EXPECT_EQ(Full(L"D:a"), L"\\\\?\\D:\\数据\\a");
    EXPECT_EQ(Full(L"d:"), L"\\\\?\\D:\\数据");
    EXPECT_EQ(FullPath(L"a", [](wchar_t) { return std::wstring(L"\\\\server\\share\\x"); }),
              L"\\\\?\\UNC\\server\\share\\x\\a");
}

TEST(FullPath, GoesNowhereAboveItsRoot)
{
    EXPECT_EQ(Full(L"C:\\a\\.\\b\\..\\\\c\\"), L"\\\\?\\C:\\a\\c");
    EXPECT_EQ(Full(L"C:\\..\\..\\a"), L"\\\\?\\C:\\a");
    EXPECT_EQ(Full(L"\\\\server\\share\\..\\..\\a"), L"\\\\?\\UNC\\server\\share\\a");
}

// Windows' own way to a full path would take these away, or end at a device.
TEST(FullPath, KeepsNamesAsTheyStand)
{
    for (const wchar_t* name :
         {L"CON", L"NUL.hds", L"com1", L"a.", L"a ", L"...", L" a", L"LPT9 .x"})
        EXPECT_EQ(Full(std::wstring(L"C:\\") + name), std::wstring(L"\\\\?\\C:\\") + name);
    const std::wstring longName(255, L'规');
    const std::wstring path = L"C:\\" + longName + L'\\' + longName;
    EXPECT_EQ(Full(path), L"\\\\?\\" + path);
}

TEST(FullPath, IsNoneForADeviceOrAStream)
{
    for (const wchar_t* path : {L"\\\\.\\COM1", L"C:\\a:b", L"ab:c.hds", L"C:\\a?", L"C:\\a*\\b",
                                L"C:\\a\nb", L"\\\\server", L"\\\\", L"C:\\\"a\"", L"C:\\<a>|"})
        EXPECT_EQ(Full(path), L"") << ToUtf8(path);
}
