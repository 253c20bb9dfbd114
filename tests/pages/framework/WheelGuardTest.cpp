#include "pages/framework/WheelGuard.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace {

void Wheel(QWidget& widget)
{
    const QPointF place = widget.rect().center();
    QWheelEvent event(place, widget.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

TEST(WheelGuard, TheWheelNeedsTheFocus)
{
    QWidget window;
    QComboBox combo(&window);
    QComboBox other(&window);
    other.move(0, 60);
    combo.addItems({QStringLiteral("1"), QStringLiteral("2")});
    new CWheelGuard(&combo);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    other.setFocus();
    Wheel(combo);
    EXPECT_EQ(combo.currentIndex(), 0);
    EXPECT_FALSE(combo.hasFocus());
    combo.setFocus();
    Wheel(combo);
    EXPECT_EQ(combo.currentIndex(), 1);
}
