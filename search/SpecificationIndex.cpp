#include "search/SpecificationIndex.h"

#include <unordered_map>
#include <utility>

namespace designspec {

namespace {

struct Caption {
    explicit Caption(CString text) : shown(std::move(text)), searched(SearchText(shown)) {}

    CString shown;
    std::wstring searched;
};

// Nearly all specifications have the same captions, of which there are some hundred: each is made
// once in the process.
const Caption& Shared(const CString& text)
{
    static std::unordered_map<CString, Caption> captions;
    const auto found = captions.find(text);
    return found != captions.end() ? found->second : captions.try_emplace(text, text).first->second;
}

struct Limit {
    const Field* field;
    const Caption* caption;
    CString value; // empty where it says that there is none
};

struct Row {
    struct Cell {
        std::size_t column;
        Value value;
    };

    const Caption* caption;
    const Field* field;
    std::vector<Cell> cells; // that have a value

    CString TextOf(const Cell& cell) const
    {
        return field ? ReadableText(*field, cell.value, field->unit) : ValueText(cell.value);
    }
};

struct Table {
    const Caption* heading;
    bool bySpeed;
    std::vector<const Caption*> columns;
    std::vector<Row> rows;
};

struct Source {
    const Field* field;
    const Caption* caption;
    Caption text;
};

// Yes or no is what the caption says; a limit that is off has nothing to be found.
CString LimitText(const Field& field, const Value& value)
{
    const CString text = ValueText(value);
    const bool isOff = text.empty() || (field.zeroMeans && text == L"0");
    return field.kind == FieldKind::Bool || isOff ? CString()
                                                  : ReadableText(field, value, field.unit);
}

Row RowOf(const TableLayout::Line& line)
{
    Row row{&Shared(line.caption), line.field, {}};
    row.cells.reserve(line.cells.size());
    for (std::size_t i = 0; i < line.cells.size(); ++i)
        if (line.cells[i]) row.cells.push_back({i, *line.cells[i]});
    return row;
}

Table TableOf(const TableLayout& layout)
{
    Table table{&Shared(layout.heading), layout.corner == kSpeedCorner, {}, {}};
    for (const Value& column : layout.columns)
        table.columns.push_back(&Shared(ValueText(column)));
    for (const TableLayout::Line& line : layout.lines)
        table.rows.push_back(RowOf(line));
    return table;
}

} // namespace

struct SpecificationIndex::Page {
    explicit Page(const PageLayout& layout)
        : criterion(layout.criterion), title(&Shared(layout.criterion->label))
    {
        for (const PageLayout::Limit& one : layout.limits)
            limits.push_back({one.field, &Shared(one.caption), LimitText(*one.field, one.value)});
        for (const TableLayout& table : layout.tables)
            if (!table.IsNone()) tables.push_back(TableOf(table));
        for (const PageLayout::Limit& one : layout.sources)
            sources.push_back({one.field, &Shared(one.caption), Caption(ValueText(one.value))});
    }

    const CriterionInfo* criterion;
    const Caption* title;
    std::vector<Limit> limits;
    std::vector<Table> tables;
    std::vector<Source> sources;
};

// Goes over a page and keeps what is found, at most as many as are wanted.
class SpecificationIndex::Search {
public:
    Search(const SearchWords& words, std::size_t most) : m_words(words), m_most(most) {}

    void Look(const Page& page)
    {
        const Words title = m_words.In(page.title->searched);
        Keep(title, 0, {.kind = Kind::Page, .page = page.criterion});
        for (const Limit& limit : page.limits)
            Keep(m_words.In(limit.caption->searched) | m_words.InValue(limit.value), title,
                 {.kind = Kind::Limit,
                  .page = page.criterion,
                  .field = limit.field,
                  .row = limit.caption->shown,
                  .text = limit.value});
        for (const Table& table : page.tables)
            if (!IsDone()) Look(table, title, {.page = page.criterion});
        for (const Source& source : page.sources)
            Keep(m_words.In(source.text.searched), title | m_words.In(source.caption->searched),
                 {.kind = Kind::Source,
                  .page = page.criterion,
                  .field = source.field,
                  .row = source.caption->shown,
                  .text = source.text.shown});
    }

    bool IsDone() const { return m_found.size() >= m_most; }
    std::vector<SearchHit> Take() { return std::move(m_found); }

private:
    using Words = SearchWords::Set;
    using Kind = SearchHit::Kind;

    void Look(const Table& table, Words above, SearchHit hit)
    {
        hit.heading = table.heading->shown;
        hit.isSpeed = table.bySpeed;
        const Words heading = m_words.In(table.heading->searched);
        hit.kind = Kind::Heading;
        Keep(heading, above, hit);
        std::vector<Words> columns;
        for (const Caption* column : table.columns)
            columns.push_back(m_words.In(column->searched));
        for (const Row& row : table.rows)
            Look(table, row, columns, above | heading, hit);
    }

    void Look(const Table& table, const Row& row, const std::vector<Words>& columns, Words above,
              SearchHit& hit)
    {
        const Words caption = m_words.In(row.caption->searched);
        hit.kind = Kind::Row;
        hit.row = row.caption->shown;
        Keep(caption, above, hit);
        hit.kind = Kind::Cell;
        for (const Row::Cell& cell : row.cells) {
            const Words value = m_words.HasNumber() ? m_words.InValue(row.TextOf(cell)) : 0;
            // One word alone would bring all that stands under a speed.
            const Words own = m_words.Count() > 1 ? value | columns[cell.column] : value;
            if (!IsFound(own, above | caption)) continue;
            hit.column = table.columns[cell.column]->shown;
            hit.text = row.TextOf(cell);
            Keep(own, above | caption, hit);
        }
        hit.column.clear();
        hit.text.clear();
    }

    bool IsFound(Words own, Words above) const
    {
        return own != 0 && (own | above) == m_words.All();
    }

    void Keep(Words own, Words above, const SearchHit& hit)
    {
        if (IsFound(own, above) && !IsDone()) m_found.push_back(hit);
    }

    const SearchWords& m_words;
    std::size_t m_most;
    std::vector<SearchHit> m_found;
};

CString SearchHit::Place() const
{
    CString place;
    for (const CString& part :
         {heading, row, isSpeed && !column.empty() ? column + L" km/h" : column})
        if (!part.empty()) place += (place.empty() ? L"" : L" · ") + part;
    return place;
}

SpecificationIndex::SpecificationIndex(const CDesignSpecification& specification)
    : SpecificationIndex(LayOut(specification))
{
}

SpecificationIndex::SpecificationIndex(const std::vector<PageLayout>& pages)
{
    for (const PageLayout& page : pages)
        m_pages.emplace_back(page);
}

SpecificationIndex::SpecificationIndex(SpecificationIndex&& other) noexcept = default;
SpecificationIndex& SpecificationIndex::operator=(SpecificationIndex&& other) noexcept = default;
SpecificationIndex::~SpecificationIndex() = default;

std::vector<SearchHit> SpecificationIndex::Find(const SearchWords& words, std::size_t most) const
{
    Search search(words, most);
    for (const Page& page : m_pages)
        if (!search.IsDone()) search.Look(page);
    return search.Take();
}

std::optional<SearchHit> SpecificationIndex::First(const SearchWords& words) const
{
    std::vector<SearchHit> found = Find(words, 1);
    if (found.empty()) return std::nullopt;
    return std::move(found.front());
}

} // namespace designspec
