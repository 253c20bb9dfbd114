#include "pages/framework/CurvePicture.h"

#include <algorithm>
#include <cmath>

#include "base/AxisTicks.h"
#include "platform/mfc/QtText.h"

namespace designspec {

namespace {

constexpr double kLineWidth = 1.5; // of the lines that letters are made of
constexpr int kShapes = 4;
constexpr double kLeastLines = 6; // of text, in the height of a picture
constexpr double kRoomyLines = 8; // from here on the axis across has a line for its title

// Told apart also by those who see few colours.
constexpr QRgb kColours[] = {0x0072B2, 0xD55E00, 0x009E73, 0xCC79A7,
                             0xE69F00, 0x56B4E9, 0x8A6D3B, 0x6A5ACD};
constexpr QRgb kOdd = 0xE00000;

// At an axis, whose numbers are multiples of a step.
QString NumberText(double value, double step)
{
    return QString::number(value, 'f', DecimalsOf(step));
}

// Of a range that holds something besides its ends.
std::pair<double, double> Widened(double low, double high, double part)
{
    const double room = high > low ? (high - low) * part : std::max(std::abs(high) * 0.1, 1.0);
    return {low - room, high + room};
}

// What a curve has at a place; null when that is nothing. Of several points the last one counts.
const CurvePoint* PointOver(const Curve& curve, double at, bool isSteps)
{
    const CurvePoint* over = nullptr;
    for (const CurvePoint& point : curve.points)
        if (isSteps ? point.at <= at && at < point.end : point.at == at) over = &point;
    return over;
}

double Distance(const QPointF& a, const QPointF& b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

} // namespace

CurvePicture::CurvePicture(const CurveContent& content, const QSizeF& size, const QFont& font,
                           const QPalette& palette)
    : m_content(content), m_size(size), m_font(font), m_metrics(font), m_colours(palette)
{
    std::size_t index = 0;
    for (const CurveChart& chart : content.charts) {
        Place& place = m_places.emplace_back();
        place.chart = &chart;
        for (const CurveChart& one : content.compared)
            if (one.up == chart.up) place.compared = &one;
        for (const Curve& curve : chart.curves) {
            place.legend.push_back({&curve, index++, {}});
            m_isEmpty = m_isEmpty && curve.points.empty();
        }
    }
    if (m_isEmpty) return;
    SpanAcross();
    for (Place& place : m_places)
        SpanUp(place);
    LayOutPlots();
}

QSizeF CurvePicture::LeastSize(const QFontMetricsF& font)
{
    return {font.averageCharWidth() * 20, font.height() * kLeastLines};
}

// Ranges of the axes

std::vector<const Curve*> CurvePicture::CurvesOf(const Place& place)
{
    std::vector<const Curve*> curves;
    for (const CurveChart* const chart : {place.chart, place.compared})
        for (std::size_t i = 0; chart && i < chart->curves.size(); ++i)
            curves.push_back(&chart->curves[i]);
    return curves;
}

void CurvePicture::SpanAcross()
{
    double low = HUGE_VAL, high = -HUGE_VAL;
    for (const Place& place : m_places)
        for (const Curve* const curve : CurvesOf(place))
            for (const CurvePoint& point : curve->points) {
                low = std::min(low, point.at);
                high = std::max(high, point.end);
            }
    std::tie(m_from, m_to) = Widened(low, high, 0.03);
}

// From 0 on where that is not far away.
void CurvePicture::SpanUp(Place& place) const
{
    double low = HUGE_VAL, high = -HUGE_VAL;
    for (const Curve* const curve : CurvesOf(place))
        for (const CurvePoint& point : curve->points) {
            low = std::min(low, point.value);
            high = std::max(high, point.value);
        }
    if (low > high) return; // nothing in it
    if (low > 0 && (low < 0.6 * high || low == high)) low = 0;
    std::tie(place.low, place.high) = Widened(low, high, 0.08);
    if (low == 0) place.low = 0;
}

double CurvePicture::X(double at) const
{
    return m_left + (m_right - m_left) * (at - m_from) / (m_to - m_from);
}

double CurvePicture::At(double x) const
{
    return m_from + (m_to - m_from) * (x - m_left) / (m_right - m_left);
}

// Places

// The title, behind it the legend in as many rows as it takes.
void CurvePicture::LayOutHeaders()
{
    const double row = m_metrics.height() * 1.15;
    const double marker = m_metrics.height();
    QFont bold = m_font;
    bold.setBold(true);
    const QFontMetricsF title(bold);
    for (Place& place : m_places) {
        double x = m_left + title.horizontalAdvance(ToQString(place.chart->up.Title() + L"  "));
        double y = 0;
        const auto put = [&](const CString& name) {
            const double wanted =
                marker + m_metrics.horizontalAdvance(ToQString(name)) + marker / 2;
            if (x + wanted > m_right + marker / 2 && x > m_left) {
                x = m_left;
                y += row;
            }
            const QRectF entry(x, y, std::min(wanted, m_right - x), row);
            x += wanted;
            return entry;
        };
        for (Entry& entry : place.legend)
            entry.place = put(entry.curve->name);
        if (place.compared) place.comparedEntry = put(m_content.comparedName);
        place.header = QRectF(m_left, 0, m_right - m_left, y + row);
    }
}

void CurvePicture::LayOutPlots()
{
    const double line = m_metrics.height();
    const double gap = line * 0.4;
    m_isRoomy = m_size.height() >= kRoomyLines * line;
    const double axis = line * (m_isRoomy ? 2.2 : 1.2);
    m_axis = QRectF(0, m_size.height() - axis, m_size.width(), axis);
    m_right = m_size.width() - 2 * gap;
    double labels = 0; // the width depends on the step, the step hardly on the width
    for (Place& place : m_places) {
        const double height =
            m_axis.top() / static_cast<double>(m_places.size()) - 2 * line; // about
        place.step = StepOf(place.high - place.low, std::max(height / (line * 1.5), 2.0));
        for (const double value : MultiplesOf(place.step, place.low, place.high))
            labels = std::max(labels, m_metrics.horizontalAdvance(NumberText(value, place.step)));
    }
    m_left = labels + 2 * gap;
    m_right = std::max(m_right, m_left + 1);
    LayOutHeaders();
    double headers = 0;
    for (const Place& place : m_places)
        headers += place.header.height() + gap;
    const double height =
        std::max((m_axis.top() - headers) / static_cast<double>(m_places.size()), line);
    double top = 0;
    for (Place& place : m_places) {
        place.header.moveTop(top);
        for (Entry& entry : place.legend)
            entry.place.translate(0, top);
        place.comparedEntry.translate(0, top);
        place.plot = QRectF(m_left, place.header.bottom() + gap / 2, m_right - m_left, height);
        top = place.plot.bottom() + gap / 2;
    }
}

// Painting

QColor CurvePicture::ColourOf(std::size_t index) const
{
    const QColor colour = QColor::fromRgb(kColours[index % std::size(kColours)]);
    return m_colours.ground.lightness() < 128 ? Mixed(colour, Qt::white, 0.7) : colour;
}

void CurvePicture::Paint(QPainter& painter) const
{
    painter.fillRect(QRectF(QPointF(), m_size), m_colours.ground);
    painter.setFont(m_font);
    if (m_isEmpty) {
        painter.setPen(m_colours.hint);
        painter.drawText(QRectF(QPointF(), m_size), Qt::AlignCenter | Qt::TextWordWrap,
                         QStringLiteral("表中还没有值"));
        return;
    }
    for (const Place& place : m_places) {
        PaintHeader(painter, place);
        PaintLines(painter, place);
    }
    PaintAxis(painter);
    for (const Place& place : m_places) {
        if (place.compared) PaintCompared(painter, place);
        for (const Entry& entry : place.legend)
            PaintCurve(painter, place, entry);
        for (const Entry& entry : place.legend)
            PaintMarks(painter, place, entry);
        painter.setPen(m_colours.zero);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(place.plot);
    }
}

void CurvePicture::PaintHeader(QPainter& painter, const Place& place) const
{
    QFont bold = m_font;
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(m_colours.text);
    painter.drawText(
        QRectF(place.header.topLeft(), QSizeF(place.header.width(), m_metrics.height() * 1.15)),
        Qt::AlignLeft | Qt::AlignVCenter, ToQString(place.chart->up.Title()));
    painter.setFont(m_font);
    const double side = m_metrics.height();
    const auto paint = [&](const QRectF& room, const QPen& pen, const CString& name) {
        const QPointF middle(room.left() + side / 2, room.center().y());
        painter.setPen(pen);
        painter.drawLine(middle - QPointF(side * 0.45, 0), middle + QPointF(side * 0.45, 0));
        const QRectF text = room.adjusted(side * 1.1, 0, 0, 0);
        painter.setPen(m_colours.text);
        painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                         m_metrics.elidedText(ToQString(name), Qt::ElideRight, text.width()));
        return middle;
    };
    for (const Entry& entry : place.legend) {
        const QPen pen(ColourOf(entry.index), kLineWidth * m_metrics.lineWidth());
        const QPointF middle = paint(entry.place, pen, entry.curve->name);
        if (!place.chart->isSteps) PaintMarker(painter, middle, entry.index);
    }
    if (place.compared)
        paint(place.comparedEntry, QPen(m_colours.hint, 1, Qt::DashLine), m_content.comparedName);
}

// At round values.
void CurvePicture::PaintLines(QPainter& painter, const Place& place) const
{
    const double gap = m_metrics.height() * 0.4;
    for (const double value : MultiplesOf(place.step, place.low, place.high)) {
        const double y = std::round(place.Y(value));
        painter.setPen(m_colours.grid);
        painter.drawLine(QPointF(m_left, y), QPointF(m_right, y));
        painter.setPen(m_colours.hint);
        painter.drawText(QRectF(0, y - m_metrics.height(), m_left - gap, 2 * m_metrics.height()),
                         Qt::AlignRight | Qt::AlignVCenter, NumberText(value, place.step));
    }
}

// As many as there is room for their numbers.
double CurvePicture::StepAcross() const
{
    const double width = m_right - m_left;
    double step = StepOf(m_to - m_from, width / m_metrics.height());
    for (int i = 0; i < 3; ++i) { // larger steps may have shorter numbers
        double widest = 0;
        for (const double end : {m_from, m_to})
            widest = std::max(widest, m_metrics.horizontalAdvance(NumberText(end, step)));
        step = StepOf(m_to - m_from, width / (widest * 1.6));
    }
    return step;
}

// Lines through all charts, below them the numbers and what they are.
void CurvePicture::PaintAxis(QPainter& painter) const
{
    const double line = m_metrics.height() * 1.1;
    const QString title = ToQString(m_places.front().chart->across.Title());
    QRectF titlePlace(m_left, m_axis.top() + (m_isRoomy ? line - 2 : 0), m_right - m_left, line);
    if (!m_isRoomy) // behind the numbers, the last of which give way
        titlePlace.setLeft(m_right - m_metrics.horizontalAdvance(title) - line / 2);
    const double step = StepAcross();
    for (const double at : MultiplesOf(step, m_from, m_to)) {
        const double x = std::round(X(at));
        painter.setPen(m_colours.grid);
        for (const Place& place : m_places)
            painter.drawLine(QPointF(x, place.plot.top()), QPointF(x, place.plot.bottom()));
        painter.setPen(m_colours.hint);
        const QString text = NumberText(at, step);
        const double width = m_metrics.horizontalAdvance(text) + 2;
        const QRectF place(x - width / 2, m_axis.top(), width, line);
        if (m_isRoomy || place.right() < titlePlace.left())
            painter.drawText(place, Qt::AlignCenter, text);
    }
    painter.setPen(m_colours.text);
    constexpr int kMiddle = Qt::AlignCenter, kEnd = Qt::AlignRight | Qt::AlignVCenter;
    painter.drawText(titlePlace, m_isRoomy ? kMiddle : kEnd, title);
}

void CurvePicture::PaintCurve(QPainter& painter, const Place& place, const Entry& entry) const
{
    painter.setPen(QPen(ColourOf(entry.index), kLineWidth * m_metrics.lineWidth()));
    PaintPath(painter, place, *entry.curve);
    if (place.chart->isSteps) return;
    for (const CurvePoint& point : entry.curve->points)
        PaintMarker(painter, {X(point.at), place.Y(point.value)}, entry.index);
}

// In the colour of the curve of the same name.
void CurvePicture::PaintCompared(QPainter& painter, const Place& place) const
{
    for (const Curve& curve : place.compared->curves) {
        QColor colour = m_colours.hint;
        for (const Entry& entry : place.legend)
            if (entry.curve->name == curve.name) colour = ColourOf(entry.index);
        painter.setPen(QPen(colour, m_metrics.lineWidth(), Qt::DashLine));
        PaintPath(painter, place, curve);
    }
}

void CurvePicture::PaintPath(QPainter& painter, const Place& place, const Curve& curve) const
{
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setRenderHint(QPainter::Antialiasing, !place.chart->isSteps);
    if (place.chart->isSteps) {
        PaintSteps(painter, place, curve);
    } else {
        QPolygonF line;
        for (const CurvePoint& point : curve.points)
            line << QPointF(X(point.at), place.Y(point.value));
        painter.drawPolyline(line);
    }
    painter.restore();
}

// Risers where one step begins at the end of another.
void CurvePicture::PaintSteps(QPainter& painter, const Place& place, const Curve& curve) const
{
    const CurvePoint* before = nullptr;
    for (const CurvePoint& point : curve.points) {
        const QPointF begin(X(point.at), place.Y(point.value));
        painter.drawLine(begin, QPointF(X(point.end), begin.y()));
        if (before && before->end == point.at)
            painter.drawLine(QPointF(begin.x(), place.Y(before->value)), begin);
        before = &point;
    }
}

void CurvePicture::PaintMarker(QPainter& painter, const QPointF& middle, std::size_t index) const
{
    const double r = m_metrics.height() * 0.2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ColourOf(index));
    switch (index % kShapes) {
    case 0:
        painter.drawEllipse(middle, r, r);
        break;
    case 1:
        painter.drawRect(QRectF(middle - QPointF(r, r), middle + QPointF(r, r)));
        break;
    case 2:
        painter.drawPolygon(QPolygonF({middle - QPointF(0, 1.3 * r), middle + QPointF(1.2 * r, r),
                                       middle + QPointF(-1.2 * r, r)}));
        break;
    default:
        painter.drawPolygon(
            QPolygonF({middle - QPointF(0, 1.4 * r), middle + QPointF(1.4 * r, 0),
                       middle + QPointF(0, 1.4 * r), middle - QPointF(1.4 * r, 0)}));
    }
    painter.restore();
}

bool CurvePicture::IsCurrent(const CurvePoint& point) const
{
    return m_content.current == CurveCell{point.line, point.column};
}

// Rings: wide around the current one, in red around what may be a slip.
void CurvePicture::PaintMarks(QPainter& painter, const Place& place, const Entry& entry) const
{
    const double r = m_metrics.height() * 0.42;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (const CurvePoint& point : entry.curve->points) {
        const QPointF left(X(point.at), place.Y(point.value));
        const QPointF right(X(point.end), left.y());
        if (IsCurrent(point)) {
            painter.setPen(QPen(m_colours.highlight, 2));
            painter.drawRoundedRect(QRectF(left, right).adjusted(-r, -r, r, r), r, r);
        }
        if (point.isOdd) {
            painter.setPen(QPen(QColor::fromRgb(kOdd), 2));
            painter.drawEllipse((left + right) / 2, 0.7 * r, 0.7 * r);
        }
    }
    painter.restore();
}

// Reading

std::optional<double> CurvePicture::ShownAt(double x) const
{
    if (m_isEmpty || x < m_left || x > m_right) return {};
    const double at = At(x);
    if (m_places.front().chart->isSteps) return std::round(at);
    std::optional<double> nearest;
    for (const Place& place : m_places)
        for (const Curve* const curve : CurvesOf(place))
            for (const CurvePoint& point : curve->points)
                if (!nearest || std::abs(point.at - at) < std::abs(*nearest - at))
                    nearest = point.at;
    return nearest;
}

std::vector<CurvePicture::Line> CurvePicture::Lines(double at) const
{
    const CurveAxis& across = m_places.front().chart->across;
    std::vector<Line> lines{{ToQString(across.quantity + L" " + across.Text(at)), -1}};
    for (const Place& place : m_places) {
        for (const Entry& entry : place.legend) {
            const CurvePoint* const point = PointOver(*entry.curve, at, place.chart->isSteps);
            const CString other = ComparedValue(place, entry.curve->name, at);
            if (!point && other.empty()) continue;
            CString text = entry.curve->name + L": ";
            text += point ? place.chart->up.Text(point->value) : L"—";
            if (point && point->isOdd) text += L" (可能输错)";
            lines.push_back({ToQString(text + other), static_cast<int>(entry.index)});
        }
        for (std::size_t i = 0; place.compared && i < place.compared->curves.size(); ++i) {
            const CString& name = place.compared->curves[i].name;
            const CString other = ComparedValue(place, name, at);
            const bool isAlone =
                std::none_of(place.legend.begin(), place.legend.end(),
                             [&name](const Entry& entry) { return entry.curve->name == name; });
            if (isAlone && !other.empty()) lines.push_back({ToQString(name + L": —" + other), -1});
        }
    }
    return lines;
}

// Behind the own value; empty when there is none.
CString CurvePicture::ComparedValue(const Place& place, const CString& name, double at) const
{
    if (!place.compared) return {};
    for (const Curve& curve : place.compared->curves) {
        const CurvePoint* const point = PointOver(curve, at, place.chart->isSteps);
        if (curve.name == name && point)
            return L"，" + m_content.comparedName + L": " + place.chart->up.Text(point->value);
    }
    return {};
}

QString CurvePicture::Readout(double x) const
{
    const std::optional<double> at = ShownAt(x);
    if (!at) return {};
    QStringList texts;
    for (const Line& line : Lines(*at))
        texts << line.text;
    return texts.join(u'\n');
}

void CurvePicture::PaintReadout(QPainter& painter, double x) const
{
    const std::optional<double> at = ShownAt(x);
    if (!at) return;
    painter.setFont(m_font);
    const double line = m_metrics.height(), gap = line * 0.4;
    const double through = std::round(X(*at));
    painter.setPen(m_colours.highlight);
    for (const Place& place : m_places)
        painter.drawLine(QPointF(through, place.plot.top()), QPointF(through, place.plot.bottom()));
    const std::vector<Line> lines = Lines(*at);
    double width = 0;
    for (const Line& one : lines)
        width = std::max(width, m_metrics.horizontalAdvance(one.text));
    QRectF frame(through + gap, m_places.front().plot.top() + gap, width + line + 2 * gap,
                 line * static_cast<double>(lines.size()) + gap);
    if (frame.right() > m_size.width()) frame.moveRight(through - gap);
    if (frame.left() < 0) frame.moveLeft(0);
    if (frame.bottom() > m_size.height()) frame.moveBottom(m_size.height() - 1);
    if (frame.top() < 0) frame.moveTop(0);
    painter.setPen(m_colours.zero);
    painter.setBrush(m_colours.ground);
    painter.drawRect(frame);
    QRectF row(frame.left() + gap, frame.top() + gap / 2, frame.width() - 2 * gap, line);
    for (const Line& one : lines) {
        if (one.index >= 0)
            painter.fillRect(
                QRectF(row.left(), row.center().y() - line * 0.15, line * 0.6, line * 0.3),
                ColourOf(static_cast<std::size_t>(one.index)));
        painter.setPen(m_colours.text);
        painter.drawText(row.adjusted(one.index < 0 ? 0 : line, 0, line, 0),
                         Qt::AlignLeft | Qt::AlignVCenter, one.text);
        row.translate(0, line);
    }
}

const CurvePoint* CurvePicture::PointAt(const QPointF& place) const
{
    const CurvePoint* nearest = nullptr;
    double least = m_metrics.height() * 0.7;
    for (const Place& one : m_places)
        for (const Curve& curve : one.chart->curves)
            for (const CurvePoint& point : curve.points) {
                const double x = std::clamp(place.x(), X(point.at), X(point.end));
                const double distance = Distance(place, {x, one.Y(point.value)});
                if (distance >= least) continue;
                least = distance;
                nearest = &point;
            }
    return nearest;
}

QPointF CurvePicture::PlaceOf(const CurveCell& cell) const
{
    for (const Place& place : m_places)
        for (const Curve& curve : place.chart->curves)
            for (const CurvePoint& point : curve.points)
                if (CurveCell{point.line, point.column} == cell)
                    return {(X(point.at) + X(point.end)) / 2, place.Y(point.value)};
    return {};
}

} // namespace designspec
