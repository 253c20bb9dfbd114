// The Fusion style for a dark window: it draws outlines darker than the window, where nobody sees
// them.
#pragma once

#include <QProxyStyle>

class DarkStyle : public QProxyStyle {
    Q_OBJECT

public:
    DarkStyle();

    // Outlines of radio buttons, check boxes and menus come in the colour of hints on top.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};
