#include "roads/PlanReading.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"

using namespace designspec;

namespace roadcheck {

namespace {

// An element as far as it is known.
struct Draft {
    PlanElement element;
    std::optional<double> length, radiusStart, radiusEnd; // m
    std::optional<double> station;                        // m, where the file says it begins
    std::optional<PlanPoint> start, end, center;

    bool Is(PlanKind kind) const { return element.kind == kind; }
    void GiveUp(const std::wstring& why)
    {
        element.kind = PlanKind::Other;
        element.turn = Turn::None;
        element.why = why;
    }
};

// Radii that differ by less, in proportion, are one.
bool IsSameRadius(double a, double b)
{
    return a == b || std::fabs(a - b) <= 1e-5 * std::min(a, b);
}

class PlanReader {
public:
    PlanReader(const AlignmentRecord& record, const RoadSource& source, double start)
        : m_record(record), m_source(source), m_start(start)
    {
    }

    std::vector<PlanElement> Read()
    {
        for (const PlanRecord& one : m_record.plan)
            Take(one);
        Order();
        for (size_t i = 0; i < m_drafts.size(); ++i)
            if (m_drafts[i].Is(PlanKind::Spiral)) CompleteSpiral(i);
        Place();
        return std::move(m_elements);
    }

private:
    void Take(const PlanRecord& record);
    void CompleteLine(Draft& draft) const;
    void CompleteArc(Draft& draft, const PlanRecord& record) const;
    void CompleteSpiral(size_t index);
    double RadiusBeside(size_t index, int step) const;
    Turn TurnBeside(size_t index) const;
    void Order();
    void Place();
    void TellGap(const Draft& before, const Draft& draft) const;
    bool TellBend(const Draft& before, const Draft& draft) const;
    void KeepStation(const Draft& draft);
    void Put(Draft& draft, bool mayJoin);

    const AlignmentRecord& m_record;
    const RoadSource& m_source;
    const double m_start;
    std::vector<Draft> m_drafts;
    std::vector<PlanElement> m_elements;
    double m_at = 0; // m along
};

std::wstring NameOf(const PlanElement& element)
{
    return Format(L"第 %d 个平面单元", element.index);
}

void PlanReader::Take(const PlanRecord& record)
{
    Draft draft;
    draft.element.index = static_cast<int>(m_drafts.size()) + 1;
    draft.element.line = record.line;
    draft.length = m_source.Length(record, "length");
    draft.station = m_source.Length(record, "staStart");
    draft.start = m_source.Point(record.start);
    draft.end = m_source.Point(record.end);
    draft.center = m_source.Point(record.center);
    draft.element.turn = m_source.Rotation(record);
    if (record.name == "Line") {
        CompleteLine(draft);
    } else if (record.name == "Curve") {
        CompleteArc(draft, record);
    } else if (record.name == "Spiral") {
        draft.element.kind = PlanKind::Spiral;
        draft.radiusStart = m_source.Radius(record, "radiusStart");
        draft.radiusEnd = m_source.Radius(record, "radiusEnd");
        const std::wstring type = ToWide(record.Text("spiType"));
        if (!type.empty() && !EqualNoCase(type, L"clothoid"))
            draft.GiveUp(Format(L"缓和曲线的线型“%s”不是回旋线", type));
    } else {
        draft.GiveUp(Format(L"不支持 %s", ToWide(record.name)));
    }
    m_drafts.push_back(std::move(draft));
}

void PlanReader::CompleteLine(Draft& draft) const
{
    draft.element.turn = Turn::None;
    if (!draft.length && draft.start && draft.end)
        draft.length = Distance(*draft.start, *draft.end);
}

void PlanReader::CompleteArc(Draft& draft, const PlanRecord& record) const
{
    draft.element.kind = PlanKind::Arc;
    draft.radiusStart = m_source.Radius(record, "radius");
    std::optional<double> angle = m_source.Number(record, "delta");
    if (angle) angle = Degrees(m_source.Units(), std::fabs(*angle)) * std::numbers::pi / 180;
    if (!draft.radiusStart && draft.start && draft.center)
        draft.radiusStart = Distance(*draft.start, *draft.center);
    if (!draft.radiusStart && draft.length && angle && *angle > 0)
        draft.radiusStart = *draft.length / *angle;
    if (!draft.radiusStart) return draft.GiveUp(L"圆曲线没有半径");
    if (*draft.radiusStart == kStraight) { // a straight that is called a curve
        draft.element.kind = PlanKind::Line;
        return CompleteLine(draft);
    }
    const bool points = draft.start && draft.end && draft.center;
    if (draft.element.turn == Turn::None && points) {
        draft.element.turn = TurnOfArc(*draft.start, *draft.center, *draft.end);
        const bool longer = draft.length && *draft.length > std::numbers::pi * *draft.radiusStart;
        if (longer)
            draft.element.turn = draft.element.turn == Turn::Left ? Turn::Right : Turn::Left;
    }
    if (draft.element.turn == Turn::None) return draft.GiveUp(L"圆曲线没有转向");
    if (!draft.length && angle) draft.length = *angle * *draft.radiusStart;
    if (!draft.length && points)
        draft.length = ArcLength(*draft.start, *draft.center, *draft.end, draft.element.turn);
    if (!draft.length && draft.start && draft.end)
        draft.length = ArcLengthOfChord(Distance(*draft.start, *draft.end), *draft.radiusStart);
}

// The radius that the neighbour on that side has where they meet; a straight at the road's ends.
double PlanReader::RadiusBeside(size_t index, int step) const
{
    const size_t beside = index + static_cast<size_t>(step); // wraps below 0
    if (beside >= m_drafts.size()) return kStraight;
    const Draft& other = m_drafts[beside];
    const std::optional<double>& radius =
        other.Is(PlanKind::Spiral) && step < 0 ? other.radiusEnd : other.radiusStart;
    return radius.value_or(kStraight);
}

// The turn of the neighbour that it meets curved.
Turn PlanReader::TurnBeside(size_t index) const
{
    for (const int step : {1, -1}) {
        const size_t beside = index + static_cast<size_t>(step);
        const Draft& draft = m_drafts[index];
        const double radius = *(step > 0 ? draft.radiusEnd : draft.radiusStart);
        if (beside < m_drafts.size() && radius != kStraight &&
            m_drafts[beside].element.turn != Turn::None)
            return m_drafts[beside].element.turn;
    }
    return Turn::None;
}

void PlanReader::CompleteSpiral(size_t index)
{
    Draft& draft = m_drafts[index];
    if (!draft.radiusStart) draft.radiusStart = RadiusBeside(index, -1);
    if (!draft.radiusEnd) draft.radiusEnd = RadiusBeside(index, 1);
    const double start = *draft.radiusStart, end = *draft.radiusEnd;
    if (start == kStraight && end == kStraight) {
        draft.element.kind = PlanKind::Line;
        return CompleteLine(draft);
    }
    if (draft.element.turn == Turn::None) draft.element.turn = TurnBeside(index);
    if (!draft.length && draft.start && draft.end)
        draft.length =
            ClothoidLengthOfChord(Distance(*draft.start, *draft.end), 1 / start, 1 / end);
    if (draft.element.turn == Turn::None) return draft.GiveUp(L"缓和曲线没有转向");
    if (IsSameRadius(start, end)) draft.element.kind = PlanKind::Arc;
}

// Each says where it begins, and not in that order: the stations count.
void PlanReader::Order()
{
    const auto before = [](const Draft& a, const Draft& b) { return *a.station < *b.station; };
    for (const Draft& draft : m_drafts)
        if (!draft.station) return;
    if (std::is_sorted(m_drafts.begin(), m_drafts.end(), before)) return;
    m_source.Note(m_record.line, L"平面单元不按桩号排列,已按桩号排列");
    std::stable_sort(m_drafts.begin(), m_drafts.end(), before);
}

// Whether the second goes on as the first one does: a program has cut one element in two.
bool Joins(const PlanElement& a, const PlanElement& b)
{
    if (a.kind != b.kind || a.turn != b.turn || !IsSameRadius(a.radiusEnd, b.radiusStart))
        return false;
    if (a.kind != PlanKind::Spiral) return a.kind != PlanKind::Other;
    // Both clothoids have one parameter: curvature changes alike along them.
    const double first = (1 / a.radiusEnd - 1 / a.radiusStart) / a.length;
    const double second = (1 / b.radiusEnd - 1 / b.radiusStart) / b.length;
    return std::fabs(first - second) <= 1e-4 * std::fabs(first);
}

void PlanReader::Place()
{
    const Draft* before = nullptr;
    for (Draft& draft : m_drafts) {
        if (before) TellGap(*before, draft);
        const bool bends = before && TellBend(*before, draft);
        KeepStation(draft);
        Put(draft, !bends);
        before = &draft;
    }
}

void PlanReader::TellGap(const Draft& before, const Draft& draft) const
{
    if (!before.end || !draft.start) return;
    const double gap = Distance(*before.end, *draft.start);
    // Files give coordinates to the millimetre at best.
    if (gap > 10 * kNoLength)
        m_source.Note(draft.element.line,
                      Format(L"%s与前一单元不相接,相距 %.3f m", NameOf(draft.element), gap));
}

// Two straights with a bend between them; true when there is one.
bool PlanReader::TellBend(const Draft& before, const Draft& draft) const
{
    if (!before.Is(PlanKind::Line) || !draft.Is(PlanKind::Line)) return false;
    if (!before.start || !before.end || !draft.start || !draft.end) return false;
    const double first = Distance(*before.start, *before.end);
    const double second = Distance(*draft.start, *draft.end);
    if (first <= kNoLength || second <= kNoLength) return false;
    const double east = before.end->east - before.start->east;
    const double north = before.end->north - before.start->north;
    const double cross = east * (draft.end->north - draft.start->north) -
                         north * (draft.end->east - draft.start->east);
    const double bend = std::asin(std::clamp(cross / first / second, -1.0, 1.0));
    // What rounding to millimetres bends short straights by.
    if (std::fabs(bend) <= std::max(1e-3, 2 * kNoLength / std::min(first, second))) return false;
    m_source.Note(draft.element.line, Format(L"%s与前一直线之间有折角 %.3f°", NameOf(draft.element),
                                             std::fabs(bend) * 180 / std::numbers::pi));
    return true;
}

void PlanReader::KeepStation(const Draft& draft)
{
    if (!draft.station) return;
    const PlanElement& element = draft.element;
    const double off = *draft.station - m_start - m_at;
    if (off > kNoLength) {
        m_source.Note(element.line, Format(L"%s前桩号间断 %.3f m", NameOf(element), off));
        PlanElement gap;
        gap.kind = PlanKind::Other;
        gap.from = m_at;
        gap.length = off;
        gap.index = element.index;
        gap.line = element.line;
        gap.why = L"桩号间断";
        m_elements.push_back(gap);
        m_at += off;
    } else if (off < -kNoLength) {
        m_source.Note(element.line,
                      Format(L"%s与前一单元的桩号重叠 %.3f m", NameOf(element), -off));
    }
}

void PlanReader::Put(Draft& draft, bool mayJoin)
{
    PlanElement& element = draft.element;
    if (!draft.length || !(*draft.length >= 0)) {
        m_source.Error(element.line, NameOf(element) + L"没有长度");
        return;
    }
    element.from = m_at;
    element.length = *draft.length;
    element.radiusStart = draft.radiusStart.value_or(kStraight);
    element.radiusEnd =
        element.kind == PlanKind::Arc ? element.radiusStart : draft.radiusEnd.value_or(kStraight);
    if (element.length <= kNoLength) return;
    m_at += element.length;
    if (mayJoin && !m_elements.empty() && Joins(m_elements.back(), element)) {
        m_elements.back().length += element.length;
        m_elements.back().radiusEnd = element.radiusEnd;
    } else {
        m_elements.push_back(element);
    }
}

} // namespace

std::vector<PlanElement> ReadPlan(const AlignmentRecord& record, const RoadSource& source,
                                  double start)
{
    return PlanReader(record, source, start).Read();
}

} // namespace roadcheck
