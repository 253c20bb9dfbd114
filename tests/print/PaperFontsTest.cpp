#include "print/PaperFonts.h"

#include <gtest/gtest.h>

using namespace designspec;

TEST(PaperFonts, WrappedLinesFitAndLoseNothing)
{
    const PaperFonts fonts;
    const QString text = QStringLiteral("公路路线设计规范 JTG D20-2017 第 7.4 条 ").repeated(20);
    const QStringList lines = fonts.text.Wrap(text, 3000);
    EXPECT_GT(lines.size(), 5);
    for (const QString& line : lines)
        EXPECT_LE(fonts.text.WidthOf(line.trimmed()), 3000) << line.toStdString();
    EXPECT_EQ(lines.join(QString()), text);
}

TEST(PaperFonts, AWordThatIsTooLongIsBroken)
{
    const PaperFonts fonts;
    const QString word(200, u'W');
    const QStringList lines = fonts.text.Wrap(word, 2000);
    EXPECT_GT(lines.size(), 1);
    EXPECT_EQ(lines.join(QString()), word);
}

TEST(PaperFonts, WhatFitsStaysOnOneLine)
{
    const PaperFonts fonts;
    EXPECT_EQ(fonts.text.Wrap({}, 10), QStringList(QString()));
    const QString text = QStringLiteral("设计车速");
    EXPECT_EQ(fonts.text.Wrap(text, fonts.text.WidthOf(text)), QStringList(text));
}

TEST(PaperFonts, WidthsDoNotDependOnAPrinter)
{
    const PaperFonts fonts;
    // A Chinese character is as wide as its font is high.
    EXPECT_NEAR(fonts.text.WidthOf(QStringLiteral("规")), 9.5 * kUnitsPerPoint, 1);
    EXPECT_NEAR(fonts.title.WidthOf(QStringLiteral("规")), 18 * kUnitsPerPoint, 1);
}

TEST(PaperFonts, WhatIsElidedFits)
{
    const PaperFonts fonts;
    const QString text = QString(300, u'名');
    const QString elided = fonts.rim.Elided(text, 5000);
    EXPECT_LE(fonts.rim.WidthOf(elided), 5000);
    EXPECT_TRUE(elided.endsWith(QChar(0x2026)));
    EXPECT_EQ(fonts.rim.Elided(QStringLiteral("短"), 5000), QStringLiteral("短"));
}
