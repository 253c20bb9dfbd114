#include "app/input/InputTextDialog.h"

#include <QLineEdit>

#include <gtest/gtest.h>

#include "tests/gui/Controls.h"
#include "tests/gui/Modal.h"

TEST(InputTextDialog, ItsResourceHasTheDefaultTexts)
{
    const CDialog dialog(114);
    EXPECT_EQ(dialog.GetWindowText(), L"输入");
    EXPECT_EQ(dialog.GetDlgItemText(119), L"输入:");
    EXPECT_EQ(dialog.GetDlgItemText(1), L"确定");
    EXPECT_EQ(dialog.GetDlgItemText(2), L"取消");
    EXPECT_NE(dialog.GetDlgItem<QLineEdit>(108), nullptr);
}

TEST(InputTextDialog, ShowsTitleLabelAndText)
{
    CInputTextDialog dialog(L"数据来源", L"输入数据来源:", nullptr);
    EXPECT_EQ(dialog.GetText(), L"");
    dialog.SetText(L"CJJ 193－2012");
    const ExpectModal modal([&](QWidget* window) {
        EXPECT_EQ(dialog.GetWindowText(), L"数据来源");
        EXPECT_EQ(dialog.GetDlgItemText(119), L"输入数据来源:");
        EXPECT_EQ(dialog.GetDlgItemText(108), L"CJJ 193－2012");
        PressKey(window, Qt::Key_Return);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetText(), L"CJJ 193－2012");
}

TEST(InputTextDialog, OkKeepsTheTextAsItWasTyped)
{
    CInputTextDialog dialog(L"数据来源", L"输入数据来源:", nullptr);
    const ExpectModal modal([](QWidget* window) {
        TypeInto(window, 108, L" 表２．１ ");
        Click(window, IDOK);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetText(), L" 表２．１ ");
}

TEST(InputTextDialog, ALongTextIsNotCut)
{
    const CString chapter = CString(40000, L'规') + L"完";
    CInputTextDialog dialog(L"数据来源", L"输入数据来源:", nullptr);
    dialog.SetText(chapter);
    const ExpectModal modal([](QWidget* window) {
        PressKey(window, Qt::Key_End);
        Type(window, L"!");
        Click(window, IDOK);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(dialog.GetText() == chapter + L"!") << dialog.GetText().size();
}

TEST(InputTextDialog, CancelLeavesTheText)
{
    CInputTextDialog dialog(L"数据来源", L"输入数据来源:", nullptr);
    dialog.SetText(L"甲");
    const ExpectModal modal([](QWidget* window) {
        TypeInto(window, 108, L"乙");
        PressKey(window, Qt::Key_Escape);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.GetText(), L"甲");
}

TEST(InputTextDialog, ReadOnlyTakesNoTypingAndClosesWithOk)
{
    CInputTextDialog dialog(L"数据来源", L"数据来源:", nullptr);
    dialog.SetText(L"甲");
    dialog.SetReadOnly(true);
    const ExpectModal modal([&](QWidget* window) {
        EXPECT_TRUE(Control<QLineEdit>(window, 108)->isReadOnly());
        TypeInto(window, 108, L"乙");
        EXPECT_EQ(dialog.GetDlgItemText(108), L"甲");
        Click(window, IDOK);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetText(), L"甲");
}
