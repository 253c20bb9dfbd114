#include "platform/mfc/ModalWatch.h"

#include <QMessageBox>

#include <gtest/gtest.h>

#include "platform/mfc/MessageBox.h"
#include "tests/gui/Modal.h"

using namespace designspec;

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

    CStringArray read;
};

void Ask(const CString& text)
{
    MessageBox(nullptr, text, L"提示", MB_YESNO);
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

TEST_F(ModalVisits, SeeWhatOpensWhileOneWaitsInAnother)
{
    const auto open = [](QWidget*) { Ask(L"内"); };
    EXPECT_EQ(VisitModals([] { Ask(L"外"); }, {open, Read()}), 2U);
    EXPECT_EQ(read, CStringArray{L"内"});
}

TEST_F(ModalVisits, LeaveWhatIsOpenAlreadyAlone)
{
    const ExpectModal outer([this](QWidget* window) {
        EXPECT_EQ(VisitModals([] { Ask(L"内"); }, {Read()}), 1U);
        EXPECT_TRUE(window->isVisible());
        ClickMessageButton(window, L"是");
    });
    EXPECT_EQ(MessageBox(nullptr, L"外", L"提示", MB_YESNO), IDYES);
    EXPECT_EQ(read, CStringArray{L"内"});
}

TEST_F(ModalVisits, EndWithTheirCall)
{
    VisitModals([] { Ask(L"甲"); }, {});
    const ExpectMessage box(L"乙", L"提示", 0, IDYES);
    Ask(L"乙");
}
