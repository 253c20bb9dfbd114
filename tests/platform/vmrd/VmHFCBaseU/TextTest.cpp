#include "base/Text.h"
#include "platform/vmrd/VmHFCBaseU/Text.h"

#include <gtest/gtest.h>

using namespace designspec;

TEST(BaseText, DigitsWithAtMostOnePointAreNumeric)
{
    for (const wchar_t* text : {L"0", L"12", L"1.", L".5", L"12.50", L"00", L"99999999999999999"})
        EXPECT_TRUE(IsNumericText(text)) << ToUtf8(text);
}

TEST(BaseText, AnythingElseIsNotNumeric)
{
    for (const wchar_t* text : {L"", L" ", L".", L"..", L"1.2.3", L"+1", L"-1", L"1 ", L" 1",
                                L"1e3", L"１２", L"1．5", L"1,5", L"0x1", L"a", L"1\n"})
        EXPECT_FALSE(IsNumericText(text)) << ToUtf8(text);
    EXPECT_FALSE(IsNumericText(std::wstring_view(L"1\0", 2)));
}
