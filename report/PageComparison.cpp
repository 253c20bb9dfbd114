#include "report/PageComparison.h"

#include <algorithm>
#include <map>

namespace designspec {

namespace {

// What a line or a column is told by: its text, and how many of that text stand before it.
using Place = std::pair<CString, int>;

std::vector<Place> PlacesOf(const CStringArray& texts)
{
    std::map<CString, int> counts;
    std::vector<Place> places;
    for (const CString& text : texts)
        places.emplace_back(text, counts[text]++);
    return places;
}

// The places of one, and before the same follower as there those that only the other has.
std::vector<Place> Union(const std::vector<Place>& one, const std::vector<Place>& other)
{
    std::vector<Place> all = one;
    auto at = all.end();
    for (auto next = other.rbegin(); next != other.rend(); ++next) {
        const auto found = std::find(all.begin(), all.end(), *next);
        at = found != all.end() ? found : all.insert(at, *next);
    }
    return all;
}

CStringArray ColumnTexts(const TableLayout& table)
{
    CStringArray texts;
    for (const Value& column : table.columns)
        texts.push_back(ValueText(column));
    return texts;
}

CStringArray Captions(const TableLayout& table)
{
    CStringArray captions;
    for (const TableLayout::Line& line : table.lines)
        captions.push_back(line.caption);
    return captions;
}

// The texts of a table by their places.
std::map<std::pair<Place, Place>, CString> CellsOf(const TableLayout& table)
{
    const std::vector<Place> lines = PlacesOf(Captions(table));
    const std::vector<Place> columns = PlacesOf(ColumnTexts(table));
    std::map<std::pair<Place, Place>, CString> cells;
    for (std::size_t i = 0; i < lines.size(); ++i)
        for (std::size_t k = 0; k < columns.size(); ++k)
            if (const auto& cell = table.lines[i].cells[k])
                cells[{lines[i], columns[k]}] = ValueText(*cell);
    return cells;
}

template <class Map, class Key> std::optional<CString> TextAt(const Map& texts, const Key& key)
{
    const auto found = texts.find(key);
    return found == texts.end() ? std::nullopt : std::optional(found->second);
}

ComparedTable CompareTables(const TableLayout& one, const TableLayout& other)
{
    ComparedTable compared{one.heading, one.corner.empty() ? other.corner : one.corner, {}, {}};
    const auto columns = Union(PlacesOf(ColumnTexts(one)), PlacesOf(ColumnTexts(other)));
    for (const Place& column : columns)
        compared.columns.push_back(column.first);
    const auto mine = CellsOf(one), theirs = CellsOf(other);
    for (const Place& line : Union(PlacesOf(Captions(one)), PlacesOf(Captions(other)))) {
        ComparedTable::Line& made = compared.lines.emplace_back();
        made.caption = line.first;
        for (const Place& column : columns)
            made.cells.push_back(
                {TextAt(mine, std::pair(line, column)), TextAt(theirs, std::pair(line, column))});
    }
    return compared;
}

std::vector<ComparedTable> CompareAll(const std::vector<TableLayout>& one,
                                      const std::vector<TableLayout>& other)
{
    const auto placesOf = [](const std::vector<TableLayout>& tables) {
        CStringArray headings;
        for (const TableLayout& table : tables)
            headings.push_back(table.heading);
        return PlacesOf(headings);
    };
    const auto mine = placesOf(one), theirs = placesOf(other);
    const auto tableAt = [](const std::vector<TableLayout>& tables,
                            const std::vector<Place>& places, const Place& place) {
        const auto found = std::find(places.begin(), places.end(), place);
        if (found == places.end()) return TableLayout{place.first, {}, {}, {}};
        return tables[static_cast<std::size_t>(found - places.begin())];
    };
    std::vector<ComparedTable> compared;
    for (const Place& place : Union(mine, theirs))
        compared.push_back(CompareTables(tableAt(one, mine, place), tableAt(other, theirs, place)));
    return compared;
}

// Both have the same ones, in the same order.
std::vector<ComparedPage::Limit> CompareLimits(const std::vector<PageLayout::Limit>& one,
                                               const std::vector<PageLayout::Limit>& other)
{
    const auto text = [](const PageLayout::Limit& limit) {
        return ReadableText(*limit.field, limit.value);
    };
    std::vector<ComparedPage::Limit> compared;
    for (std::size_t i = 0; i < one.size(); ++i)
        compared.push_back({one[i].caption, {text(one[i]), text(other[i])}});
    return compared;
}

int CountIn(const std::vector<ComparedPage::Limit>& limits)
{
    return static_cast<int>(std::count_if(limits.begin(), limits.end(),
                                          [](const auto& limit) { return !limit.value.IsSame(); }));
}

} // namespace

int ComparedPage::CountDifferences() const
{
    int count = CountIn(limits) + CountIn(sources);
    for (const ComparedTable& table : tables)
        for (const ComparedTable::Line& line : table.lines)
            for (const ComparedValue& cell : line.cells)
                count += cell.IsSame() ? 0 : 1;
    return count;
}

std::vector<ComparedPage> ComparePages(const CDesignSpecification& one,
                                       const CDesignSpecification* other)
{
    const std::vector<PageLayout> mine = LayOut(one);
    const std::vector<PageLayout> theirs = other ? LayOut(*other) : mine;
    std::vector<ComparedPage> pages;
    for (std::size_t i = 0; i < mine.size(); ++i)
        pages.push_back({mine[i].criterion, CompareLimits(mine[i].limits, theirs[i].limits),
                         CompareAll(mine[i].tables, theirs[i].tables),
                         CompareLimits(mine[i].sources, theirs[i].sources)});
    return pages;
}

} // namespace designspec
