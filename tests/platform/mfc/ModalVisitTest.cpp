#include "platform/mfc/ModalVisit.h"

#include <QMenu>
#include <QMessageBox>

#include <gtest/gtest.h>

#include "platform/mfc/Menu.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"
#include "tests/gui/Modal.h"

namespace {

class ModalVisits : public ::testing::Test {
protected:
    // The texts of the message boxes that are visited.
    ModalVisit Read()
    {
        return [this](QWidget* window) {
            EXPECT_TRUE(window->isVisible());
            read.push_back(ReadMessage(window).text);
        };
    }

    UnwatchedModals mine;
    CStringArray read;
};

void Ask(const CString& text)
{
    MessageBox(nullptr, text, L"提示", MB_YESNO);
}

// A menu with a sub-menu; the id that is chosen in it.
UINT TrackMenu()
{
    CMenu menu;
    menu.AppendMenu(MF_STRING, 1, L"一");
    menu.AppendMenu(MF_STRING | MF_GRAYED, 2, L"二");
    CMenu sub;
    sub.AppendMenu(MF_STRING, 3, L"三");
    menu.AppendMenu(MF_POPUP, std::move(sub), L"其它");
    return menu.TrackPopupMenu(QPoint(5, 5), nullptr);
}

// Chooses the item of that place in the menu, or in the sub-menu at its end.
ModalVisit Choose(qsizetype place, bool inSubMenu, bool& chosen)
{
    return [=, &chosen](QWidget* window) {
        auto* const menu = qobject_cast<QMenu*>(window);
        ASSERT_NE(menu, nullptr);
        QMenu* const from = inSubMenu ? menu->actions().last()->menu() : menu;
        chosen = ChooseMenuItem(menu, from->actions().at(place));
    };
}

} // namespace

TEST_F(ModalVisits, AreNoneWhereNothingOpens)
{
    EXPECT_EQ(VisitModals([] {}, {Read()}), 0U);
}

TEST_F(ModalVisits, SeeAWindowAndCloseItLikeEsc)
{
    int answer = IDYES;
    const auto ask = [&answer] { answer = MessageBox(nullptr, L"甲", L"提示", MB_YESNO); };
    EXPECT_EQ(VisitModals(ask, {Read()}), 1U);
    EXPECT_EQ(read, CStringArray{L"甲"});
    EXPECT_EQ(answer, IDNO);
}

TEST_F(ModalVisits, SeeOneWindowAfterTheOtherAndCloseThoseBeyond)
{
    const auto three = [] {
        for (const wchar_t* text : {L"甲", L"乙", L"丙"})
            Ask(text);
    };
    EXPECT_EQ(VisitModals(three, {Read(), Read()}), 2U);
    EXPECT_EQ(read, (CStringArray{L"甲", L"乙"}));
}

TEST_F(ModalVisits, MayOpenOthers)
{
    const auto open = [this](QWidget*) {
        EXPECT_EQ(VisitModals([] { Ask(L"内"); }, {Read()}), 1U);
    };
    EXPECT_EQ(VisitModals([] { Ask(L"外"); }, {open}), 1U);
    EXPECT_EQ(read, CStringArray{L"内"});
}

TEST_F(ModalVisits, ChooseFromAMenuAndItsSubMenu)
{
    bool chosen = false;
    UINT id = 0;
    const auto track = [&id] { id = TrackMenu(); };
    VisitModals(track, {Choose(0, false, chosen)});
    EXPECT_TRUE(chosen);
    EXPECT_EQ(id, 1U);
    VisitModals(track, {Choose(0, true, chosen)});
    EXPECT_TRUE(chosen);
    EXPECT_EQ(id, 3U);
}

TEST_F(ModalVisits, DoNotChooseWhatIsGreyed)
{
    bool chosen = true;
    UINT id = 9;
    VisitModals([&id] { id = TrackMenu(); }, {Choose(1, false, chosen)});
    EXPECT_FALSE(chosen);
    EXPECT_EQ(id, 0U);
}
