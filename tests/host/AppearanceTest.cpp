#include "host/Appearance.h"

#include <cmath>

#include <QApplication>
#include <QCheckBox>
#include <QMenu>
#include <QPalette>
#include <QRadioButton>
#include <QStyle>

#include <gtest/gtest.h>

namespace {

// How far two colours are apart in lightness: (L1 + 0.05) / (L2 + 0.05) with the relative
// luminances of sRGB, from 1 to 21.
double Contrast(const QColor& a, const QColor& b)
{
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double c) {
            return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

// The strongest contrast of a pixel on the picture's middle row, from its left to `width`, with the
// colour.
double StrongestContrast(const QImage& picture, int width, const QColor& ground)
{
    double strongest = 1;
    for (int x = 0; x < std::min(width, picture.width()); ++x)
        strongest =
            std::max(strongest, Contrast(picture.pixelColor(x, picture.height() / 2), ground));
    return strongest;
}

// The application as it was.
class Appearance : public testing::Test {
protected:
    ~Appearance() override
    {
        QApplication::setStyle(m_style);
        QApplication::setPalette(m_palette);
    }
    QString m_style = QApplication::style()->objectName();
    QPalette m_palette = QApplication::palette();
};

} // namespace

TEST_F(Appearance, DarkColoursCanBeRead)
{
    UseDarkColours();
    const QPalette palette = QApplication::palette();
    EXPECT_LT(palette.color(QPalette::Base).lightness(), 64);
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> kTextOn[] = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::ToolTipText, QPalette::ToolTipBase},
        {QPalette::Link, QPalette::Base},
    };
    for (const auto& [text, ground] : kTextOn)
        EXPECT_GE(Contrast(palette.color(text), palette.color(ground)), 4.5) << text;
    EXPECT_GE(
        Contrast(palette.color(QPalette::Disabled, QPalette::Text), palette.color(QPalette::Base)),
        3);
    EXPECT_GE(Contrast(palette.color(QPalette::Mid), palette.color(QPalette::Base)), 2); // lines
}

TEST_F(Appearance, WhatIsUncheckedCanBeSeenInTheDark)
{
    UseDarkColours();
    QRadioButton radio;
    QCheckBox check;
    for (QAbstractButton* button :
         {static_cast<QAbstractButton*>(&radio), static_cast<QAbstractButton*>(&check)}) {
        button->resize(button->sizeHint());
        const QColor ground = button->palette().color(QPalette::Window);
        EXPECT_GE(StrongestContrast(button->grab().toImage(), 20, ground), 3)
            << button->metaObject()->className();
    }
}

TEST_F(Appearance, AMenuIsSetOffInTheDark)
{
    UseDarkColours();
    QMenu menu;
    menu.addAction(QStringLiteral("x"));
    menu.popup({});
    // It may come to lie on the window or on a list.
    for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base})
        EXPECT_GE(StrongestContrast(menu.grab().toImage(), 2, menu.palette().color(ground)), 1.9)
            << ground;
    menu.close();
}
