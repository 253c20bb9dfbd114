#include "platform/drawing/PictureFile.h"

#include <utility>

#include <QBuffer>
#include <QFontInfo>
#include <QPainter>
#include <QSvgGenerator>
#include <QWidget>

#include "base/File.h"
#include "platform/mfc/QtText.h"

namespace designspec {

PictureFile::PictureFile(const QWidget& widget, Draw draw)
    : m_widget(widget), m_draw(std::move(draw))
{
}

QImage PictureFile::Image() const
{
    const double scale = 2 * m_widget.devicePixelRatioF();
    QImage image((QSizeF(m_widget.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    m_draw(painter, m_widget.font());
    return image;
}

QByteArray PictureFile::Png() const
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return Image().save(&buffer, "PNG") ? bytes : QByteArray();
}

QByteArray PictureFile::Svg() const
{
    QFont inPixels = m_widget.font(); // whatever the resolution of the file
    inPixels.setPixelSize(QFontInfo(inPixels).pixelSize());
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(m_widget.size());
    generator.setViewBox(m_widget.rect());
    generator.setResolution(m_widget.logicalDpiX());
    QPainter painter(&generator);
    m_draw(painter, inPixels);
    return painter.end() ? bytes : QByteArray();
}

bool PictureFile::Save(const QString& file) const
{
    const bool isSvg = file.endsWith(QStringLiteral(".svg"), Qt::CaseInsensitive);
    const bool isPng = file.endsWith(QStringLiteral(".png"), Qt::CaseInsensitive);
    if (!isSvg && !isPng) return false;
    const QByteArray bytes = isSvg ? Svg() : Png();
    Problems problems;
    return !bytes.isEmpty() &&
           WriteWholeFile(FromQString(file), {bytes.constData(), static_cast<size_t>(bytes.size())},
                          problems);
}

} // namespace designspec
