#include "roadcheck/ThinnedLines.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace roadcheck {

namespace {

using Points = std::span<const DiagramPoint>;

// The points within the scale, and where the line comes in and goes out.
struct Visible {
    std::optional<DiagramPoint> in, out;
    Points points;
};

Visible VisibleOf(const std::vector<DiagramPoint>& line, const StationScale& along)
{
    const auto first = std::partition_point(
        line.begin(), line.end(), [&](const DiagramPoint& point) { return point.at < along.from; });
    const auto end = std::partition_point(
        first, line.end(), [&](const DiagramPoint& point) { return point.at <= along.to; });
    Visible visible = {{}, {}, Points(first, end)};
    const bool crosses = first != line.begin() && first != line.end();
    if (crosses && first->at > along.from)
        visible.in = {along.from, Between(*(first - 1), *first, along.from)};
    if (end != line.begin() && end != line.end() && (end - 1)->at < along.to)
        visible.out = {along.to, Between(*(end - 1), *end, along.to)};
    return visible;
}

bool IsLower(const DiagramPoint& a, const DiagramPoint& b)
{
    return a.value < b.value;
}

class Thinner {
public:
    Thinner(const StationScale& along, const ValueScale& up, double columns)
        : m_along(along), m_up(up), m_columnsPerMetre(along.PixelsPerMetre() * columns)
    {
    }

    void Add(const std::vector<DiagramPoint>& line)
    {
        if (line.empty() || line.front().at > m_along.to || line.back().at < m_along.from) return;
        if (ColumnOf(line.front()) == ColumnOf(line.back()) && line.front().at >= m_along.from)
            AddUpright(line);
        else
            AddLong(line);
    }

    std::vector<QPolygonF> Pieces() { return std::move(m_pieces); }

private:
    double ColumnOf(const DiagramPoint& point) const
    {
        return std::floor((point.at - m_along.from) * m_columnsPerMetre);
    }

    QPointF Pixel(const DiagramPoint& point) const
    {
        return {m_along.X(point.at), m_up.Y(point.value)};
    }

    void AddUpright(const std::vector<DiagramPoint>& line)
    {
        const auto [low, high] = std::minmax_element(line.begin(), line.end(), IsLower);
        const double bottom = m_up.Y(low->value), top = m_up.Y(high->value);
        if (ColumnOf(line.front()) == m_uprightColumn) {
            QPolygonF& upright = m_pieces[m_upright];
            upright[0].setY(std::max(upright[0].y(), bottom));
            upright[1].setY(std::min(upright[1].y(), top));
            return;
        }
        m_uprightColumn = ColumnOf(line.front());
        m_upright = m_pieces.size();
        const double x = m_along.X(line.front().at);
        m_pieces.emplace_back() << QPointF(x, bottom) << QPointF(x, top);
    }

    void AddLong(const std::vector<DiagramPoint>& line)
    {
        const Visible visible = VisibleOf(line, m_along);
        m_pieces.emplace_back();
        if (visible.in) AddPoint(*visible.in);
        for (size_t begin = 0; begin < visible.points.size();) {
            const double column = ColumnOf(visible.points[begin]);
            size_t end = begin + 1;
            while (end < visible.points.size() && ColumnOf(visible.points[end]) == column)
                ++end;
            AddColumn(visible.points.subspan(begin, end - begin));
            begin = end;
        }
        if (visible.out) AddPoint(*visible.out);
    }

    void AddColumn(Points column)
    {
        constexpr size_t kEnough = 4;
        if (column.size() <= kEnough) {
            for (const DiagramPoint& point : column)
                AddPoint(point);
            return;
        }
        const auto [low, high] = std::minmax_element(column.begin(), column.end(), IsLower);
        AddPoint(column.front());
        AddPoint(*std::min(low, high));
        AddPoint(*std::max(low, high));
        AddPoint(column.back());
    }

    void AddPoint(const DiagramPoint& point)
    {
        constexpr qsizetype kLongest = 16;
        const QPointF pixel = Pixel(point);
        m_pieces.back() << pixel;
        if (m_pieces.back().size() < kLongest) return;
        m_pieces.emplace_back();
        m_pieces.back() << pixel;
    }

    const StationScale& m_along;
    const ValueScale& m_up;
    const double m_columnsPerMetre;
    std::vector<QPolygonF> m_pieces;
    double m_uprightColumn = -1; // of the upright piece that was made last
    size_t m_upright = 0;
};

} // namespace

std::vector<QPolygonF> ThinnedLines(const std::vector<std::vector<DiagramPoint>>& lines,
                                    const StationScale& along, const ValueScale& up, double columns)
{
    Thinner thinner(along, up, columns);
    for (const auto& line : lines)
        thinner.Add(line);
    return thinner.Pieces();
}

} // namespace roadcheck
