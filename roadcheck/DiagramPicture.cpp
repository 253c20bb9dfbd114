#include "roadcheck/DiagramPicture.h"

#include <algorithm>
#include <cmath>

#include "base/AxisTicks.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace roadcheck {

DiagramPicture::DiagramPicture(const DiagramContent& content, const StationRange& range,
                               const QSizeF& size, const QFont& font, const QPalette& palette)
    : m_content(content), m_size(size), m_font(font), m_colours(palette),
      m_layout(content, size, QFontMetricsF(font)), m_along{range.From(), range.To(),
                                                            m_layout.Left(), m_layout.Right()}
{
    for (size_t i = 0; i < content.diagrams.size(); ++i)
        m_plots.emplace_back(content, content.diagrams[i], m_layout.Places()[i], m_along,
                             m_colours);
}

void DiagramPicture::Paint(QPainter& painter) const
{
    painter.fillRect(QRectF(QPointF(), m_size), m_colours.ground);
    painter.setFont(m_font);
    if (m_content.IsEmpty()) {
        painter.setPen(m_colours.hint);
        painter.drawText(QRectF(QPointF(), m_size), Qt::AlignCenter | Qt::TextWordWrap,
                         QStringLiteral("没有可显示的线形"));
        return;
    }
    PaintAxis(painter);
    for (const DiagramPlot& plot : m_plots)
        plot.Paint(painter);
}

// Lines through all diagrams at round stations, as many as their texts leave room for.
void DiagramPicture::PaintAxis(QPainter& painter) const
{
    const QFontMetricsF font(m_font);
    const QRectF& axis = m_layout.Axis();
    const double widest =
        std::max(font.horizontalAdvance(ToQString(m_content.stations.Text(m_along.from))),
                 font.horizontalAdvance(ToQString(m_content.stations.Text(m_along.to))));
    const double step =
        StepOf(m_along.to - m_along.from, (m_along.right - m_along.left) / (widest * 1.3));
    const int decimals = std::min(DecimalsOf(step), 3);
    double free = 0; // where the next text may stand: an equation brings two together
    for (const double at : m_content.stations.RoundPlaces(m_along.from, m_along.to, step)) {
        const double x = std::round(m_along.X(at));
        painter.setPen(m_colours.grid);
        for (const DiagramPlace& place : m_layout.Places())
            painter.drawLine(QPointF(x, place.plot.top()), QPointF(x, place.plot.bottom()));
        const QString text = ToQString(StationText(m_content.stations.At(at), decimals));
        const double width = font.horizontalAdvance(text);
        const double left = LeftOfText(x, width);
        if (left < free) continue;
        free = left + width + font.averageCharWidth();
        painter.setPen(m_colours.zero);
        painter.drawLine(QPointF(x, axis.top()), QPointF(x, axis.top() + font.height() * 0.25));
        painter.setPen(m_colours.hint);
        painter.drawText(QRectF(left, axis.top() + font.height() * 0.25, width + 1,
                                axis.height() - font.height() * 0.25),
                         Qt::AlignLeft | Qt::AlignVCenter, text);
    }
}

void DiagramPicture::PaintCursor(QPainter& painter, double at) const
{
    painter.setFont(m_font);
    for (const DiagramPlot& plot : m_plots)
        plot.PaintReadout(painter, at);
    const QFontMetricsF font(m_font);
    const double x = std::round(m_along.X(at));
    painter.setPen(m_colours.highlight);
    for (const DiagramPlace& place : m_layout.Places())
        painter.drawLine(QPointF(x, place.plot.top()), QPointF(x, place.marks.bottom()));
    const QString text = ToQString(m_content.stations.Text(at));
    const double width = font.horizontalAdvance(text) + font.averageCharWidth();
    const double left = LeftOfText(x, width);
    const QRectF flag(left, m_layout.Axis().top() + font.height() * 0.25, width,
                      m_layout.Axis().height() - font.height() * 0.35);
    painter.fillRect(flag, m_colours.highlight);
    painter.setPen(m_colours.highlightedText);
    painter.drawText(flag, Qt::AlignCenter, text);
}

// As near to the middle below the place as the edges leave it.
double DiagramPicture::LeftOfText(double x, double width) const
{
    constexpr double kEdge = 3;
    return std::clamp(x - width / 2, kEdge, std::max(m_size.width() - width - kEdge, kEdge));
}

QRectF DiagramPicture::MarkRect(int finding) const
{
    for (const DiagramPlot& plot : m_plots)
        if (const QRectF mark = plot.MarkRect(finding); !mark.isNull()) return mark;
    return {};
}

std::vector<int> DiagramPicture::MarksAt(const QPointF& point) const
{
    for (const DiagramPlot& plot : m_plots)
        if (std::vector<int> hit = plot.MarksAt(point); !hit.empty()) return hit;
    return {};
}

QString DiagramPicture::Readout(double at) const
{
    QStringList lines = {ToQString(m_content.stations.Text(at))};
    for (const DiagramPlot& plot : m_plots)
        lines << plot.Readout(at);
    return lines.join(QLatin1Char('\n'));
}

} // namespace roadcheck
