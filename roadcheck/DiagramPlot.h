// One diagram of a picture: the curve with its band, and the marks of the findings below it.
#pragma once

#include <QPainter>

#include "roadcheck/DiagramColours.h"
#include "roadcheck/DiagramContent.h"
#include "roadcheck/DiagramLayout.h"
#include "roadcheck/DiagramScale.h"

namespace roadcheck {

class DiagramPlot {
public:
    // All are kept by reference.
    DiagramPlot(const DiagramContent& content, const ShownDiagram& shown, const DiagramPlace& place,
                const StationScale& along, const DiagramColours& colours);

    void Paint(QPainter& painter) const;
    // On top, what a place has: over the title where both do not fit.
    void PaintReadout(QPainter& painter, double at) const;

    // Where a finding's mark is; null when it is not on this diagram or not in sight.
    QRectF MarkRect(int finding) const;
    // The findings whose marks are at that point: those of the row that was hit first, the shorter
    // ones first.
    std::vector<int> MarksAt(const QPointF& point) const;
    // The value at a place and what the limit there is, for reading; with the title on top.
    QString Readout(double at) const;

private:
    void PaintTitle(QPainter& painter) const;
    void PaintBands(QPainter& painter) const;
    void PaintValueLines(QPainter& painter) const;
    void PaintSelection(QPainter& painter) const;
    void PaintLines(QPainter& painter) const;
    void PaintMarks(QPainter& painter, RuleSeverity severity) const;
    void PaintBar(QPainter& painter, const DiagramMark& mark, const QRectF& bar) const;
    QRectF BarOf(const DiagramMark& mark) const;
    QRectF RowOf(RuleSeverity severity) const;
    bool IsSeen(const DiagramMark& mark) const;
    QString Title() const;
    QString ValuesAt(double at) const;

    const DiagramContent& m_content;
    const Diagram& m_diagram;
    const DiagramPlace& m_place;
    const StationScale& m_along;
    const ValueScale m_up;
    const DiagramColours& m_colours;
};

} // namespace roadcheck
