#include "platform/mfc/Dialog.h"

#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTest>

#include <gtest/gtest.h>

#include "platform/vmrd/VmHFCBaseU/Trace.h"
#include "platform/xtp/report/ReportControl.h"
#include "tests/gui/Controls.h"
#include "tests/gui/Modal.h"

using namespace designspec;

namespace {

constexpr UINT kTestDialog = 29001;
constexpr UINT kTestPage = 29002;
constexpr UINT kNoSuchDialog = 29999;

class CTestDialog : public CDialog {
public:
    explicit CTestDialog(UINT id = kTestDialog) : CDialog(id) {}

    int inits = 0;
    int oks = 0;
    int cancels = 0;
    bool visibleAtInit = false;
    bool refuse = false;

protected:
    bool OnInitDialog() override
    {
        ++inits;
        visibleAtInit = isVisible();
        return CDialog::OnInitDialog();
    }
    void OnOK() override
    {
        ++oks;
        if (!refuse) CDialog::OnOK();
    }
    void OnCancel() override
    {
        ++cancels;
        CDialog::OnCancel();
    }
};

} // namespace

TEST(Dialog, FindsItsControlsById)
{
    CTestDialog dialog;
    EXPECT_NE(dialog.GetDlgItem<QLineEdit>(101), nullptr);
    EXPECT_EQ(dialog.GetDlgItem<QPushButton>(101), nullptr);
    EXPECT_EQ(dialog.GetDlgItem(999), nullptr);
    EXPECT_EQ(dialog.GetWindowText(), L"试验");
    EXPECT_EQ(dialog.size(), QSize(360, 320));
}

TEST(Dialog, WithoutAResourceIsEmptyAndTraced)
{
    CString traced;
    const designspec::Connection trace =
        ConnectTrace([&](const TraceLine& line) { traced = line.Text(); });
    CTestDialog dialog(kNoSuchDialog);
    EXPECT_NE(traced.find(L"29999"), CString::npos);
    EXPECT_EQ(dialog.GetDlgItem(IDOK), nullptr);
    QWidget parent;
    EXPECT_FALSE(dialog.Create(&parent));
}

TEST(Dialog, InitialisesOnceBeforeItIsShown)
{
    CTestDialog dialog;
    EXPECT_EQ(dialog.inits, 0);
    for (int i = 0; i < 2; ++i) {
        const ExpectModal modal([&](QWidget* window) { Click(window, IDOK); });
        EXPECT_EQ(dialog.DoModal(), IDOK);
    }
    EXPECT_EQ(dialog.inits, 1);
    EXPECT_FALSE(dialog.visibleAtInit);
}

TEST(Dialog, InitialisesWhenItIsShownWithoutWaiting)
{
    CTestDialog dialog;
    dialog.show();
    EXPECT_EQ(dialog.inits, 1);
    EXPECT_FALSE(dialog.visibleAtInit);
}

TEST(Dialog, ClosesWithOkByButtonAndByEnter)
{
    CTestDialog dialog;
    {
        const ExpectModal modal([](QWidget* window) { Click(window, IDOK); });
        EXPECT_EQ(dialog.DoModal(), IDOK);
    }
    const ExpectModal modal([](QWidget* window) {
        TypeInto(window, 101, L"x");
        PressKey(window, Qt::Key_Return);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.oks, 2);
    EXPECT_EQ(dialog.cancels, 0);
}

TEST(Dialog, ClosesWithCancelByButtonByEscAndByTheCloseButton)
{
    CTestDialog dialog;
    const std::vector<ModalAction> ways = {
        [](QWidget* window) { Click(window, IDCANCEL); },
        [](QWidget* window) { PressKey(window, Qt::Key_Escape); },
        [](QWidget* window) { window->close(); },
    };
    for (const ModalAction& way : ways) {
        const ExpectModal modal(way);
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    }
    EXPECT_EQ(dialog.cancels, 3);
    EXPECT_EQ(dialog.oks, 0);
}

TEST(Dialog, ItsButtonsHaveKeys)
{
    CTestDialog dialog;
    const auto press = [&dialog](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        const ExpectModal modal([=](QWidget* window) {
            Control(window, 102)->setFocus();
            PressKey(window, key, modifiers);
        });
        return dialog.DoModal();
    };
    EXPECT_EQ(press(Qt::Key_Return, Qt::ControlModifier), IDOK);
    EXPECT_EQ(press(Qt::Key_Enter, Qt::ControlModifier), IDOK);
    EXPECT_EQ(press(Qt::Key_O, Qt::AltModifier), IDOK);
    EXPECT_EQ(press(Qt::Key_C, Qt::AltModifier), IDCANCEL);
    EXPECT_EQ(dialog.oks, 3);
    EXPECT_EQ(dialog.cancels, 1);
}

TEST(Dialog, OpensOverItsOwnerWhateverPlaceItsFormHas)
{
    QSettings().clear();
    QWidget owner;
    owner.setGeometry(200, 150, 500, 400);
    owner.show();
    CDialog dialog(kTestDialog, &owner);
    dialog.show();
    const QPoint apart = dialog.frameGeometry().center() - owner.frameGeometry().center();
    EXPECT_LE(apart.manhattanLength(), 2);
}

TEST(Dialog, StaysOpenWhenOkRefuses)
{
    CTestDialog dialog;
    dialog.refuse = true;
    const ExpectModal modal([](QWidget* window) {
        Click(window, IDOK);
        EXPECT_TRUE(window->isVisible());
        PressKey(window, Qt::Key_Escape);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.oks, 1);
}

TEST(Dialog, ReturnsWhatEndDialogWasGiven)
{
    CTestDialog dialog;
    const ExpectModal modal([&](QWidget*) { dialog.EndDialog(42); });
    EXPECT_EQ(dialog.DoModal(), 42);
}

TEST(Dialog, ExchangesTexts)
{
    CTestDialog dialog;
    dialog.GetDlgItem<QComboBox>(104)->addItems({"甲", "乙"});
    EXPECT_EQ(dialog.GetDlgItemText(103), L"说明");
    EXPECT_EQ(dialog.GetDlgItemText(104), L"甲");
    EXPECT_EQ(dialog.GetDlgItemText(105), L"半径");
    EXPECT_EQ(dialog.GetDlgItemText(999), L"");
    for (int id : {1, 101, 102, 103, 105}) {
        dialog.SetDlgItemText(id, L"文 1");
        EXPECT_EQ(dialog.GetDlgItemText(id), L"文 1") << id;
    }
    dialog.SetDlgItemText(104, L"乙");
    EXPECT_EQ(dialog.GetDlgItemText(104), L"乙");
    dialog.SetDlgItemText(999, L"x"); // skipped
    dialog.SetWindowText(L"标题");
    EXPECT_EQ(dialog.GetWindowText(), L"标题");
}

TEST(Dialog, ChecksEnablesAndShowsControls)
{
    CTestDialog dialog;
    dialog.show();
    dialog.CheckDlgButton(102, true);
    EXPECT_TRUE(dialog.IsDlgButtonChecked(102));
    Click(&dialog, 102);
    EXPECT_FALSE(dialog.IsDlgButtonChecked(102));
    EXPECT_FALSE(dialog.IsDlgButtonChecked(101));
    dialog.EnableWindow(101, false);
    EXPECT_FALSE(dialog.GetDlgItem(101)->isEnabled());
    dialog.ShowWindow(103, false);
    EXPECT_FALSE(dialog.GetDlgItem(103)->isVisible());
    dialog.EnableWindow(999, true); // skipped
    dialog.ShowWindow(999, true);
    dialog.CheckDlgButton(999, true);
}

TEST(Dialog, APageIsAHiddenChildThatIsInitialised)
{
    QWidget parent;
    CTestDialog page(kTestPage);
    EXPECT_TRUE(page.Create(&parent));
    EXPECT_EQ(page.inits, 1);
    EXPECT_FALSE(page.isWindow());
    EXPECT_EQ(page.parentWidget(), &parent);
    parent.show();
    EXPECT_FALSE(page.isVisible());
    page.setGeometry(30, 40, 200, 100);
    page.show();
    EXPECT_EQ(page.inits, 1);
    EXPECT_EQ(page.geometry(), QRect(30, 40, 200, 100));
    page.EndDialog(IDOK);
    EXPECT_TRUE(page.isVisible());
}

TEST(Dialog, ControlsOfAPageAreThePagesOwn)
{
    CTestDialog dialog;
    CTestDialog page(kTestPage);
    ASSERT_TRUE(page.Create(&dialog));
    EXPECT_EQ(dialog.GetDlgItem(201), nullptr);
    EXPECT_NE(page.GetDlgItem(201), nullptr);
    EXPECT_NE(dialog.GetDlgItem(102), page.GetDlgItem(102));
}

TEST(Dialog, EnterAndEscInAPageGoToTheDialogAroundIt)
{
    for (const auto& [key, result] :
         {std::pair(Qt::Key_Return, IDOK), {Qt::Key_Escape, IDCANCEL}}) {
        CTestDialog dialog;
        CTestDialog page(kTestPage);
        ASSERT_TRUE(page.Create(&dialog));
        page.show();
        const ExpectModal modal([&, pressed = key](QWidget*) {
            Click(&page, 201);
            PressKey(&page, pressed);
            EXPECT_TRUE(page.isVisibleTo(&dialog));
        });
        EXPECT_EQ(dialog.DoModal(), result);
        EXPECT_EQ(page.oks + page.cancels, 0);
    }
}

TEST(Dialog, AGridTakesThePlaceholdersPlaceAndGrowsWithTheWindow)
{
    CTestDialog dialog;
    auto* const grid = new CXTPReportControl;
    grid->CreateOver(dialog.GetDlgItem(106), 10001);
    dialog.show();
    EXPECT_TRUE(dialog.GetDlgItem(106)->isHidden());
    EXPECT_EQ(dialog.GetDlgItem(10001), grid);
    EXPECT_TRUE(grid->isVisible());
    const QSize before = grid->size();
    dialog.resize(dialog.width() + 200, dialog.height() + 100);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid->width(), before.width() + 200);
    EXPECT_GE(grid->height(), before.height() + 80);
}

TEST(Dialog, AGridOverAPlaceholderWithoutLayoutTakesItsRectangle)
{
    QWidget page;
    auto* const placeholder = new QFrame(&page);
    placeholder->setGeometry(10, 20, 300, 150);
    auto* const grid = new CXTPReportControl;
    grid->CreateOver(placeholder, 1001);
    EXPECT_EQ(grid->geometry(), QRect(10, 20, 300, 150));
    EXPECT_EQ(grid->parentWidget(), &page);
}

TEST(Dialog, AGridTakesThePlaceholdersNameAndLabel)
{
    QWidget page;
    auto* const placeholder = new QFrame(&page);
    placeholder->setAccessibleName(QStringLiteral("坡长"));
    QLabel label(QStringLiteral("表:"), &page);
    label.setBuddy(placeholder);
    QLabel other(&page);
    auto* const grid = new CXTPReportControl;
    grid->CreateOver(placeholder, 1001);
    EXPECT_EQ(label.buddy(), grid);
    EXPECT_EQ(grid->accessibleName(), QStringLiteral("坡长"));
    EXPECT_EQ(other.buddy(), nullptr);
}

TEST(Dialog, TabReachesAGridWhereThePlaceholderStood)
{
    QWidget page;
    auto* const before = new QLineEdit(&page);
    auto* const placeholder = new QFrame(&page);
    auto* const after = new QLineEdit(&page);
    auto* const grid = new CXTPReportControl;
    grid->CreateOver(placeholder, 1001);
    page.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
    before->setFocus();
    PressKey(&page, Qt::Key_Tab);
    EXPECT_TRUE(grid->hasFocus());
    PressKey(&page, Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
}
