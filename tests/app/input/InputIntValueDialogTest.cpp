#include "app/input/InputIntValueDialog.h"

#include "tests/app/input/InputDialogs.h"

namespace {

CInputIntValueDialog SpeedDialog(const CArray<int>& present = {}, int minimum = 10,
                                 int maximum = 150)
{
    return {L"车速", L"设计车速(km/h):", present, nullptr, minimum, maximum};
}

} // namespace

TEST(InputIntValueDialog, NamesTheQuantity)
{
    const CInputIntValueDialog dialog = {L"车速", L"设计车速(km/h):", {}, nullptr, 10, 150};
    EXPECT_EQ(dialog.Title(), L"输入车速");
    EXPECT_EQ(dialog.Prompt(), L"设计车速(km/h):");
}

TEST(InputIntValueDialog, AcceptsAWholeNumberWithBlanksAround)
{
    auto dialog = SpeedDialog();
    EXPECT_EQ(EnterInto(dialog, L" 60  "), L"60");
}

TEST(InputIntValueDialog, AcceptsFullWidthDigits)
{
    auto dialog = SpeedDialog();
    EXPECT_EQ(EnterInto(dialog, L"　８５"), L"85");
}

TEST(InputIntValueDialog, RefusesNothing)
{
    auto dialog = SpeedDialog();
    ExpectRefusedBy(dialog, L"", L"车速不能为空!");
    ExpectRefusedBy(dialog, L"   ", L"车速不能为空!");
}

TEST(InputIntValueDialog, RefusesWhatIsNoWholeNumber)
{
    auto dialog = SpeedDialog();
    for (const wchar_t* text : {L"060", L"+60", L"60.0", L"60a", L"abc", L"6 0", L"99999999999"})
        ExpectRefusedBy(dialog, text, L"车速必须是整数!");
}

TEST(InputIntValueDialog, RefusesWhatIsOutOfRange)
{
    auto dialog = SpeedDialog();
    for (const wchar_t* text : {L"9", L"151", L"-60", L"0"})
        ExpectRefusedBy(dialog, text, L"车速 必须大于等于 10 并且小于等于 150");
    EXPECT_EQ(EnterInto(dialog, L"10"), L"10");
    EXPECT_EQ(EnterInto(dialog, L"150"), L"150");
}

TEST(InputIntValueDialog, EqualEndsStandForNoRange)
{
    auto dialog = SpeedDialog({}, 0, 0);
    EXPECT_EQ(EnterInto(dialog, L"-5"), L"-5");
    EXPECT_EQ(EnterInto(dialog, L"2000"), L"2000");
}

TEST(InputIntValueDialog, RefusesAValueThatIsPresent)
{
    auto dialog = SpeedDialog({120, 60});
    ExpectRefusedBy(dialog, L"60", L"输入的车速已经存在!");
    EXPECT_EQ(EnterInto(dialog, L"80"), L"80");
}

TEST(InputIntValueDialog, TheRangeIsLookedAtBeforeThePresentValues)
{
    auto dialog = SpeedDialog({160});
    ExpectRefusedBy(dialog, L"160", L"车速 必须大于等于 10 并且小于等于 150");
}

TEST(InputIntValueDialog, CopiesThePresentValues)
{
    CArray<int> present = {60};
    CInputIntValueDialog dialog(L"车速", L"", present, nullptr, 10, 150);
    present.clear();
    ExpectRefusedBy(dialog, L"60", L"输入的车速已经存在!");
}

TEST(InputIntValueDialog, CanBeCorrectedAfterARefusal)
{
    auto dialog = SpeedDialog();
    const ExpectModal modal([](QWidget* window) {
        TypeInto(window, 108, L"9");
        {
            const ExpectMessage box(L"车速 必须大于等于 10 并且小于等于 150");
            PressKey(window, Qt::Key_Return);
        }
        Type(window, L"90"); // the refused text is selected
        PressKey(window, Qt::Key_Return);
    });
    CString value;
    EXPECT_TRUE(dialog.Input(value));
    EXPECT_EQ(value, L"90");
}

TEST(InputIntValueDialog, MessagesAreOwnedByTheDialog)
{
    auto dialog = SpeedDialog();
    const ExpectModal modal([](QWidget* window) {
        {
            const ExpectModal box([window](QWidget* message) {
                EXPECT_EQ(message->parentWidget(), window);
                PressKey(message, Qt::Key_Return);
            });
            Click(window, IDOK);
        }
        PressKey(window, Qt::Key_Escape);
    });
    CString value;
    EXPECT_FALSE(dialog.Input(value));
}
