// Findings in the criteria that are single limits and speed tables.
#include <algorithm>

#include "base/Format.h"
#include "model/FindingList.h"
#include "model/Rules.h"

namespace designspec {
namespace {

// One limit of a criterion and what it is called.
struct Limit {
    std::wstring path;
    std::wstring label;
    double value;
};

Limit LimitOf(const wchar_t* criterion, const wchar_t* key, const void* object)
{
    const Field& field = *FindField(FindCriterion(criterion)->fields, key);
    return {CString(criterion) + L"." + key, field.label, field.Of<double>(object)};
}

void FindAbove(const Limit& limit, const std::wstring& other, double otherValue, FindingList& found)
{
    if (limit.value > otherValue)
        found.Note(limit.path, AboveText(limit.label, limit.value, other, otherValue));
}

// The editor shows one decimal and stores what it shows.
void FindInStraight(const Limit& limit, const CString& source, FindingList& found)
{
    if (IsStraightLimit(limit.value)) {
        const double shown = InOneDecimal(limit.value);
        if (!IsStraightLimit(shown)) // nor is an infinite one a number
            found.Error(limit.path, StraightText(limit.label));
        else if (shown != limit.value)
            found.OnlyFromFile(limit.path, StraightText(limit.label));
        return;
    }
    if (limit.value != 0) found.OnlyFromFile(limit.path, StraightText(limit.label));
    if (!source.empty())
        found.Note(limit.path + L"Criterion", limit.label + L"没有限值, 它的数据来源编辑后不保存");
}

void FindInGradient(const Limit& limit, FindingList& found)
{
    FindSteep(limit.path, limit.label, limit.value, found);
    if (!IsGradient(limit.value))
        found.Error(limit.path, GradientText(limit.label));
    else if (InOneDecimal(limit.value) != limit.value)
        found.OnlyFromFile(limit.path, GradientText(limit.label));
}

// The table's value that comes first in that order; null for an empty table.
template <class Table, class Before> const auto* First(const Table& table, Before before)
{
    const auto* const first =
        std::min_element(table.begin(), table.end(), [before](const auto& a, const auto& b) {
            return before(a.value, b.value);
        });
    return first == table.end() ? nullptr : first;
}

// A limit that is switched off is above nothing.
void FindAboveStraight(const Limit& limit, const Limit& other, FindingList& found)
{
    if (IsStraightLimit(other.value)) FindAbove(limit, other.label, other.value, found);
}

} // namespace

void Find(const CDSBeelineLen& criterion, const CDesignSpecification&, FindingList& found)
{
    const Limit longest = LimitOf(L"BeelineLen", L"MaxLen", &criterion);
    const Limit inOneDir = LimitOf(L"BeelineLen", L"MinLenInOneDir", &criterion);
    const Limit reverse = LimitOf(L"BeelineLen", L"MinLenReverseCurve", &criterion);
    FindInStraight(longest, criterion.MaxLenCriterion, found);
    FindInStraight(inOneDir, criterion.MinLenInOneDirCriterion, found);
    FindInStraight(reverse, criterion.MinLenReverseCurveCriterion, found);
    FindAboveStraight(inOneDir, longest, found);
    FindAboveStraight(reverse, longest, found);
    FindAboveStraight(reverse, inOneDir, found);
}

void Find(const CDSCircularCurveRad& criterion, const CDesignSpecification&, FindingList& found)
{
    if (criterion.MaxRad < 0) found.OnlyFromFile(L"CircularCurveRad.MaxRad", kMaxRadText);
    if (!IsRadius(criterion.MaxRad)) return;
    for (const Field& field : CDSCircularCurveRad::Fields()) {
        if (!field.IsTable()) continue;
        for (const auto& [speed, value] : field.Of<SpeedToIntValues>(&criterion))
            if (value > criterion.MaxRad)
                found.Note(At(CString(L"CircularCurveRad.") + field.key, speed),
                           AboveText(Format(L"%s在车速 %d 时", CString(field.label), speed), value,
                                     L"圆曲线最大半径", criterion.MaxRad));
    }
}

void Find(const CTransitionCurveMinLen& criterion, const CDesignSpecification&, FindingList& found)
{
    if (criterion.MinLen.IsEmpty())
        found.Error(L"TransitionCurveMinLen.MinLen", kNoTransitionLenText);
    if (!criterion.NoTCBySuperelevation && criterion.NoTCByMinRad.IsEmpty())
        found.Error(L"TransitionCurveMinLen.NoTCByMinRad", kNoTransitionRadText);
}

void Find(const CDSLonGrad& criterion, const CDesignSpecification&, FindingList& found)
{
    const Limit reduction = LimitOf(L"LonGrad", L"GradeCompensationOnPlateau", &criterion);
    const Limit snow = LimitOf(L"LonGrad", L"MaxGradeOnSnowFrozenRegion", &criterion);
    const Limit least = LimitOf(L"LonGrad", L"MinGrad", &criterion);
    for (const Limit& limit : {reduction, snow, least}) // as the page checks them
        FindInGradient(limit, found);
    if (const auto* most = First(criterion.MaxGradLimitedValues, std::greater()))
        FindAbove(snow, L"各车速最大纵坡限制值中最大的", most->value, found);
    if (const auto* most = First(criterion.MaxGradRecommendedValues, std::less()))
        FindAbove(least, L"各车速最大纵坡推荐值中最小的", most->value, found);
}

void Find(const CDSMaxResultantGrad& criterion, const CDesignSpecification&, FindingList& found)
{
    const Limit snow =
        LimitOf(L"MaxResultantGrad", L"MaxResultantGradOnSnowFrozenRegion", &criterion);
    FindInGradient(snow, found);
    SpeedToDoubleValues all;
    for (const SpeedToDoubleValues& table : criterion.tables)
        for (const auto& entry : table)
            all.Add(entry);
    if (const auto* most = First(all, std::greater()))
        FindAbove(snow, L"各车速最大合成坡度中最大的", most->value, found);
}

} // namespace designspec
