#include "platform/mfc/Menu.h"

#include <gtest/gtest.h>

#include "tests/gui/Controls.h"
#include "tests/gui/Modal.h"

#include <QMenu>
#include <QWidget>

namespace {

CMenu SpeedMenu()
{
    CMenu menu;
    menu.AppendMenu(MF_STRING | MF_CHECKED, 10001, L"120 km/h");
    menu.AppendMenu(MF_STRING, 10002, L"100 km/h");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING | MF_GRAYED, 10003, L"输入车速...");
    CMenu gradients;
    gradients.AppendMenu(MF_STRING, 10004, L"3%");
    gradients.AppendMenu(MF_STRING | MF_CHECKED, 10005, L"4%");
    menu.AppendMenu(MF_POPUP, std::move(gradients), L"坡度");
    return menu;
}

UINT Choose(CMenu& menu, const ModalAction& action)
{
    QWidget owner;
    owner.resize(200, 100);
    owner.show();
    const ExpectModal modal(action);
    return menu.TrackPopupMenu(owner.mapToGlobal(QPoint(5, 5)), &owner);
}

} // namespace

TEST(Menu, ShowsItemsChecksGreysAndSubMenus)
{
    CMenu menu = SpeedMenu();
    EXPECT_EQ(menu.GetMenuItemCount(), 5);
    const UINT chosen = Choose(menu, [](QWidget* window) {
        EXPECT_EQ(MenuLines(window), (CStringArray{L"[x] 120 km/h", L"100 km/h", L"---",
                                                   L"(输入车速...)", L"坡度 >"}));
        const auto items = ReadMenu(window);
        ASSERT_EQ(items.back().subMenu.size(), 2U);
        EXPECT_EQ(items.back().subMenu[1].text, L"4%");
        EXPECT_TRUE(items.back().subMenu[1].checked);
        QMetaObject::invokeMethod(window, "close");
    });
    EXPECT_EQ(chosen, 0U);
}

TEST(Menu, ReturnsTheChosenId)
{
    CMenu menu = SpeedMenu();
    EXPECT_EQ(Choose(menu, [](QWidget* w) { ChooseMenuItem(w, L"120 km/h"); }), 10001U);
    EXPECT_EQ(Choose(menu, [](QWidget* w) { ChooseMenuItem(w, L"100 km/h"); }), 10002U);
    EXPECT_EQ(Choose(menu, [](QWidget* w) { ChooseMenuItem(w, L"4%"); }), 10005U);
}

TEST(Menu, IsWorkedWithKeys)
{
    CMenu menu = SpeedMenu();
    const UINT chosen = Choose(menu, [](QWidget* window) {
        PressKey(window, Qt::Key_Down);
        PressKey(window, Qt::Key_Down);
        PressKey(window, Qt::Key_Return);
    });
    EXPECT_EQ(chosen, 10002U);
    EXPECT_EQ(Choose(menu, [](QWidget* w) { PressKey(w, Qt::Key_Escape); }), 0U);
}

TEST(Menu, AGreyedItemCannotBeChosen)
{
    CMenu menu = SpeedMenu();
    const UINT chosen = Choose(menu, [](QWidget* window) {
        ChooseMenuItem(window, L"输入车速...");
        EXPECT_TRUE(window->isVisible());
        PressKey(window, Qt::Key_Escape);
    });
    EXPECT_EQ(chosen, 0U);
}

TEST(Menu, ChangesItemsByIdInSubMenusToo)
{
    CMenu menu = SpeedMenu();
    EXPECT_TRUE(menu.ModifyMenu(10003, MF_ENABLED, 10003, L"输入..."));
    EXPECT_TRUE(menu.ModifyMenu(10004, MF_GRAYED, 10006, L"5%"));
    EXPECT_FALSE(menu.ModifyMenu(77, MF_GRAYED, 77, L"无"));
    Choose(menu, [](QWidget* window) {
        const auto items = ReadMenu(window);
        EXPECT_EQ(items[3].text, L"输入...");
        EXPECT_TRUE(items[3].enabled);
        EXPECT_EQ(items[4].subMenu[0].text, L"5%");
        EXPECT_EQ(items[4].subMenu[0].id, 10006U);
        EXPECT_FALSE(items[4].subMenu[0].enabled);
        PressKey(window, Qt::Key_Escape);
    });
}

TEST(Menu, EscapedTextIsShownAsItIs)
{
    CMenu menu;
    menu.AppendMenu(MF_STRING, 1, CMenu::Escape(L"A&B"));
    const UINT chosen = Choose(menu, [](QWidget* window) {
        EXPECT_EQ(MenuLines(window), CStringArray{L"A&&B"});
        PressKey(window, Qt::Key_Down);
        PressKey(window, Qt::Key_Return);
    });
    EXPECT_EQ(chosen, 1U);
}
