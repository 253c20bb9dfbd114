#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "base/Text.h"

#include <filesystem>

#include <gtest/gtest.h>

using namespace designspec;

namespace {

constexpr wchar_t kText[] = L"01234567-89AB-CDEF-0123-456789ABCDEF";

GUID SampleGuid()
{
    return {0x01234567, 0x89AB, 0xCDEF, {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF}};
}

// Gives the paths back to their default at the end of a test.
struct PathsAtDefault {
    ~PathsAtDefault()
    {
        VMRDPub::SetCurPrjPath(L"");
        VMRDPub::SetInstallPath(L"");
    }
};

} // namespace

TEST(VMRDPub, WritesAGuidInUpperCaseWithoutBraces)
{
    EXPECT_EQ(VMRDPub::GUIDToStr(SampleGuid()), kText);
    EXPECT_EQ(VMRDPub::GUIDToStr(GUID()), L"00000000-0000-0000-0000-000000000000");
}

TEST(VMRDPub, ReadsAGuidInEitherFormAnyCaseAndWithBlanks)
{
    for (const wchar_t* text :
         {kText, L"01234567-89ab-cdef-0123-456789abcdef", L"{01234567-89AB-CDEF-0123-456789ABCDEF}",
          L"{01234567-89ab-CDEF-0123-456789abcdef}", L"  01234567-89AB-CDEF-0123-456789ABCDEF\t",
          L"\u3000{01234567-89AB-CDEF-0123-456789ABCDEF}\r\n"}) {
        GUID guid;
        EXPECT_TRUE(VMRDPub::ParseGUID(text, guid)) << ToUtf8(text);
        EXPECT_EQ(guid, SampleGuid()) << ToUtf8(text);
        EXPECT_EQ(VMRDPub::StrToGUID(text), SampleGuid()) << ToUtf8(text);
    }
}

TEST(VMRDPub, ReadsWhatItWrites)
{
    for (int i = 0; i < 1000; ++i) {
        const GUID guid = CoCreateGuid();
        EXPECT_EQ(VMRDPub::StrToGUID(VMRDPub::GUIDToStr(guid)), guid);
    }
}

TEST(VMRDPub, AMalformedTextIsNoGuidAndGivesAFreshOne)
{
    for (const wchar_t* text :
         {L"", L"   ", L"{}", L"01234567-89AB-CDEF-0123-456789ABCDE",
          L"01234567-89AB-CDEF-0123-456789ABCDEF0", L"{01234567-89AB-CDEF-0123-456789ABCDEF",
          L"01234567-89AB-CDEF-0123-456789ABCDEF}", L"(01234567-89AB-CDEF-0123-456789ABCDEF)",
          L"0123456789ABCDEF0123456789ABCDEF", L"01234567+89AB-CDEF-0123-456789ABCDEF",
          L"0123456-789AB-CDEF-0123-456789ABCDEF", L"G1234567-89AB-CDEF-0123-456789ABCDEF",
          L"01234567-89AB-CDEF-0123-456789ABCDE-", L"{ 1234567-89AB-CDEF-0123-456789ABCDEF}",
          L"\uFF101234567-89AB-CDEF-0123-456789ABCDEF"}) {
        GUID guid = SampleGuid();
        EXPECT_FALSE(VMRDPub::ParseGUID(text, guid)) << ToUtf8(text);
        EXPECT_EQ(guid, SampleGuid()) << ToUtf8(text);
        const GUID fresh = VMRDPub::StrToGUID(text);
        EXPECT_EQ(fresh.Data3 >> 12, 4) << ToUtf8(text);
        EXPECT_NE(fresh, VMRDPub::StrToGUID(text)) << ToUtf8(text);
    }
}

TEST(VMRDPub, ProjectPathLosesTheSeparatorsAtItsEnd)
{
    const PathsAtDefault atEnd;
    for (const wchar_t* path : {L"/项目/A", L"/项目/A/", L"/项目/A\\", L"/项目/A/\\//"}) {
        VMRDPub::SetCurPrjPath(path);
        EXPECT_EQ(VMRDPub::GetCurPrjPath(), L"/项目/A");
    }
    VMRDPub::SetInstallPath(L"/opt/road//");
    EXPECT_EQ(VMRDPub::GetInstallPath(), L"/opt/road");
}

TEST(VMRDPub, ProjectIsTheCurrentFolderUntilItIsSet)
{
    EXPECT_EQ(VMRDPub::GetCurPrjPath(), ToWide(std::filesystem::current_path().string()));
}
