#include "roadcheck/SeverityMark.h"

#include <QPainter>
#include <QPolygonF>

namespace roadcheck {

QColor SeverityColour(RuleSeverity severity, const QColor& ground)
{
    static const QColor kOnLight[] = {QColor(185, 28, 28), QColor(180, 83, 9), QColor(29, 78, 216)};
    static const QColor kOnDark[] = {QColor(255, 120, 120), QColor(255, 180, 60),
                                     QColor(120, 170, 255)};
    return (ground.lightness() < 128 ? kOnDark : kOnLight)[static_cast<size_t>(severity)];
}

void DrawSeverityMark(QPainter& painter, RuleSeverity severity, const QRectF& place,
                      const QColor& ground)
{
    const QPointF top(place.center().x(), place.top()), bottom(place.center().x(), place.bottom());
    const QPointF left(place.left(), place.center().y()), right(place.right(), place.center().y());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ground, place.width() / 8));
    painter.setBrush(SeverityColour(severity, ground));
    switch (severity) {
    case RuleSeverity::Error:
        painter.drawConvexPolygon(QPolygonF({top, right, bottom, left}));
        break;
    case RuleSeverity::Warning:
        painter.drawConvexPolygon(QPolygonF({top, place.bottomRight(), place.bottomLeft()}));
        break;
    case RuleSeverity::Note:
        painter.drawEllipse(place);
        break;
    }
    painter.restore();
}

} // namespace roadcheck
