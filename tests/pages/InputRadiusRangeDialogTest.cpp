#include "pages/InputRadiusRangeDialog.h"

#include "tests/app/input/InputDialogs.h"

namespace {

// The range that an accepted text gives.
std::pair<int, int> Enter(const CString& text)
{
    CInputRadiusRangeDialog dialog;
    EnterInto(dialog, text);
    return {dialog.GetRange().min, dialog.GetRange().max};
}

void ExpectRefused(const CString& text, const CString& message)
{
    CInputRadiusRangeDialog dialog;
    ExpectRefusedBy(dialog, text, message);
}

} // namespace

TEST(InputRadiusRangeDialog, NamesWhatItAsksFor)
{
    const ExpectModal modal([](QWidget* window) {
        auto* const shown = dynamic_cast<CDialog*>(window);
        ASSERT_TRUE(shown);
        EXPECT_EQ(shown->GetWindowText(), L"输入圆曲线半径");
        EXPECT_EQ(shown->GetDlgItemText(119), L"圆曲线半径范围(m, 以~分隔):");
        EXPECT_EQ(shown->GetDlgItemText(108), L"");
        Click(window, IDCANCEL);
    });
    CString value;
    EXPECT_FALSE(CInputRadiusRangeDialog().Input(value));
}

TEST(InputRadiusRangeDialog, TakesTheSmallerRadiusFirst)
{
    EXPECT_EQ(Enter(L"150~250"), std::pair(150, 250));
    EXPECT_EQ(Enter(L"250~150"), std::pair(150, 250));
    EXPECT_EQ(Enter(L"  1~2 "), std::pair(1, 2));
    EXPECT_EQ(Enter(L"150 ~ 250"), std::pair(150, 250));
}

TEST(InputRadiusRangeDialog, CutsFractionsOff)
{
    EXPECT_EQ(Enter(L"150.9~250.9"), std::pair(150, 250));
}

TEST(InputRadiusRangeDialog, TakesTheTildeOfAChineseKeyboard)
{
    EXPECT_EQ(Enter(L"１５０～２５０"), std::pair(150, 250));
}

TEST(InputRadiusRangeDialog, RefusesAnEmptyText)
{
    ExpectRefused(L"", L"圆曲线半径范围不能为空!");
    ExpectRefused(L"   ", L"圆曲线半径范围不能为空!");
}

TEST(InputRadiusRangeDialog, RefusesWhatIsNoRange)
{
    for (const wchar_t* text : {L"150", L"150-250", L"150 250", L"1~2~3", L"~", L"150~"})
        ExpectRefused(text, L"圆曲线半径范围的输入格式为 最小半径~最大半径 !");
}

TEST(InputRadiusRangeDialog, RefusesRadiiBelowOne)
{
    for (const wchar_t* text : {L"0~250", L"150~0", L"0.9~250", L"-150~250", L"a~250"})
        ExpectRefused(text, L"圆曲线半径必须大于0!");
}
