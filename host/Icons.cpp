#include "host/Icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

QIcon HostIcon(const char* name)
{
    QFile file(QStringLiteral(":/host/icons/%1.svg").arg(QLatin1String(name)));
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QColor color = QGuiApplication::palette().color(QPalette::ButtonText);
    QSvgRenderer drawing(file.readAll().replace("currentColor", color.name().toLatin1()));
    QIcon icon;
    for (const int size : {16, 20, 24, 32, 48, 64}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawing.render(&painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}
