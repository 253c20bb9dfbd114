#include "platform/mfc/MessageBox.h"

#include <QWidget>

#include <gtest/gtest.h>

#include "tests/gui/Controls.h"
#include "tests/gui/Modal.h"

TEST(MessageBox, ShowsTextCaptionAndIcon)
{
    const ExpectMessage box(L"车速不能为空!", L"提示", MB_ICONINFORMATION);
    EXPECT_EQ(MessageBox(nullptr, L"车速不能为空!", L"提示", MB_ICONINFORMATION), IDOK);
}

TEST(MessageBox, TheInformationFlagIs64)
{
    EXPECT_EQ(MB_ICONINFORMATION, 64U);
}

TEST(MessageBox, ShowsEachIcon)
{
    for (UINT icon : {0U, MB_ICONERROR, MB_ICONQUESTION, MB_ICONWARNING, MB_ICONINFORMATION}) {
        const ExpectMessage box(L"x", L"y", icon);
        EXPECT_EQ(MessageBox(nullptr, L"x", L"y", icon), IDOK);
    }
}

TEST(MessageBox, GivesTheAnswerOfTheButton)
{
    for (int answer : {IDOK, IDCANCEL}) {
        const ExpectMessage box(L"x", L"y", 0, answer);
        EXPECT_EQ(MessageBox(nullptr, L"x", L"y", MB_OKCANCEL), answer);
    }
    for (int answer : {IDYES, IDNO}) {
        const ExpectMessage box(L"x", L"y", MB_ICONQUESTION, answer);
        EXPECT_EQ(MessageBox(nullptr, L"x", L"y", MB_YESNO | MB_ICONQUESTION), answer);
    }
}

TEST(MessageBox, EscGivesTheAnswerThatDoesLeast)
{
    for (const auto& [flags, answer] :
         {std::pair(MB_OK, IDOK), {MB_OKCANCEL, IDCANCEL}, {MB_YESNO, IDNO}}) {
        const ExpectModal box([](QWidget* window) { PressKey(window, Qt::Key_Escape); });
        EXPECT_EQ(MessageBox(nullptr, L"x", L"y", flags), answer);
    }
}

TEST(MessageBox, ItsButtonsHaveKeys)
{
    for (const auto& [flags, key, answer] : {std::tuple(MB_OK, Qt::Key_O, IDOK),
                                             {MB_OKCANCEL, Qt::Key_C, IDCANCEL},
                                             {MB_YESNO, Qt::Key_N, IDNO},
                                             {MB_YESNO | MB_DEFBUTTON2, Qt::Key_Y, IDYES}}) {
        const ExpectModal box(
            [key = key](QWidget* window) { PressKey(window, key, Qt::AltModifier); });
        EXPECT_EQ(MessageBox(nullptr, L"x", L"y", flags), answer);
    }
}

TEST(MessageBox, EnterChoosesTheDefaultButton)
{
    const ModalAction enter = [](QWidget* window) { PressKey(window, Qt::Key_Return); };
    {
        const ExpectModal box(enter);
        EXPECT_EQ(MessageBox(nullptr, L"x", L"y", MB_YESNO), IDYES);
    }
    const ExpectModal box(enter);
    EXPECT_EQ(MessageBox(nullptr, L"x", L"y", MB_YESNO | MB_DEFBUTTON2), IDNO);
}

TEST(MessageBox, IsOwnedByTheWindowAndReadsNoMarkup)
{
    QWidget window;
    QWidget inside(&window);
    window.show();
    const ExpectModal box([&](QWidget* shown) {
        EXPECT_EQ(shown->parentWidget(), &window);
        const ShownMessage message = ReadMessage(shown);
        EXPECT_EQ(message.text, L"<b>A</b>");
        EXPECT_EQ(message.buttons, (CStringArray{L"确定"}));
        PressKey(shown, Qt::Key_Return);
    });
    MessageBox(&inside, L"<b>A</b>", L"提示", MB_OK);
}
