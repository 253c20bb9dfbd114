#include "pages/framework/ReadOnlyLook.h"

#include <QLineEdit>

#include <gtest/gtest.h>

TEST(ReadOnlyLook, ADisabledFieldHasTheColourOfText)
{
    QLineEdit field;
    QPalette palette = field.palette();
    palette.setColor(QPalette::Active, QPalette::Text, Qt::black);
    palette.setColor(QPalette::Disabled, QPalette::Text, Qt::gray);
    field.setPalette(palette);
    DisableReadably(&field);
    EXPECT_FALSE(field.isEnabled());
    EXPECT_EQ(field.palette().color(QPalette::Disabled, QPalette::Text), QColor(Qt::black));
    DisableReadably(nullptr);
}
