#include "sheets/Together.h"

#include <algorithm>

#include "model/Lineup.h"

namespace designspec {

namespace {

// A table that several have, or null for those that have it not.
using Tables = std::vector<const TableLayout*>;

CStringArray Captions(const TableLayout& table)
{
    CStringArray captions;
    for (const TableLayout::Line& line : table.lines)
        captions.push_back(line.caption);
    return captions;
}

// Speeds fall; other columns stand as they do.
bool StandsBefore(const Value& a, const Value& b)
{
    return std::holds_alternative<std::int32_t>(a) && std::holds_alternative<std::int32_t>(b) &&
           a > b;
}

TogetherTable Together(const Tables& tables)
{
    Lineup<Value> columns;
    Lineup<CString> captions;
    TogetherTable together;
    for (const TableLayout* table : tables) {
        if (!table) continue;
        together.heading = table->heading;
        together.corner = table->corner;
        columns.Add(table->columns, StandsBefore);
        captions.Add(Captions(*table));
    }
    together.columns = columns.Items();
    for (const CString& caption : captions.Items())
        together.lines.push_back({caption, {}});
    for (std::size_t of = 0; of < tables.size(); ++of) {
        if (!tables[of]) continue;
        const auto columnPlaces = columns.Places(tables[of]->columns);
        const auto linePlaces = captions.Places(Captions(*tables[of]));
        for (std::size_t i = 0; i < linePlaces.size(); ++i) {
            auto& part = together.lines[linePlaces[i]].parts.emplace_back();
            part.of = of;
            part.cells.resize(together.columns.size());
            for (std::size_t at = 0; at < columnPlaces.size(); ++at)
                part.cells[columnPlaces[at]] = tables[of]->lines[i].cells[at];
        }
    }
    return together;
}

} // namespace

bool TogetherTable::Differs(const Line& line, std::size_t column, std::size_t count)
{
    return std::any_of(line.parts.begin(), line.parts.end(), [&](const Part& part) {
        return line.parts.size() != count || part.cells[column] != line.parts[0].cells[column];
    });
}

std::vector<TogetherTable> PutTogether(const std::vector<const PageLayout*>& pages)
{
    Lineup<CString> headings;
    std::vector<CStringArray> own;
    for (const PageLayout* page : pages) {
        auto& mine = own.emplace_back();
        for (const TableLayout& table : page->tables)
            mine.push_back(table.heading);
        headings.Add(mine);
    }
    std::vector<Tables> tables(headings.Items().size(), Tables(pages.size()));
    for (std::size_t of = 0; of < pages.size(); ++of) {
        const auto places = headings.Places(own[of]);
        for (std::size_t i = 0; i < places.size(); ++i)
            tables[places[i]][of] = &pages[of]->tables[i];
    }
    std::vector<TogetherTable> together;
    for (const Tables& one : tables)
        together.push_back(Together(one));
    return together;
}

} // namespace designspec
