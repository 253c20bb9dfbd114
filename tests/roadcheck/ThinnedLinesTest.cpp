#include "roadcheck/ThinnedLines.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace roadcheck {

namespace {

const ValueScale kUp = {{-10, 10}, 0, 200};

// Points a metre apart that jump up and down, and one that stands out.
std::vector<DiagramPoint> LongLine(int points)
{
    std::vector<DiagramPoint> line;
    for (int i = 0; i < points; ++i)
        line.push_back({static_cast<double>(i), i % 2 ? 1.0 : -1.0});
    line[static_cast<size_t>(points) / 2 + 205].value = 9; // in the middle of a column of 400
    return line;
}

// One line's pieces, one behind the other.
QPolygonF Thinned(const std::vector<DiagramPoint>& line, const StationScale& along,
                  double columns = 1)
{
    QPolygonF all;
    for (const QPolygonF& piece : ThinnedLines({line}, along, kUp, columns)) {
        if (all.isEmpty()) {
            all = piece;
            continue;
        }
        EXPECT_EQ(piece.front(), all.back());
        all += piece.sliced(1);
    }
    return all;
}

} // namespace

TEST(ThinnedLines, HasAFewPointsForEachColumn)
{
    const StationScale along = {0, 200000, 0, 500};
    const QPolygonF thinned = Thinned(LongLine(200000), along);
    EXPECT_LE(thinned.size(), 4 * 501);
    EXPECT_GE(thinned.size(), 2 * 500);
    EXPECT_LE(Thinned(LongLine(200000), along, 2).size(), 4 * 1001);
    EXPECT_GE(Thinned(LongLine(200000), along, 2).size(), thinned.size());
}

TEST(ThinnedLines, KeepsWhatStandsOut)
{
    const QPolygonF thinned = Thinned(LongLine(200000), {0, 200000, 0, 500});
    const auto highest =
        std::min_element(thinned.begin(), thinned.end(),
                         [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); });
    EXPECT_NEAR(highest->x(), 250, 1);
    EXPECT_DOUBLE_EQ(highest->y(), kUp.Y(9));
    EXPECT_TRUE(std::is_sorted(thinned.begin(), thinned.end(),
                               [](const QPointF& a, const QPointF& b) { return a.x() < b.x(); }));
}

TEST(ThinnedLines, IsCutOffWhereItLeavesTheView)
{
    const std::vector<DiagramPoint> line = {{0, 0}, {100, 10}, {100, 5}, {200, 5}};
    const QPolygonF middle = Thinned(line, {50, 150, 0, 100});
    EXPECT_EQ(middle, QPolygonF({{0, kUp.Y(5)}, {50, kUp.Y(10)}, {50, kUp.Y(5)}, {100, kUp.Y(5)}}));
    const QPolygonF between = Thinned(line, {20, 40, 0, 100});
    EXPECT_EQ(between, QPolygonF({{0, kUp.Y(2)}, {100, kUp.Y(4)}}));
    EXPECT_EQ(Thinned(line, {0, 200, 0, 100}).size(), 4);
}

TEST(ThinnedLines, IsEmptyBesideTheView)
{
    const std::vector<DiagramPoint> line = {{100, 0}, {200, 1}};
    EXPECT_TRUE(Thinned(line, {0, 50, 0, 100}).isEmpty());
    EXPECT_TRUE(Thinned(line, {250, 300, 0, 100}).isEmpty());
}

TEST(ThinnedLines, LinesWithinAColumnBecomeOne)
{
    const StationScale along = {0, 1000, 0, 10};
    std::vector<std::vector<DiagramPoint>> lines;
    for (int i = 0; i < 100; ++i)
        lines.push_back({{i * 10.0, 2}, {i * 10.0 + 3, i == 50 ? 7.0 : 4.0}, {i * 10.0 + 6, 1}});
    const std::vector<QPolygonF> pieces = ThinnedLines(lines, along, kUp, 1);
    ASSERT_EQ(pieces.size(), 10U);
    EXPECT_EQ(pieces[3], QPolygonF({{3, kUp.Y(1)}, {3, kUp.Y(4)}}));
    EXPECT_EQ(pieces[5], QPolygonF({{5, kUp.Y(1)}, {5, kUp.Y(7)}}));
}

} // namespace roadcheck
