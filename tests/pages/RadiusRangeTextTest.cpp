#include "pages/RadiusRangeText.h"

#include "base/Format.h"
#include "base/Text.h"

#include <gtest/gtest.h>

using namespace designspec;

namespace {

// "min~max", or why the text is refused.
std::string Read(const wchar_t* text)
{
    RadiusRange range;
    const CString fault = ReadRadiusRange(text, range);
    return fault.empty() ? ToUtf8(Format(L"%d~%d", range.min, range.max)) : ToUtf8(fault);
}

} // namespace

TEST(RadiusRangeText, TakesEitherEndFirst)
{
    EXPECT_EQ(Read(L"150~250"), "150~250");
    EXPECT_EQ(Read(L"250~150"), "150~250");
    EXPECT_EQ(Read(L"250~250"), "250~250");
}

TEST(RadiusRangeText, CutsFractionsOffAndPassesBlanks)
{
    EXPECT_EQ(Read(L" 150.9 ~ 250.9 "), "150~250");
}

TEST(RadiusRangeText, EndsAreOneOrMore)
{
    EXPECT_EQ(Read(L"1~2"), "1~2");
    for (const wchar_t* text : {L"0~300", L"300~0", L"-5~300", L"abc~300", L"0.9~300"})
        EXPECT_EQ(Read(text), "圆曲线半径必须大于0!") << ToUtf8(text);
}

TEST(RadiusRangeText, NeedsTwoParts)
{
    for (const wchar_t* text : {L"", L"300", L"300~", L"~", L"1~2~3"})
        EXPECT_EQ(Read(text), "圆曲线半径范围的输入格式为 最小半径~最大半径 !") << ToUtf8(text);
}
