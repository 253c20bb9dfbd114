#include "pages/InputWideningTypeDialog.h"

#include <gtest/gtest.h>

#include "platform/mfc/Dialog.h"
#include "tests/gui/Controls.h"
#include "tests/gui/Modal.h"

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
    const ExpectModal modal([](QWidget* window) {
        for (const wchar_t* text : {L"", L"   "}) {
            TypeInto(window, 108, text);
            const ExpectMessage box(L"加宽类别不能为空!");
            Click(window, IDOK);
        }
        EXPECT_TRUE(window->isVisible());
        Click(window, IDCANCEL);
    });
    CString name = L"before";
    EXPECT_FALSE(CInputWideningTypeDialog().Input(name));
    EXPECT_EQ(name, L"before");
}
