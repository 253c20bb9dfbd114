// Findings in the lengths of grades.
#include <algorithm>
#include <map>

#include "base/Format.h"
#include "model/FindingList.h"
#include "model/Rules.h"

namespace designspec {
namespace {

std::wstring PathOf(const GradientRow& row)
{
    return At(L"LonGradMaxLen.rows", row.Grad);
}

std::wstring LengthsOf(const GradientRow& row)
{
    return PathOf(row) + L".lengths";
}

void FindInRow(const GradientRow& row, FindingList& found)
{
    if (GradientTenths(row.Grad) / 10.0 != row.Grad)
        found.OnlyFromFile(PathOf(row) + L".Grad", kRowGradientText);
    FindSteep(PathOf(row) + L".Grad", L"坡度", row.Grad, found);
    if (row.lengths.IsEmpty()) found.Note(LengthsOf(row), L"没有任何车速的坡长, 不会保存");
    FindInTable(ValuesOf(row.lengths), LengthsOf(row), found);
}

// The lengths of the rows so far, by speed: those of the steepest row that has one.
struct Gentler {
    double gradient;
    int length;
};
using GentlerRows = std::map<int, Gentler>;

// A steeper grade is not longer than a gentler one at the same speed.
void FindLonger(const GradientRow& row, GentlerRows& gentlerRows, FindingList& found)
{
    for (const auto& [speed, length] : row.lengths) {
        const auto [gentler, first] = gentlerRows.try_emplace(speed, Gentler{row.Grad, length});
        if (first) continue;
        const Gentler other = std::exchange(gentler->second, {row.Grad, length});
        if (row.Grad > other.gradient && length > other.length)
            found.Note(
                At(LengthsOf(row), speed),
                AboveText(Format(L"坡度 %s%% 的最大坡长在车速 %d 时", NumberText(row.Grad), speed),
                          length, Format(L"坡度 %s%% 的", NumberText(other.gradient)),
                          other.length));
    }
}

// There must be a length between the two limits.
void FindShorter(const GradientRow& row, const SpeedToIntValues& shortest, FindingList& found)
{
    for (const auto& [speed, length] : row.lengths)
        for (const auto& [otherSpeed, least] : shortest)
            if (speed == otherSpeed && length < least)
                found.Note(At(LengthsOf(row), speed),
                           Format(L"坡度 %s%% 的最大坡长在车速 %d 时为 %d, 小于最小坡长 %d",
                                  NumberText(row.Grad), speed, length, least));
}

} // namespace

void Find(const CDSLonGradMaxLen& criterion, const CDesignSpecification& all, FindingList& found)
{
    GentlerRows gentlerRows;
    const GradientRow* before = nullptr;
    for (const GradientRow& row : criterion.rows) {
        FindInRow(row, found);
        FindLonger(row, gentlerRows, found);
        FindShorter(row, all.LonGradMinLen.MinLens, found);
        if (before && before->Grad == row.Grad)
            found.Note(PathOf(row),
                       Format(L"坡度 %s%% 不止一次, 查询只用第一个", NumberText(row.Grad)));
        else if (before && before->Grad > row.Grad)
            found.Note(PathOf(row), L"坡度没有从小到大排列, 读入时重新排列");
        before = &row;
    }
}

} // namespace designspec
