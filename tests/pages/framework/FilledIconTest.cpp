#include "pages/framework/FilledIcon.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace {

QColor At(const QIcon& icon, int scale, QPoint place)
{
    return icon.pixmap(16 * scale, 16 * scale).toImage().pixelColor(place * scale);
}

TEST(FilledIcon, FillsWhatTheIconCoversAndNothingElse)
{
    QPixmap white(64, 64);
    white.fill(Qt::transparent);
    QPainter(&white).fillRect(16, 16, 32, 32, Qt::white);
    const QIcon icon(white);
    const QIcon filled = FilledIcon(icon);
    for (const int scale : {1, 2, 3}) {
        EXPECT_EQ(At(filled, scale, {1, 1}).alpha(), 0);
        EXPECT_EQ(At(icon, scale, {8, 8}), QColor(Qt::white));
        EXPECT_LT(At(filled, scale, {8, 8}).red(), 120);
        EXPECT_EQ(At(filled, scale, {8, 8}).alpha(), 255);
    }
}

TEST(FilledIcon, OfNothingIsNothing)
{
    EXPECT_TRUE(FilledIcon(QIcon()).isNull());
}

} // namespace
