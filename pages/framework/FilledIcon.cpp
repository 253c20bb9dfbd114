#include "pages/framework/FilledIcon.h"

#include <QPainter>

#include "pages/framework/FamilyIcon.h"

namespace {

constexpr QColor kFilled(47, 111, 179, 205);
constexpr int kScales[] = {1, 2, 3, 4}; // of the screens that there are

} // namespace

QIcon FilledIcon(const QIcon& icon)
{
    QIcon filled;
    for (const int scale : kScales) {
        QPixmap picture = icon.pixmap(kFamilyIconSize * scale, kFamilyIconSize * scale);
        if (picture.isNull()) continue;
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        painter.fillRect(picture.rect(), kFilled);
        painter.end();
        filled.addPixmap(picture);
    }
    return filled;
}
