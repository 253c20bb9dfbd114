// What was drawn where, for tests of drawing.
#pragma once

#include <functional>

#include <QImage>
#include <QPainter>

// Draws on a white picture of that size; at 200 % with a scale of 2.
inline QImage Picture(const QSize& size, const std::function<void(QPainter&)>& draw, int scale = 1)
{
    QImage image(size * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    draw(painter);
    return image;
}

// The smallest rectangle around all pixels of `where` that are nearly black; null without any.
inline QRect DarkRect(const QImage& image, const QRect& where)
{
    QRect found;
    for (int y = where.top(); y <= where.bottom(); ++y)
        for (int x = where.left(); x <= where.right(); ++x)
            if (image.pixelColor(x, y).lightness() < 90) found |= QRect(x, y, 1, 1);
    return found;
}
