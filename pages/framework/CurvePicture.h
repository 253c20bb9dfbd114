// A picture of the curves of a table: charts one below the other over the same axis. The same in
// the window and in a file.
#pragma once

#include <optional>
#include <vector>

#include <QFont>
#include <QPainter>

#include "model/LimitCurves.h"
#include "platform/drawing/DrawingColours.h"

namespace designspec {

// A cell of the table; both count from 0.
struct CurveCell {
    std::size_t line = 0, column = 0;

    bool operator==(const CurveCell&) const = default;
};

struct CurveContent {
    std::vector<CurveChart> charts;
    std::optional<CurveCell> current = {}; // the cell that keys act on
    // The same table of another specification, dashed behind; none without a name.
    std::vector<CurveChart> compared = {};
    CString comparedName = {};
};

class CurvePicture {
public:
    // Content is kept by reference.
    CurvePicture(const CurveContent& content, const QSizeF& size, const QFont& font,
                 const QPalette& palette);
    CurvePicture(const CurvePicture&) = delete;
    CurvePicture& operator=(const CurvePicture&) = delete;

    void Paint(QPainter& painter) const;
    // Over it, a line through what is there and its values in a frame beside it.
    void PaintReadout(QPainter& painter, double x) const;

    // What can be seen there, a line for each value, the place on top. Where lines lead from point
    // to point it is the nearest place that has values. Empty beside the curves.
    QString Readout(double x) const;
    // The point that a click there means; null when none is near.
    const CurvePoint* PointAt(const QPointF& place) const;
    // The middle of a cell's point; null when it has none.
    QPointF PlaceOf(const CurveCell& cell) const;

    // The least size in which curves can be read.
    static QSizeF LeastSize(const QFontMetricsF& font);

private:
    struct Entry { // of the legend
        const Curve* curve;
        std::size_t index; // of its colour
        QRectF place;
    };
    struct Place {
        const CurveChart* chart;
        const CurveChart* compared = nullptr; // of the same quantity
        std::vector<Entry> legend;
        QRectF comparedEntry = {}; // of the legend too
        QRectF header, plot;
        double low = 0, high = 1, step = 1;

        double Y(double value) const
        {
            return plot.bottom() - plot.height() * (value - low) / (high - low);
        }
    };
    struct Line { // of the readout
        QString text;
        int index; // of a curve's colour; -1: none
    };

    static std::vector<const Curve*> CurvesOf(const Place& place); // those compared with as well
    void SpanAcross();
    void SpanUp(Place& place) const;
    void LayOutHeaders();
    void LayOutPlots();
    double StepAcross() const;
    double X(double at) const;
    double At(double x) const;
    std::optional<double> ShownAt(double x) const;
    std::vector<Line> Lines(double at) const;
    QColor ColourOf(std::size_t index) const;

    void PaintHeader(QPainter& painter, const Place& place) const;
    void PaintLines(QPainter& painter, const Place& place) const;
    void PaintAxis(QPainter& painter) const;
    void PaintCurve(QPainter& painter, const Place& place, const Entry& entry) const;
    void PaintSteps(QPainter& painter, const Place& place, const Curve& curve) const;
    void PaintPath(QPainter& painter, const Place& place, const Curve& curve) const;
    void PaintCompared(QPainter& painter, const Place& place) const;
    CString ComparedValue(const Place& place, const CString& name, double at) const;
    void PaintMarks(QPainter& painter, const Place& place, const Entry& entry) const;
    void PaintMarker(QPainter& painter, const QPointF& middle, std::size_t index) const;
    bool IsCurrent(const CurvePoint& point) const;

    const CurveContent& m_content;
    const QSizeF m_size;
    const QFont m_font;
    const QFontMetricsF m_metrics;
    const DrawingColours m_colours;
    bool m_isEmpty = true;
    bool m_isRoomy = true;
    double m_from = 0, m_to = 1; // across
    double m_left = 0, m_right = 1;
    QRectF m_axis;
    std::vector<Place> m_places;
};

} // namespace designspec
