// Findings in the maximum superelevations and the tables that they need.
#include <algorithm>
#include <map>
#include <set>

#include "base/Format.h"
#include "model/FindingList.h"
#include "model/Rules.h"

namespace designspec {
namespace {

// Maximum superelevations

void FindInRunoff(const SpeedTable& table, FindingList& found)
{
    for (const auto& [speed, n] : table.values)
        if (!IsRunoff(static_cast<int>(n)))
            found.OnlyFromFile(At(table.path, speed), Format(L"超高渐变率必须在 1/%d~1/%d 之间",
                                                             kLeastRunoff, kMostRunoff));
}

void FindAtSpeed(int speed, const SpeedTable& table, FindingList& found)
{
    if (!table.values.contains(speed))
        found.Error(At(table.path, speed), NoValueAtSpeedText(speed, table.label));
}

void FindInSnow(int snow, const SpeedTable& maxima, FindingList& found)
{
    constexpr wchar_t kPath[] = L"MaxSuperElev.MaxSuperElevOnSFR";
    if (snow < 0) found.OnlyFromFile(kPath, kSnowSuperElevText);
    const auto most =
        std::max_element(maxima.values.begin(), maxima.values.end(),
                         [](const auto& a, const auto& b) { return a.second < b.second; });
    if (most != maxima.values.end() && snow > most->second)
        found.Note(kPath, AboveText(L"积雪冰冻地区最大超高", snow, L"各车速最大超高中最大的",
                                    most->second));
}

// Superelevation tables

using Rows = GrowArray<SuperElevSpeedRow>;

std::wstring PathOf(const SuperElevDefinition& definition)
{
    return At(L"SuperElevation.definitions", definition.maxSuperElev);
}

// The table of that maximum, of two the first one; null when there is none.
const SuperElevDefinition* DefinitionOf(const CDSSuperElevation& criterion, int maximum)
{
    const auto* const found =
        std::find_if(criterion.definitions.begin(), criterion.definitions.end(),
                     [maximum](const auto& one) { return one.maxSuperElev == maximum; });
    return found == criterion.definitions.end() ? nullptr : found;
}

// The rows as the grid of the editor gives them back: one for each speed and superelevation, both
// from the highest down. Of two ranges in one cell the last one is there.
Rows AsInGrid(const Rows& rows)
{
    std::map<int, std::map<int, SuperElevRange, std::greater<>>, std::greater<>> cells;
    for (const SuperElevSpeedRow& row : rows)
        for (const SuperElevRange& range : row.ranges)
            cells[row.speed][range.superElev] = range;
    Rows shown;
    for (const auto& [speed, ranges] : cells) {
        auto& row = shown.Add({speed, {}});
        for (const auto& [superElev, range] : ranges)
            row.ranges.Add(range);
    }
    return shown;
}

void FindGaps(const std::wstring& path, int maximum, const Rows& rows, FindingList& found)
{
    for (const SuperElevSpeedRow& row : rows)
        for (std::int32_t i = 0; i + 1 < row.ranges.count; ++i) {
            const SuperElevRange& range = row.ranges[i];
            const SuperElevRange& next = row.ranges[i + 1];
            if (range.maxRadius != next.minRadius)
                found.Error(At(At(path + L".rows", row.speed) + L".ranges", range.minRadius,
                               range.maxRadius),
                            SuperElevGapText(maximum, row.speed, range.superElev, next.superElev));
        }
}

// The editor opens with the highest table in its grid and takes the others as they stand.
void FindErrors(const CDSSuperElevation& criterion, const std::vector<int>& maxima,
                FindingList& found)
{
    int highest = 0;
    for (const SuperElevDefinition& definition : criterion.definitions)
        highest = std::max(highest, definition.maxSuperElev);
    for (const int maximum : maxima) {
        Rows rows;
        if (const SuperElevDefinition* const definition = DefinitionOf(criterion, maximum))
            rows = maximum == highest ? AsInGrid(definition->rows) : definition->rows;
        const std::wstring path = At(L"SuperElevation.definitions", maximum);
        if (rows.IsEmpty()) found.Error(path, NoSuperElevTableText(maximum));
        FindGaps(path, maximum, rows, found);
    }
}

void FindInRange(const std::wstring& path, const SuperElevRange& range, int maximum,
                 FindingList& found)
{
    if (!IsRadius(range.minRadius) || !IsRadius(range.maxRadius))
        found.OnlyFromFile(path, kRadiusText);
    if (range.minRadius >= range.maxRadius)
        found.Note(path, L"最小半径不小于最大半径, 没有半径在这个范围内");
    if (range.superElev < kLowestSuperElev || range.superElev > maximum)
        found.OnlyFromFile(
            path + L".superElev",
            Format(L"超高 %d%% 不在 %d%%~%d%% 之间", range.superElev, kLowestSuperElev, maximum));
}

void FindInRow(const std::wstring& path, const SuperElevSpeedRow& row, int maximum,
               FindingList& found)
{
    if (!IsSpeed(row.speed)) found.OnlyFromFile(path, SpeedText());
    if (row.ranges.IsEmpty()) found.Note(path, L"没有半径范围");
    for (std::int32_t i = 0; i < row.ranges.count; ++i) {
        const SuperElevRange& range = row.ranges[i];
        const std::wstring rangePath = At(path + L".ranges", range.minRadius, range.maxRadius);
        FindInRange(rangePath, range, maximum, found);
        if (i > 0 && range.superElev >= row.ranges[i - 1].superElev)
            found.Note(rangePath, L"超高没有从大到小排列, 或不止一次");
    }
}

void FindInDefinition(const SuperElevDefinition& definition, FindingList& found)
{
    std::set<int> speeds;
    int before = 0;
    for (const SuperElevSpeedRow& row : definition.rows) {
        const std::wstring path = At(PathOf(definition) + L".rows", row.speed);
        FindInRow(path, row, definition.maxSuperElev, found);
        if (!speeds.insert(row.speed).second)
            found.Note(path, Format(L"车速 %d 不止一次, 查询只用其中一个", row.speed));
        else if (speeds.size() > 1 && row.speed > before)
            found.Note(path, L"车速没有从高到低排列, 查询会用错行");
        before = row.speed;
    }
}

// Each speed of a maximum has a row in its table.
void FindRowsMissing(const CDSSuperElevation& criterion, const CDSMaxSuperElevation& maxima,
                     FindingList& found)
{
    const SpeedTable inUse = TableOf(*FindCriterion(L"MaxSuperElev"), L"MaxSuperElev", &maxima);
    for (const auto& [speed, maximum] : inUse.values) {
        const SuperElevDefinition* const definition =
            DefinitionOf(criterion, static_cast<int>(maximum));
        if (definition && !definition->rows.IsEmpty() &&
            std::none_of(definition->rows.begin(), definition->rows.end(),
                         [speed = speed](const auto& row) { return row.speed == speed; }))
            found.Note(
                At(PathOf(*definition) + L".rows", speed),
                Format(L"最大超高 %d%% 的超高表没有车速 %d", definition->maxSuperElev, speed));
    }
}

// What of the tables themselves 确定 would leave out or bring into another order.
void FindUnused(const CDSSuperElevation& criterion, const std::vector<int>& maxima,
                FindingList& found)
{
    std::vector<int> kept;
    for (const SuperElevDefinition& definition : criterion.definitions) {
        const int maximum = definition.maxSuperElev;
        if (std::find(kept.begin(), kept.end(), maximum) != kept.end())
            found.Note(PathOf(definition),
                       Format(L"最大超高 %d%% 的超高表不止一个, 只用第一个", maximum));
        else if (std::find(maxima.begin(), maxima.end(), maximum) == maxima.end())
            found.Note(PathOf(definition),
                       Format(L"最大超高 %d%% 没有使用, 它的超高表编辑后不保存", maximum));
        else
            kept.push_back(maximum);
    }
    size_t place = 0;
    for (const int maximum : maxima)
        if (std::find(kept.begin(), kept.end(), maximum) != kept.end() &&
            kept[place++] != maximum) {
            found.Note(L"SuperElevation.definitions",
                       L"超高表没有按使用的先后排列, 编辑后重新排列");
            return;
        }
}

} // namespace

void Find(const CDSMaxSuperElevation& criterion, const CDesignSpecification&, FindingList& found)
{
    const CriterionInfo& info = *FindCriterion(L"MaxSuperElev");
    const SpeedTable ratio1 = TableOf(info, L"GradualChangeRatio1", &criterion);
    const SpeedTable ratio2 = TableOf(info, L"GradualChangeRatio2", &criterion);
    const SpeedTable maxima = TableOf(info, L"MaxSuperElev", &criterion);
    std::set<int, std::greater<>> speeds;
    for (const SpeedTable* table : {&ratio1, &ratio2, &maxima})
        for (const auto& [speed, value] : table->values)
            speeds.insert(speed);
    for (const int speed : speeds) { // in the order of the page
        for (const SpeedTable* table : {&ratio1, &ratio2, &maxima})
            FindAtSpeed(speed, *table, found);
        const auto maximum = maxima.values.find(speed);
        if (maximum != maxima.values.end() && !IsMaxSuperElev(static_cast<int>(maximum->second)))
            found.Error(At(maxima.path, speed), MaxSuperElevText(speed, maxima.label));
    }
    FindInRunoff(ratio1, found);
    FindInRunoff(ratio2, found);
    FindInSnow(criterion.MaxSuperElevOnSFR, maxima, found);
}

void Find(const CDSSuperElevation& criterion, const CDesignSpecification& all, FindingList& found)
{
    const std::vector<int> maxima = MaximaInUse(all.MaxSuperElev);
    FindErrors(criterion, maxima, found);
    for (const SuperElevDefinition& definition : criterion.definitions)
        FindInDefinition(definition, found);
    FindRowsMissing(criterion, all.MaxSuperElev, found);
    FindUnused(criterion, maxima, found);
}

} // namespace designspec
