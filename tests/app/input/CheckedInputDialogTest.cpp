#include "app/input/CheckedInputDialog.h"

#include "tests/app/input/InputDialogs.h"

namespace {

// Takes only 对, and writes it twice.
class OnlyRight : public CCheckedInputDialog {
public:
    OnlyRight() : CCheckedInputDialog(L"题", L"答:", nullptr) {}

protected:
    CString Fault(CString& value) override
    {
        if (value != L"对") return L"不对!";
        value += value;
        return {};
    }
};

} // namespace

TEST(CheckedInputDialog, ShowsItsTitleAndPrompt)
{
    const ExpectModal modal([](QWidget* window) {
        auto* const shown = dynamic_cast<CDialog*>(window);
        ASSERT_TRUE(shown);
        EXPECT_EQ(shown->GetWindowText(), L"题");
        EXPECT_EQ(shown->GetDlgItemText(119), L"答:");
        Click(window, IDCANCEL);
    });
    CString value;
    EXPECT_FALSE(OnlyRight().Input(value));
}

TEST(CheckedInputDialog, GivesTheValueAsItWasPutInOrder)
{
    OnlyRight dialog;
    EXPECT_EQ(EnterInto(dialog, L"  对 "), L"对对");
}

TEST(CheckedInputDialog, TellsWhyItRefusesAndStaysOpen)
{
    OnlyRight dialog;
    ExpectRefusedBy(dialog, L"错", L"不对!");
    ExpectRefusedBy(dialog, L"", L"不对!");
}
