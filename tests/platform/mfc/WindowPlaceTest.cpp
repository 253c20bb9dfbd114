#include "platform/mfc/WindowPlace.h"

#include <QDialog>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QTest>

#include <gtest/gtest.h>

using namespace designspec;

namespace {

class WindowPlaceTest : public testing::Test {
protected:
    WindowPlaceTest()
    {
        QSettings().clear();
        m_owner.setGeometry(100, 150, 600, 500);
        m_owner.show();
    }
    ~WindowPlaceTest() override { QSettings().clear(); }

    // Shows a dialog of that size once; what is done with it.
    template <class Action> void Show(Action action, QSize size = {200, 100})
    {
        QDialog dialog(&m_owner);
        new WindowPlace(&dialog, QStringLiteral("dialogs/test"));
        dialog.setGeometry(QRect(QPoint(), size)); // as a form has it
        dialog.show();
        action(dialog);
        dialog.hide();
    }
    static QRect Free() { return QGuiApplication::primaryScreen()->availableGeometry(); }
    // A window system may put a middle between two pixels on either.
    static void ExpectNear(const QPoint& a, const QPoint& b, int most = 2)
    {
        EXPECT_LE((a - b).manhattanLength(), most)
            << a.x() << ", " << a.y() << " and " << b.x() << ", " << b.y();
    }

    QWidget m_owner;
};

} // namespace

TEST_F(WindowPlaceTest, OpensOverItsOwner)
{
    Show([this](const QWidget& dialog) {
        EXPECT_EQ(dialog.size(), QSize(200, 100));
        ExpectNear(dialog.frameGeometry().center(), m_owner.frameGeometry().center());
    });
}

TEST_F(WindowPlaceTest, TheOwnerNeedNotBeTheParent)
{
    QWidget window;
    window.resize(200, 100);
    new WindowPlace(&window, QStringLiteral("alone"), &m_owner);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    ExpectNear(window.frameGeometry().center(), m_owner.frameGeometry().center());
}

TEST_F(WindowPlaceTest, WithoutAnOwnerThatIsSeenOpensInTheMiddleOfTheScreen)
{
    m_owner.hide();
    QPoint left;
    Show([&left](const QWidget& dialog) {
        const int unknown = 20; // the frame, before a window has one
        ExpectNear(dialog.frameGeometry().center(), Free().center(), unknown);
        left = dialog.pos();
    });
    Show([&left](const QWidget& dialog) { EXPECT_EQ(dialog.pos(), left) << "it does not creep"; });
}

TEST_F(WindowPlaceTest, OpensWhereAndAsLargeAsItWasLeft)
{
    QPoint left;
    Show([&left](QWidget& dialog) {
        dialog.resize(231, 142);
        dialog.move(310, 250);
        left = dialog.pos();
    });
    for (int i = 0; i < 3; ++i) // it does not creep
        Show([left](const QWidget& dialog) {
            EXPECT_EQ(dialog.size(), QSize(231, 142));
            EXPECT_EQ(dialog.pos(), left);
        });
}

TEST_F(WindowPlaceTest, FollowsItsOwner)
{
    QPoint left;
    Show([&left](QWidget& dialog) {
        dialog.move(310, 250);
        left = dialog.pos();
    });
    m_owner.move(m_owner.pos() - QPoint(40, 30));
    Show([left](const QWidget& dialog) { EXPECT_EQ(dialog.pos(), left - QPoint(40, 30)); });
}

TEST_F(WindowPlaceTest, IsNeverLargerThanTheScreenNorOutsideOfIt)
{
    const auto inside = [](const QWidget& dialog) {
        EXPECT_TRUE(Free().contains(dialog.frameGeometry()));
    };
    Show(inside, {5000, 4000});
    QSettings().clear();
    Show([](QWidget& dialog) { dialog.move(Free().right() - 20, Free().bottom() - 10); });
    Show([&](const QWidget& dialog) {
        inside(dialog);
        EXPECT_GT(dialog.x(), m_owner.x());
    });
}

TEST_F(WindowPlaceTest, AChildIsItsParentsMatter)
{
    auto* const child = new QDialog(&m_owner);
    new WindowPlace(child, QStringLiteral("dialogs/test"));
    child->setParent(&m_owner, Qt::Widget);
    child->setGeometry(1, 2, 30, 40);
    child->show();
    EXPECT_EQ(child->geometry(), QRect(1, 2, 30, 40));
    child->hide();
    EXPECT_TRUE(QSettings().allKeys().isEmpty());
}
