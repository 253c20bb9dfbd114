#include "platform/vmrd/VMRDControls/InputDialog.h"

#include <QLineEdit>

#include <gtest/gtest.h>

#include "tests/gui/Controls.h"
#include "tests/gui/Modal.h"

namespace {

class CTestInput : public CInputDialog {
public:
    using CInputDialog::CInputDialog;

    CString Title() const override { return L"输入名称"; }
    CString Prompt() const override { return L"名称:"; }
    CString DefaultValue() const override { return L"规范"; }
    void OnInitDialog() override { windowAtInit = GetDialogWindow(); }
    bool CheckValue(CString& value) override
    {
        value += L"!";
        checked.push_back(value);
        return value != L"坏!";
    }
    void OnCancel() override { ++cancels; }

    CStringArray checked;
    int cancels = 0;
    QWidget* windowAtInit = nullptr;
};

} // namespace

TEST(InputDialog, ShowsTitlePromptAndDefault)
{
    QWidget parent;
    CTestInput input(&parent);
    EXPECT_EQ(input.GetDialogWindow(), &parent);
    const ExpectModal modal([&](QWidget* window) {
        auto* const dialog = dynamic_cast<CDialog*>(window);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->GetWindowText(), L"输入名称");
        EXPECT_EQ(dialog->GetDlgItemText(119), L"名称:");
        EXPECT_EQ(dialog->GetDlgItemText(108), L"规范");
        EXPECT_EQ(dialog->GetDlgItemText(1), L"确定");
        EXPECT_EQ(dialog->GetDlgItemText(2), L"取消");
        EXPECT_EQ(input.GetDialogWindow(), window);
        EXPECT_EQ(input.windowAtInit, window);
        EXPECT_EQ(window->focusWidget(), dialog->GetDlgItem(108));
        PressKey(window, Qt::Key_Escape);
    });
    CString value = L"before";
    EXPECT_FALSE(input.Input(value));
    EXPECT_EQ(value, L"before");
    EXPECT_EQ(input.cancels, 1);
    EXPECT_EQ(input.GetDialogWindow(), &parent);
}

TEST(InputDialog, GivesTheCheckedText)
{
    CTestInput input;
    const ExpectModal modal([](QWidget* window) {
        TypeInto(window, 108, L"新规范");
        PressKey(window, Qt::Key_Return);
    });
    CString value;
    EXPECT_TRUE(input.Input(value));
    EXPECT_EQ(value, L"新规范!");
    EXPECT_EQ(input.cancels, 0);
}

TEST(InputDialog, StaysOpenForAnotherTry)
{
    CTestInput input;
    const ExpectModal modal([](QWidget* window) {
        TypeInto(window, 108, L"坏");
        Click(window, IDOK);
        ASSERT_TRUE(window->isVisible());
        auto* const edit = Control<QLineEdit>(window, 108);
        EXPECT_EQ(window->focusWidget(), edit);
        EXPECT_EQ(edit->selectedText(), QStringLiteral("坏"));
        Type(window, L"好"); // over the selected text
        Click(window, IDOK);
    });
    CString value;
    EXPECT_TRUE(input.Input(value));
    EXPECT_EQ(value, L"好!");
    EXPECT_EQ(input.checked, (CStringArray{L"坏!", L"好!"}));
}

TEST(InputDialog, BaseClassTakesAnything)
{
    CInputDialog input;
    const ExpectModal modal([](QWidget* window) { Click(window, IDOK); });
    CString value = L"before";
    EXPECT_TRUE(input.Input(value));
    EXPECT_EQ(value, L"");
}
