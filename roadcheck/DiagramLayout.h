// Where the parts of a picture with diagrams stand.
#pragma once

#include <vector>

#include <QFontMetricsF>
#include <QRectF>

#include "roadcheck/DiagramContent.h"

namespace roadcheck {

// One diagram: its title, the curve, below it the marks of findings.
struct DiagramPlace {
    QRectF title, plot, marks;
    double step = 1; // of the lines at round values
};

// Diagrams one below the other, with one axis of stations below them all.
class DiagramLayout {
public:
    DiagramLayout(const DiagramContent& content, const QSizeF& size, const QFontMetricsF& font);

    const std::vector<DiagramPlace>& Places() const { return m_places; }
    const QRectF& Axis() const { return m_axis; }
    // Edges of all curves.
    double Left() const { return m_left; }
    double Right() const { return m_right; }
    // The height of the marks of one severity.
    double MarkHeight() const { return m_markHeight; }

    // The least size in which that many diagrams can be read.
    static QSizeF LeastSize(size_t diagrams, const QFontMetricsF& font);

private:
    double m_markHeight;
    double m_left = 0, m_right = 0;
    std::vector<DiagramPlace> m_places;
    QRectF m_axis;
};

// As the axis of values and the line on top tell it.
QString ValueText(double value);

} // namespace roadcheck
