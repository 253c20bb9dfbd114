#include <algorithm>
#include <functional>
#include <map>
#include <set>

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Number.h"
#include "base/Text.h"
#include "cli/JsonText.h"
#include "cli/TextTable.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

using Descending = std::greater<>;

CString DecimalText(double value)
{
    return ToWide(DoubleToText(value));
}

CString CellText(std::int32_t value)
{
    return std::to_wstring(value);
}

CString CellText(double value)
{
    return DecimalText(value);
}

CString WithUnit(const Field& field)
{
    return *field.unit ? Format(L"%s(%s)", CString(field.label), CString(field.unit))
                       : CString(field.label);
}

CString ScalarText(const Field& field, const void* criterion)
{
    switch (field.kind) {
    case FieldKind::Int:
        return CellText(field.Of<std::int32_t>(criterion));
    case FieldKind::Double:
        return DecimalText(field.Of<double>(criterion));
    case FieldKind::Bool:
        return field.Of<BOOL>(criterion) ? L"是" : L"否";
    default: {
        const CString& text = field.Of<CString>(criterion);
        return text.empty() ? L"(未填)" : text;
    }
    }
}

CString MeaningText(const Field& field, const void* criterion)
{
    const CString text = ScalarText(field, criterion);
    return text == L"0" && field.zeroMeans ? Format(L"0 (%s)", CString(field.zeroMeans)) : text;
}

// A grid as the editor shows it: a column for each key, highest first, a row for each caption.
class Grid {
public:
    explicit Grid(CString corner) : m_corner(std::move(corner)) {}

    template <class T> void AddTable(const CString& caption, const GrowArray<SpeedEntry<T>>& table)
    {
        Cells& cells = AddRow(caption);
        for (const SpeedEntry<T>& entry : table) {
            cells.emplace(entry.speed, CellText(entry.value));
            m_columns.insert(entry.speed);
        }
    }
    void Set(const CString& caption, std::int32_t column, const CString& text)
    {
        const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                        [&](const Row& row) { return row.first == caption; });
        Cells& cells = found == m_rows.end() ? AddRow(caption) : found->second;
        cells.emplace(column, text);
        m_columns.insert(column);
    }
    void Print() const
    {
        TextTable table;
        CStringArray header = {m_corner};
        for (std::int32_t column : m_columns)
            header.push_back(CellText(column));
        table.AddRow(header);
        for (const auto& [caption, cells] : m_rows) {
            CStringArray row = {caption};
            for (std::int32_t column : m_columns) {
                const auto found = cells.find(column);
                row.push_back(found == cells.end() ? L"-" : found->second);
            }
            table.AddRow(row);
        }
        if (m_rows.empty()) return PrintLine(L"  (无数据)");
        for (const CString& line : table.Lines(2))
            PrintLine(line);
    }

private:
    using Cells = std::map<std::int32_t, CString>;
    using Row = std::pair<CString, Cells>;

    Cells& AddRow(const CString& caption) { return m_rows.emplace_back(caption, Cells()).second; }

    CString m_corner;
    std::set<std::int32_t, Descending> m_columns;
    std::vector<Row> m_rows;
};

constexpr wchar_t kSpeedCorner[] = L"设计车速(km/h)";

void PrintTables(const CriterionInfo& criterion, const void* object)
{
    Grid grid(kSpeedCorner);
    bool any = false;
    for (const Field& field : criterion.fields) {
        if (!field.IsTable() || (field.isUsed && !field.isUsed(object))) continue;
        const bool isInt = field.kind == FieldKind::IntTable;
        if (field.skipEmpty && field.Of<SpeedToDoubleValues>(object).IsEmpty()) continue;
        any = true;
        if (isInt)
            grid.AddTable(WithUnit(field), field.Of<SpeedToIntValues>(object));
        else
            grid.AddTable(WithUnit(field), field.Of<SpeedToDoubleValues>(object));
    }
    if (any) grid.Print();
}

void PrintRows(const CDSLonGradMaxLen& criterion)
{
    Grid grid(kSpeedCorner);
    for (const GradientRow& row : criterion.rows)
        grid.AddTable(Format(L"坡度%s%% 最大坡长(m)", DecimalText(row.Grad)), row.lengths);
    grid.Print();
}

void PrintDefinitions(const CDSSuperElevation& criterion)
{
    for (const SuperElevDefinition& definition : criterion.definitions) {
        PrintLine(Format(L"  最大超高 %d%%", definition.maxSuperElev));
        Grid grid(kSpeedCorner);
        for (const SuperElevSpeedRow& row : definition.rows)
            for (const SuperElevRange& range : row.ranges)
                grid.Set(Format(L"超高 %d%% 时圆曲线半径范围(m)", range.superElev), row.speed,
                         Format(L"%d~%d", range.minRadius, range.maxRadius));
        grid.Print();
    }
    if (criterion.definitions.IsEmpty()) PrintLine(L"  (无数据)");
}

void PrintRanges(const CDSCurveWidening& criterion)
{
    CStringArray carTypes;
    for (const WideningRange& range : criterion.ranges)
        for (const Widening& one : range.widenings)
            if (std::none_of(carTypes.begin(), carTypes.end(),
                             [&](const CString& type) { return EqualNoCase(type, one.carType); }))
                carTypes.push_back(one.carType);
    TextTable table;
    CStringArray header = {L"圆曲线半径(m)"};
    for (const CString& type : carTypes)
        header.push_back(type + L"(m)");
    table.AddRow(header);
    for (const WideningRange& range : criterion.ranges) {
        const wchar_t* form = criterion.IsGMinAndLEMaxMode ? L"%d < R ≤ %d" : L"%d ≤ R < %d";
        CStringArray row = {Format(form, range.min, range.max)};
        for (const CString& type : carTypes) {
            CString text = L"-";
            for (const Widening& one : range.widenings)
                if (text == L"-" && EqualNoCase(one.carType, type))
                    text = DecimalText(one.widening);
            row.push_back(text);
        }
        table.AddRow(row);
    }
    if (criterion.ranges.IsEmpty()) return PrintLine(L"  (无数据)");
    for (const CString& line : table.Lines(2))
        PrintLine(line);
}

void PrintScalars(const CriterionInfo& criterion, const void* object, bool texts)
{
    for (const Field& field : criterion.fields)
        if (!field.IsTable() && (field.kind == FieldKind::Text) == texts)
            PrintLine(Format(L"  %s: %s", WithUnit(field), MeaningText(field, object)));
}

void PrintCriterion(const CriterionInfo& criterion, CDesignSpecification& specification)
{
    const void* object = criterion.get(specification);
    PrintLine(Format(L"%s  %s", CString(criterion.label), CString(criterion.name)));
    PrintScalars(criterion, object, false);
    PrintTables(criterion, object);
    if (object == &specification.LonGradMaxLen) PrintRows(specification.LonGradMaxLen);
    if (object == &specification.SuperElevation) PrintDefinitions(specification.SuperElevation);
    if (object == &specification.CurveWidening) PrintRanges(specification.CurveWidening);
    PrintScalars(criterion, object, true);
}

std::vector<const CriterionInfo*> ChosenCriteria(const std::string& path)
{
    std::vector<const CriterionInfo*> chosen;
    if (path.empty()) {
        for (const CriterionInfo& criterion : Criteria())
            chosen.push_back(&criterion);
        return chosen;
    }
    const FieldPath parsed = ParseFieldPath(path);
    if (parsed.field) Refuse(L"show 只接受条目,不接受字段");
    return {parsed.criterion};
}

} // namespace

Status RunShow(const Arguments& arguments)
{
    const std::vector<const CriterionInfo*> chosen = ChosenCriteria(arguments.path);
    CDesignSpecification& specification = ChosenSpecification(OpenProject(arguments), arguments);
    if (arguments.json) {
        Json json = ToJson(specification);
        for (const CriterionInfo* criterion : chosen)
            json["criteria"][ToUtf8(criterion->name)] = ToJson(*criterion, specification);
        PrintJson(json);
        return kDone;
    }
    PrintLine(Format(L"%s  %s", specification.Name(), VMRDPub::GUIDToStr(specification.ID())));
    for (const CriterionInfo* criterion : chosen) {
        PrintLine(L"");
        PrintCriterion(*criterion, specification);
    }
    return kDone;
}
