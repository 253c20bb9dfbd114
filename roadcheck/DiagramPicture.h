// A picture with the diagrams of a road over a common axis of stations. The same in the window and
// in a file.
#pragma once

#include <QFont>

#include "roadcheck/DiagramPlot.h"
#include "roadcheck/StationRange.h"

namespace roadcheck {

class DiagramPicture {
public:
    // Content is kept by reference.
    DiagramPicture(const DiagramContent& content, const StationRange& range, const QSizeF& size,
                   const QFont& font, const QPalette& palette);
    DiagramPicture(const DiagramPicture&) = delete;
    DiagramPicture& operator=(const DiagramPicture&) = delete;

    void Paint(QPainter& painter) const;
    // Over it, a line through a place, m along, with its station and values.
    void PaintCursor(QPainter& painter, double at) const;

    // From pixels to places, m along.
    const StationScale& Scale() const { return m_along; }
    // The first mark of a finding that is in sight; null without one.
    QRectF MarkRect(int finding) const;
    // The findings whose marks are at that point; the one that is meant first.
    std::vector<int> MarksAt(const QPointF& point) const;
    // Station, values and limits of a place, a line for each.
    QString Readout(double at) const;

private:
    void PaintAxis(QPainter& painter) const;
    double LeftOfText(double x, double width) const;

    const DiagramContent& m_content;
    const QSizeF m_size;
    const QFont m_font;
    const DiagramColours m_colours;
    const DiagramLayout m_layout;
    const StationScale m_along;
    std::vector<DiagramPlot> m_plots;
};

} // namespace roadcheck
