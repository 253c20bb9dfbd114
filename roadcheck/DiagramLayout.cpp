#include "roadcheck/DiagramLayout.h"

#include <algorithm>

#include "base/AxisTicks.h"
#include "platform/mfc/QtText.h"
#include "roads/Checking.h"

using namespace designspec;

namespace roadcheck {

namespace {

constexpr int kSeverities = 3;
constexpr int kLeastLines = 4; // of text, in the height of a curve

double MarkHeightOf(const QFontMetricsF& font)
{
    return font.height() * 0.6;
}

double TitleHeightOf(const QFontMetricsF& font)
{
    return font.height() * 1.4;
}

// What stands above and below the curve of a diagram, and between it and the next.
double FurnitureOf(const QFontMetricsF& font)
{
    return TitleHeightOf(font) + kSeverities * MarkHeightOf(font) + font.height() * 0.3;
}

double AxisHeightOf(const QFontMetricsF& font)
{
    return font.height() * 1.9;
}

} // namespace

QString ValueText(double value)
{
    return ToQString(NumberText(value));
}

DiagramLayout::DiagramLayout(const DiagramContent& content, const QSizeF& size,
                             const QFontMetricsF& font)
    : m_markHeight(MarkHeightOf(font))
{
    const double gap = font.height() * 0.4;
    const double axis = AxisHeightOf(font);
    const auto count = static_cast<double>(std::max<size_t>(content.diagrams.size(), 1));
    const double each = (size.height() - axis) / count;
    const double height = std::max(each - FurnitureOf(font), font.height());

    double labels = 0; // width of the widest value
    std::vector<double> steps;
    for (const ShownDiagram& one : content.diagrams) {
        const double room = std::max(height / (font.height() * 1.6), 2.0);
        const double step = StepOf(one.span.high - one.span.low, room);
        steps.push_back(step);
        for (const double value : MultiplesOf(step, one.span.low, one.span.high))
            labels = std::max(labels, font.horizontalAdvance(ValueText(value)));
    }
    m_left = labels + 2 * gap;
    m_right = std::max(size.width() - 2 * gap, m_left + 1);
    double top = 0;
    for (const double step : steps) {
        DiagramPlace& place = m_places.emplace_back();
        place.step = step;
        place.title = QRectF(m_left, top, m_right - m_left, TitleHeightOf(font));
        place.plot = QRectF(m_left, place.title.bottom(), m_right - m_left, height);
        place.marks =
            QRectF(m_left, place.plot.bottom(), m_right - m_left, kSeverities * m_markHeight);
        top += each;
    }
    m_axis = QRectF(0, size.height() - axis, size.width(), axis);
}

QSizeF DiagramLayout::LeastSize(size_t diagrams, const QFontMetricsF& font)
{
    const auto count = static_cast<double>(std::max<size_t>(diagrams, 1));
    const double each = FurnitureOf(font) + kLeastLines * font.height();
    return {font.averageCharWidth() * 40, count * each + AxisHeightOf(font)};
}

} // namespace roadcheck
