#include "pages/MyRecordItemSmallACurveLen.h"
#include "base/Text.h"

#include <memory>

#include <gtest/gtest.h>

using namespace designspec;

TEST(MyRecordItemSmallACurveLen, ShowsItsValueOverTheAngle)
{
    CMyRecordItemSmallACurveLen cell;
    EXPECT_TRUE(cell.IsEmpty());
    EXPECT_EQ(cell.GetCaption(), L"");
    cell.SetValue(1200);
    EXPECT_FALSE(cell.IsEmpty());
    EXPECT_EQ(cell.GetCaption(), L"1200/α");
}

TEST(MyRecordItemSmallACurveLen, TheAngleMayBeLeftOutOrTypedInLatin)
{
    for (const wchar_t* text : {L"1200", L"1200/α", L"1200/a", L"1200 /", L" 1200 / α ", L"1200α",
                                L"α1200", L"1200aa//", L"1200\t/", L"1200.9/α"}) {
        CMyRecordItemSmallACurveLen cell;
        cell.OnEditChanged(nullptr, text);
        EXPECT_EQ(cell.GetValue(), 1200) << ToUtf8(text);
        EXPECT_EQ(cell.GetCaption(), L"1200/α") << ToUtf8(text);
    }
}

TEST(MyRecordItemSmallACurveLen, CutsAFractionOff)
{
    CMyRecordItemSmallACurveLen cell;
    cell.OnEditChanged(nullptr, L"12.5/α");
    EXPECT_EQ(cell.GetCaption(), L"12/α");
    cell.OnEditChanged(nullptr, L"0");
    EXPECT_FALSE(cell.IsEmpty());
    EXPECT_EQ(cell.GetCaption(), L"0/α");
}

TEST(MyRecordItemSmallACurveLen, BadInputEmptiesIt)
{
    for (const wchar_t* text : {L"abc", L"", L"   ", L"/α", L"α", L"a", L"-5/α", L"1200/A",
                                L"1200/α/3", L"α 1200", L"12 00"}) {
        CMyRecordItemSmallACurveLen cell;
        cell.SetValue(5);
        cell.OnEditChanged(nullptr, text);
        EXPECT_TRUE(cell.IsEmpty()) << ToUtf8(text);
        EXPECT_EQ(cell.GetCaption(), L"");
    }
}

TEST(MyRecordItemSmallACurveLen, IsMadeByItsClass)
{
    const std::unique_ptr<CObject> made(RUNTIME_CLASS(CMyRecordItemSmallACurveLen)->CreateObject());
    EXPECT_NE(dynamic_cast<CMyRecordItemSmallACurveLen*>(made.get()), nullptr);
    EXPECT_TRUE(made->IsKindOf(RUNTIME_CLASS(CXTPReportRecordItem)));
}

TEST(MyRecordItemSmallACurveLen, ReadsPastedLengths)
{
    const CMyRecordItemSmallACurveLen cell;
    EXPECT_EQ(cell.ReadPasted(L"1,200／α"), L"1200/α");
    EXPECT_EQ(cell.ReadPasted(L"1,200 m"), L"1200");
    EXPECT_EQ(cell.ReadPasted(L"abc"), L"abc");
}
