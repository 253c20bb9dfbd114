#include "model/PageLayout.h"

#include "base/Format.h"
#include "model/Arrangement.h"
#include "model/Lineup.h"

namespace designspec {

namespace {

template <class T> std::vector<Value> ValuesOf(const std::vector<T>& items)
{
    return {items.begin(), items.end()};
}

// The cells of a line that has values in those places.
TableLayout::Line LineOf(CString caption, std::size_t columns,
                         const std::vector<std::size_t>& places, const std::vector<Value>& values)
{
    TableLayout::Line line{std::move(caption), {}};
    line.cells.resize(columns);
    for (std::size_t i = 0; i < places.size(); ++i)
        line.cells[places[i]] = values[i];
    return line;
}

// Lines of values by design speed under the speeds that any of them has.
class SpeedLines {
public:
    void Add(CString caption, const Field& table, const void* object)
    {
        Entries entries{std::move(caption), {}, {}, &table};
        const auto fields = table.RowFields(); // speed and value
        for (std::int32_t i = 0; i < table.RowCount(object); ++i) {
            const void* row = table.Row(object, i);
            entries.speeds.push_back(std::get<std::int32_t>(GetValue(fields[0], row)));
            entries.values.push_back(GetValue(fields[1], row));
        }
        m_speeds.Add(entries.speeds, std::greater<>());
        m_lines.push_back(std::move(entries));
    }

    TableLayout Table() const
    {
        TableLayout table{{}, kSpeedCorner, ValuesOf(m_speeds.Items()), {}};
        for (const Entries& line : m_lines) {
            table.lines.push_back(LineOf(line.caption, table.columns.size(),
                                         m_speeds.Places(line.speeds), line.values));
            table.lines.back().field = line.field;
        }
        return table;
    }

private:
    struct Entries {
        CString caption;
        std::vector<std::int32_t> speeds;
        std::vector<Value> values;
        const Field* field;
    };
    Lineup<std::int32_t> m_speeds;
    std::vector<Entries> m_lines;
};

const Field& FieldIn(const Field& rows, const wchar_t* key)
{
    return *FindField(rows.RowFields(), key);
}

std::vector<TableLayout> LayOutTables(const CriterionInfo& criterion, const void* object)
{
    SpeedLines lines;
    bool any = false;
    for (const Field& field : criterion.fields) {
        if (!field.IsTable() || (field.isUsed && !field.isUsed(object))) continue;
        lines.Add(PageCaption(field), field, object);
        any = true;
    }
    if (!any) return {};
    return {lines.Table()};
}

// A line for each gradient.
std::vector<TableLayout> LayOutGradeLengths(const Field& rows, const void* object)
{
    const Field& gradient = FieldIn(rows, L"Grad");
    SpeedLines lines;
    for (std::int32_t i = 0; i < rows.RowCount(object); ++i) {
        const void* row = rows.Row(object, i);
        lines.Add(InForm(gradient, ValueText(gradient, row)), FieldIn(rows, L"lengths"), row);
    }
    return {lines.Table()};
}

// A line for each superelevation, a column for each speed, ranges of radii in the cells.
TableLayout LayOutSuperElevations(const Field& definitions, const SuperElevDefinition& definition)
{
    const Field& maximum = FieldIn(definitions, L"maxSuperElev");
    const Field& superElev =
        FieldIn(FieldIn(FieldIn(definitions, L"rows"), L"ranges"), L"superElev");
    TableLayout table{InForm(maximum, ValueText(maximum, &definition)), kSpeedCorner, {}, {}};
    Lineup<std::int32_t> lines;
    std::vector<std::vector<std::int32_t>> columns;
    for (const SuperElevSpeedRow& row : definition.rows) {
        table.columns.emplace_back(row.speed);
        auto& column = columns.emplace_back();
        for (const SuperElevRange& range : row.ranges)
            column.push_back(range.superElev);
        lines.Add(column, std::greater<>());
    }
    for (const std::int32_t one : lines.Items())
        table.lines.push_back(
            LineOf(InForm(superElev, std::to_wstring(one)), columns.size(), {}, {}));
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto& ranges = definition.rows[static_cast<std::int32_t>(i)].ranges;
        const std::vector<std::size_t> places = lines.Places(columns[i]);
        for (std::size_t at = 0; at < places.size(); ++at) {
            const SuperElevRange& range = ranges[static_cast<std::int32_t>(at)];
            table.lines[places[at]].cells[i] = Format(L"%d~%d", range.minRadius, range.maxRadius);
        }
    }
    return table;
}

std::vector<TableLayout> LayOutSuperElevations(const Field& field,
                                               const CDSSuperElevation& criterion)
{
    std::vector<TableLayout> tables;
    for (const SuperElevDefinition& definition : criterion.definitions)
        tables.push_back(LayOutSuperElevations(field, definition));
    if (tables.empty()) tables.push_back({kNoSuperElevTables, {}, {}, {}});
    return tables;
}

// A line for each category of vehicles, a column for each range of radii.
std::vector<TableLayout> LayOutWidenings(const Field& ranges, const CDSCurveWidening& criterion)
{
    const Field& cells = FieldIn(ranges, L"widenings");
    const Field& category = FieldIn(cells, L"carType");
    TableLayout table{{}, kWideningCorner, {}, {}};
    Lineup<CString> lines;
    std::vector<CStringArray> columns;
    for (const WideningRange& range : criterion.ranges) {
        table.columns.emplace_back(ranges.rowText(&criterion, &range));
        auto& column = columns.emplace_back();
        for (const Widening& one : range.widenings)
            column.push_back(one.carType);
        lines.Add(column);
    }
    for (const CString& one : lines.Items()) {
        table.lines.push_back(LineOf(InForm(category, one), columns.size(), {}, {}));
        table.lines.back().field = &FieldIn(cells, L"widening");
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto& widenings = criterion.ranges[static_cast<std::int32_t>(i)].widenings;
        const std::vector<std::size_t> places = lines.Places(columns[i]);
        for (std::size_t at = 0; at < places.size(); ++at)
            table.lines[places[at]].cells[i] = widenings[static_cast<std::int32_t>(at)].widening;
    }
    return {table};
}

std::vector<TableLayout> LayOutRows(const CriterionInfo& criterion, const Field& field,
                                    CDesignSpecification& specification)
{
    void* const object = criterion.get(specification);
    if (object == &specification.SuperElevation)
        return LayOutSuperElevations(field, specification.SuperElevation);
    if (object == &specification.CurveWidening)
        return LayOutWidenings(field, specification.CurveWidening);
    return LayOutGradeLengths(field, object);
}

// What stands before and behind the key in a form.
std::pair<CString, CString> PartsOf(const Field& field)
{
    const CString whole = InForm(field, L"\n");
    const std::size_t key = whole.find(L'\n');
    return {whole.substr(0, key), whole.substr(key + 1)};
}

PageLayout LayOutPage(const CriterionInfo& criterion, CDesignSpecification& specification)
{
    const void* object = criterion.get(specification);
    PageLayout page{&criterion, {}, LayOutTables(criterion, object), {}};
    for (const Field& field : criterion.fields) {
        if (field.kind == FieldKind::Rows)
            page.tables = LayOutRows(criterion, field, specification);
        else if (!field.HasRows())
            (field.kind == FieldKind::Text ? page.sources : page.limits)
                .push_back({&field, PageCaption(field), GetValue(field, object)});
    }
    return page;
}

} // namespace

std::vector<PageLayout> LayOut(const CDesignSpecification& specification)
{
    CDesignSpecification arranged = specification;
    Arrange(arranged);
    std::vector<PageLayout> pages;
    for (const CriterionInfo& criterion : Criteria())
        pages.push_back(LayOutPage(criterion, arranged));
    return pages;
}

PageLayout LayOut(const CriterionInfo& criterion, const CDesignSpecification& specification)
{
    CDesignSpecification arranged = specification;
    Arrange(arranged);
    return LayOutPage(criterion, arranged);
}

CString PageCaption(const Field& field)
{
    CString caption = field.label;
    if (*field.unit) caption.append(L"(").append(field.unit).append(L")");
    return caption;
}

CString InForm(const Field& field, const CString& text)
{
    return field.form ? Format(field.form, text) : text;
}

std::optional<CString> OutOfForm(const Field& field, const CString& caption)
{
    const auto [before, behind] = PartsOf(field);
    if (caption.size() < before.size() + behind.size() || !caption.starts_with(before) ||
        !caption.ends_with(behind))
        return std::nullopt;
    return caption.substr(before.size(), caption.size() - before.size() - behind.size());
}

} // namespace designspec
