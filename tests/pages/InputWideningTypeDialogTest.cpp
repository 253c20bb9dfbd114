#include "pages/InputWideningTypeDialog.h"

#include "tests/app/input/InputDialogs.h"

TEST(InputWideningTypeDialog, TakesANameWithoutTheBlanksAroundIt)
{
    const ExpectModal modal([](QWidget* window) {
        auto* const shown = dynamic_cast<CDialog*>(window);
        ASSERT_TRUE(shown);
        EXPECT_EQ(shown->GetWindowText(), L"输入加宽类别");
        EXPECT_EQ(shown->GetDlgItemText(119), L"输入加宽类别:");
        TypeInto(window, 108, L"  4类: 18m ");
        Click(window, IDOK);
    });
    CString name;
    EXPECT_TRUE(CInputWideningTypeDialog().Input(name));
    EXPECT_EQ(name, L"4类: 18m");
}

TEST(InputWideningTypeDialog, RefusesAnEmptyName)
{
    CInputWideningTypeDialog dialog;
    for (const wchar_t* text : {L"", L"   "})
        ExpectRefusedBy(dialog, text, L"加宽类别不能为空!");
}
