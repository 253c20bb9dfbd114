#include "roads/ProfileReading.h"

#include <algorithm>
#include <cmath>

#include "base/Format.h"

using namespace designspec;

namespace roadcheck {

namespace {

// A point with the lengths of its curve's halves as the file has them.
struct Draft {
    VerticalPoint point;
    double lengthIn = 0, lengthOut = 0; // m; of an unsymmetrical parabola
    bool isCircle = false;
};

std::wstring NameOf(const VerticalPoint& point)
{
    return Format(L"第 %d 个变坡点", point.index);
}

std::optional<Draft> TakePoint(const ValueRecord& record, const RoadSource& source, int index,
                               double start)
{
    Draft draft;
    draft.point.index = index;
    draft.point.line = record.line;
    if (record.values.size() < 2) {
        source.Error(record.line, NameOf(draft.point) + L"没有桩号和高程");
        return {};
    }
    draft.point.at = record.values[0] * source.Units().length - start;
    draft.point.elevation = record.values[1] * source.Units().length;
    draft.point.length = std::fabs(source.Length(record, "length").value_or(0));
    if (record.name == "UnsymParaCurve") {
        draft.lengthIn = std::fabs(source.Length(record, "lengthIn").value_or(0));
        draft.lengthOut = std::fabs(source.Length(record, "lengthOut").value_or(0));
        draft.point.length = draft.lengthIn + draft.lengthOut;
    }
    if (record.name == "CircCurve") {
        draft.isCircle = true;
        // Programs give sags a negative radius.
        draft.point.radius = std::fabs(source.Length(record, "radius").value_or(0));
    }
    return draft;
}

void Order(std::vector<Draft>& drafts, const ProfileRecord& record, const RoadSource& source)
{
    const auto before = [](const Draft& a, const Draft& b) { return a.point.at < b.point.at; };
    if (!std::is_sorted(drafts.begin(), drafts.end(), before)) {
        source.Note(record.line, L"变坡点不按桩号排列,已按桩号排列");
        std::stable_sort(drafts.begin(), drafts.end(), before);
    }
    const auto doubled = [&](const Draft& a, const Draft& b) {
        if (b.point.at - a.point.at > kNoLength) return false;
        source.Note(b.point.line, NameOf(b.point) + L"与前一变坡点在同一处,不予采用");
        return true;
    };
    drafts.erase(std::unique(drafts.begin(), drafts.end(), doubled), drafts.end());
}

// Points that lie on the straight between their neighbours, to the millimetre: a program has cut a
// grade in two.
void DropPointsOnGrades(std::vector<Draft>& drafts)
{
    std::vector<Draft> kept;
    for (size_t i = 0; i < drafts.size(); ++i) {
        const VerticalPoint& b = drafts[i].point;
        if (i > 0 && i + 1 < drafts.size()) {
            const VerticalPoint &a = kept.back().point, &c = drafts[i + 1].point;
            const double between =
                a.elevation + (c.elevation - a.elevation) * (b.at - a.at) / (c.at - a.at);
            if (std::fabs(b.elevation - between) <= kNoLength) continue;
        }
        kept.push_back(drafts[i]);
    }
    drafts = std::move(kept);
}

// Length and radius, one from the other and the change of gradient. A parabola's radius is its
// length over that change; an unsymmetrical one is two parabolas, of which the sharper counts.
void CompleteCurve(Draft& draft, double before, double after)
{
    VerticalPoint& point = draft.point;
    const double change = std::fabs(after - before); // as a ratio
    if (draft.isCircle) {
        const double turn = std::fabs(std::atan(after) - std::atan(before));
        if (point.radius <= kNoLength && turn > 0) point.radius = point.length / turn;
        if (point.length <= kNoLength) point.length = point.radius * turn;
    } else if (point.length > kNoLength && change > 0) {
        point.radius = point.length / change;
        const double shorter = std::min(draft.lengthIn, draft.lengthOut);
        const double longer = std::max(draft.lengthIn, draft.lengthOut);
        if (shorter > kNoLength) point.radius *= shorter / longer;
    }
    if (point.length <= kNoLength || point.radius <= kNoLength) point.length = point.radius = 0;
}

} // namespace

std::vector<VerticalPoint> ReadProfile(const ProfileRecord& record, const RoadSource& source,
                                       double start)
{
    std::vector<Draft> drafts;
    for (size_t i = 0; i < record.points.size(); ++i)
        if (auto draft = TakePoint(record.points[i], source, static_cast<int>(i) + 1, start))
            drafts.push_back(*draft);
    Order(drafts, record, source);
    DropPointsOnGrades(drafts);
    const auto gradient = [&](size_t i) {
        const VerticalPoint &a = drafts[i - 1].point, &b = drafts[i].point;
        return (b.elevation - a.elevation) / (b.at - a.at);
    };
    std::vector<VerticalPoint> points;
    for (size_t i = 0; i < drafts.size(); ++i) {
        const bool inside = i > 0 && i + 1 < drafts.size();
        if (inside)
            CompleteCurve(drafts[i], gradient(i), gradient(i + 1));
        else
            drafts[i].point.length = drafts[i].point.radius = 0;
        points.push_back(drafts[i].point);
    }
    return points;
}

} // namespace roadcheck
