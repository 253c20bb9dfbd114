#include "roadcheck/DiagramPlot.h"

#include <algorithm>
#include <cmath>

#include "base/AxisTicks.h"
#include "platform/mfc/QtText.h"
#include "roadcheck/SeverityMark.h"
#include "roadcheck/ThinnedLines.h"

using namespace designspec;

namespace roadcheck {

namespace {

constexpr double kLeastBar = 3;    // pixels of a mark's length
constexpr double kHitMargin = 3;   // pixels beside a mark that still hit it
constexpr double kLineWidth = 1.5; // of the lines that letters are made of

} // namespace

DiagramPlot::DiagramPlot(const DiagramContent& content, const ShownDiagram& shown,
                         const DiagramPlace& place, const StationScale& along,
                         const DiagramColours& colours)
    : m_content(content), m_diagram(shown.diagram), m_place(place),
      m_along(along), m_up{shown.span, place.plot.top(), place.plot.bottom()}, m_colours(colours)
{
}

void DiagramPlot::Paint(QPainter& painter) const
{
    PaintTitle(painter);
    PaintBands(painter);
    PaintValueLines(painter);
    PaintSelection(painter);
    PaintLines(painter);
    using enum RuleSeverity;
    for (const RuleSeverity severity : {Note, Warning, Error})
        PaintMarks(painter, severity);
    painter.setPen(m_colours.zero);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(m_place.plot);
}

QString DiagramPlot::Title() const
{
    return QStringLiteral("%1 (%2)").arg(ToQString(m_diagram.title), ToQString(m_diagram.unit));
}

QString DiagramPlot::ValuesAt(double at) const
{
    const std::optional<double> value = m_diagram.ValueAt(at);
    const DiagramBand* const band = m_diagram.BandAt(at);
    const QString limits =
        band ? QStringLiteral("限值 %1 ~ %2").arg(ValueText(band->low), ValueText(band->high))
             : QStringLiteral("无限值");
    return QStringLiteral("%1  %2").arg(value ? ValueText(*value) : QStringLiteral("—"), limits);
}

QString DiagramPlot::Readout(double at) const
{
    return QStringLiteral("%1 %2").arg(Title(), ValuesAt(at));
}

void DiagramPlot::PaintTitle(QPainter& painter) const
{
    const QFont usual = painter.font();
    QFont bold = usual;
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(m_colours.text);
    painter.drawText(
        m_place.title, Qt::AlignLeft | Qt::AlignVCenter,
        QFontMetricsF(bold).elidedText(Title(), Qt::ElideRight, m_place.title.width()));
    painter.setFont(usual);
}

void DiagramPlot::PaintReadout(QPainter& painter, double at) const
{
    const QString values = ValuesAt(at);
    const QFontMetricsF font(painter.font());
    QRectF room = m_place.title;
    room.setLeft(room.right() - font.horizontalAdvance(values) - font.averageCharWidth());
    painter.fillRect(room, m_colours.ground);
    painter.setPen(m_colours.text);
    painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, values);
}

// In whole pixels: two that meet would have a seam.
void DiagramPlot::PaintBands(QPainter& painter) const
{
    double painted = m_along.left - 1; // as far as columns are done
    for (const DiagramBand& band : m_diagram.bands) {
        if (band.to <= m_along.from || band.from >= m_along.to) continue;
        const double left = std::round(m_along.X(std::max(band.from, m_along.from)));
        const double right = std::round(m_along.X(std::min(band.to, m_along.to)));
        if (right <= painted) continue;
        painted = right;
        const QRectF area(QPointF(left, std::round(m_up.Y(band.high))),
                          QPointF(right, std::round(m_up.Y(band.low))));
        painter.fillRect(area, m_colours.band);
        painter.setPen(m_colours.bandEdge);
        painter.drawLine(area.topLeft(), area.topRight());
        painter.drawLine(area.bottomLeft(), area.bottomRight());
    }
}

void DiagramPlot::PaintValueLines(QPainter& painter) const
{
    const double gap = painter.fontMetrics().height() * 0.4;
    for (const double value : MultiplesOf(m_place.step, m_up.span.low, m_up.span.high)) {
        const double y = std::round(m_up.Y(value));
        painter.setPen(value == 0 ? m_colours.zero : m_colours.grid);
        painter.drawLine(QPointF(m_along.left, y), QPointF(m_along.right, y));
        painter.setPen(m_colours.hint);
        const QRectF label(0, y - m_place.title.height() / 2, m_along.left - gap,
                           m_place.title.height());
        painter.drawText(label, Qt::AlignRight | Qt::AlignVCenter, ValueText(value));
    }
}

void DiagramPlot::PaintSelection(QPainter& painter) const
{
    const QRectF bar = MarkRect(m_content.selected);
    if (bar.isNull()) return;
    const DiagramMark& mark = m_content.marks[static_cast<size_t>(m_content.selected)];
    QColor colour = SeverityColour(mark.severity, m_colours.ground);
    const QRectF area(QPointF(bar.left(), m_place.plot.top()),
                      QPointF(bar.right(), m_place.plot.bottom()));
    painter.setPen(QPen(colour, 1, Qt::DashLine));
    colour.setAlphaF(0.22F);
    painter.fillRect(area, colour);
    painter.drawLine(area.topLeft(), area.bottomLeft());
    painter.drawLine(area.topRight(), area.bottomRight());
}

void DiagramPlot::PaintLines(QPainter& painter) const
{
    const double columns = painter.device()->devicePixelRatioF();
    const std::vector<QPolygonF> pieces = ThinnedLines(m_diagram.lines, m_along, m_up, columns);
    qsizetype points = 0;
    for (const QPolygonF& piece : pieces)
        points += piece.size();
    // Where lines are dense they are drawn as thin as can be: that is clearer, and a lot quicker.
    const bool isDense = static_cast<double>(points) > m_place.plot.width() / 2;
    const double width = kLineWidth * QFontMetricsF(painter.font()).lineWidth();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_colours.text, isDense ? 0 : width));
    for (const QPolygonF& piece : pieces)
        painter.drawPolyline(piece);
    painter.restore();
}

bool DiagramPlot::IsSeen(const DiagramMark& mark) const
{
    return mark.isShown && mark.from <= m_along.to && mark.to >= m_along.from;
}

QRectF DiagramPlot::RowOf(RuleSeverity severity) const
{
    const double height = m_place.marks.height() / 3;
    return {m_place.marks.left(), m_place.marks.top() + height * static_cast<int>(severity),
            m_place.marks.width(), height};
}

// The graver the severity, the thicker.
QRectF DiagramPlot::BarOf(const DiagramMark& mark) const
{
    constexpr double kThickness[] = {0.7, 0.45, 0.25};
    const QRectF row = RowOf(mark.severity);
    const double height =
        std::max(row.height() * kThickness[static_cast<size_t>(mark.severity)], 2.0);
    const double left = m_along.X(std::clamp(mark.from, m_along.from, m_along.to));
    const double right = m_along.X(std::clamp(mark.to, m_along.from, m_along.to));
    const double width = std::max(right - left, kLeastBar);
    return {std::min(left, m_along.right - width), row.center().y() - height / 2, width, height};
}

QRectF DiagramPlot::MarkRect(int finding) const
{
    const auto index = static_cast<size_t>(finding);
    if (finding < 0 || index >= m_content.marks.size() || !IsSeen(m_content.marks[index]) ||
        std::find(m_diagram.findings.begin(), m_diagram.findings.end(), index) ==
            m_diagram.findings.end())
        return {};
    return BarOf(m_content.marks[index]);
}

void DiagramPlot::PaintBar(QPainter& painter, const DiagramMark& mark, const QRectF& bar) const
{
    painter.fillRect(bar, SeverityColour(mark.severity, m_colours.ground));
    // One beside another is told apart.
    painter.fillRect(QRectF(bar.topLeft(), QSizeF(1, bar.height())), m_colours.ground);
}

void DiagramPlot::PaintMarks(QPainter& painter, RuleSeverity severity) const
{
    const QRectF row = RowOf(severity);
    const double symbol = row.height();
    double painted = 0;       // bars that end before this lie below others
    double free = row.left(); // where the next symbol may stand
    std::vector<QRectF> symbols;
    for (const size_t index : m_diagram.findings) {
        if (index >= m_content.marks.size()) continue;
        const DiagramMark& mark = m_content.marks[index];
        if (mark.severity != severity || !IsSeen(mark)) continue;
        const QRectF bar = BarOf(mark);
        if (bar.right() <= painted) continue;
        painted = std::ceil(bar.right());
        PaintBar(painter, mark, bar);
        const QRectF place(bar.center().x() - symbol / 2, row.top(), symbol, symbol);
        if (place.left() < free || place.right() > row.right()) continue;
        free = place.right() + symbol / 2;
        symbols.push_back(place);
    }
    const QRectF selected = MarkRect(m_content.selected);
    const bool hasSelected = !selected.isNull() && row.contains(selected.center());
    if (hasSelected)
        PaintBar(painter, m_content.marks[static_cast<size_t>(m_content.selected)], selected);
    for (const QRectF& place : symbols)
        DrawSeverityMark(painter, severity, place, m_colours.ground);
    if (!hasSelected) return;
    painter.setPen(QPen(m_colours.text, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(
        QRectF(selected.left(), row.top(), selected.width(), row.height()).adjusted(-1, 1, 1, -1));
}

std::vector<int> DiagramPlot::MarksAt(const QPointF& point) const
{
    std::vector<int> hit;
    if (point.y() < m_place.marks.top() || point.y() > m_place.marks.bottom()) return hit;
    for (const size_t index : m_diagram.findings) {
        if (index >= m_content.marks.size() || !IsSeen(m_content.marks[index])) continue;
        const QRectF bar = BarOf(m_content.marks[index]);
        if (point.x() >= bar.left() - kHitMargin && point.x() <= bar.right() + kHitMargin)
            hit.push_back(static_cast<int>(index));
    }
    const auto order = [&](int finding) {
        const DiagramMark& mark = m_content.marks[static_cast<size_t>(finding)];
        const bool isInRow = RowOf(mark.severity).contains(point);
        return std::tuple(!isInRow, mark.to - mark.from);
    };
    std::stable_sort(hit.begin(), hit.end(), [&](int a, int b) { return order(a) < order(b); });
    return hit;
}

} // namespace roadcheck
