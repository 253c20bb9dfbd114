#include "app/input/InputGradientDialog.h"

#include "tests/app/input/InputDialogs.h"

namespace {

const CString kNotOneDecimal = L"坡度必须是正数,并且最多只能有一位小数!";

class InputGradientDialog : public ::testing::Test {
protected:
    CString Enter(const CString& text) { return EnterInto(m_dialog, text); }
    void ExpectRefused(const CString& text, const CString& message)
    {
        ExpectRefusedBy(m_dialog, text, message);
    }

    CInputGradientDialog m_dialog{L"输入坡度", L"纵坡坡度(%):", {3, 4.5}, nullptr};
};

} // namespace

TEST_F(InputGradientDialog, ShowsTitleAndPromptAsTheyAre)
{
    EXPECT_EQ(m_dialog.Title(), L"输入坡度");
    EXPECT_EQ(m_dialog.Prompt(), L"纵坡坡度(%):");
}

TEST_F(InputGradientDialog, AcceptsOneDecimal)
{
    EXPECT_EQ(Enter(L"2.5"), L"2.5");
    EXPECT_EQ(Enter(L" 6 "), L"6");
    EXPECT_EQ(Enter(L"２．５"), L"2.5");
}

TEST_F(InputGradientDialog, AcceptsZeroAndAPointAtTheEnd)
{
    EXPECT_EQ(Enter(L"0"), L"0");
    EXPECT_EQ(Enter(L"5."), L"5.");
    EXPECT_EQ(Enter(L".5"), L".5");
}

TEST_F(InputGradientDialog, RefusesNothing)
{
    ExpectRefused(L"", L"坡度不能为空!");
    ExpectRefused(L"  ", L"坡度不能为空!");
}

TEST_F(InputGradientDialog, RefusesWhatIsNoNumberWithOneDecimal)
{
    for (const wchar_t* text : {L"2.55", L"-1", L"abc", L"2.5%", L"1.2.3", L"2.50"})
        ExpectRefused(text, kNotOneDecimal);
}

TEST_F(InputGradientDialog, RefusesAGradientThatIsPresent)
{
    ExpectRefused(L"3", L"输入的坡度已经存在!");
    ExpectRefused(L"3.0", L"输入的坡度已经存在!");
    ExpectRefused(L"4.5", L"输入的坡度已经存在!");
}
