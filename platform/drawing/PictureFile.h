// Drawings as files: what a widget shows, as it would look on paper.
#pragma once

#include <functional>

#include <QByteArray>
#include <QFont>
#include <QImage>
#include <QString>

#include "base/Export.h"

class QPainter;
class QWidget;

namespace designspec {

class AFX_EXT_CLASS PictureFile {
public:
    // Draws what the widget shows in its size, with that font.
    using Draw = std::function<void(QPainter& painter, const QFont& font)>;

    PictureFile(const QWidget& widget, Draw draw);

    // Twice as fine as the screen: it is printed.
    QImage Image() const;
    QByteArray Png() const; // empty when it could not be made
    QByteArray Svg() const;
    // As .png or .svg by the ending of the name. False when it could not be written; a file that
    // was there is as it was then.
    bool Save(const QString& file) const;

private:
    const QWidget& m_widget;
    Draw m_draw;
};

} // namespace designspec
