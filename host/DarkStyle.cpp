#include "host/DarkStyle.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

DarkStyle::DarkStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void DarkStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_IndicatorRadioButton && element != PE_IndicatorCheckBox &&
        element != PE_PanelMenu)
        return;
    const QRectF outline = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(option->palette.color(QPalette::PlaceholderText));
    painter->setBrush(Qt::NoBrush);
    if (element == PE_IndicatorRadioButton)
        painter->drawEllipse(outline);
    else
        painter->drawRect(outline);
    painter->restore();
}
