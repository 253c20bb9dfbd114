#include <array>

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Number.h"
#include "base/Text.h"
#include "cli/JsonText.h"
#include "cli/Operands.h"
#include "cli/TextTable.h"
#include "model/FieldValue.h"
#include "model/PageLayout.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

// A grid as the editor shows it. Columns that are numbers stand highest first, others as they come
// up. Of several texts for one cell the first one counts.
class Grid {
public:
    explicit Grid(CString corner) : m_corner(std::move(corner)) {}

    void AddLine(const CString& caption) { m_lines.push_back({caption, {}}); }
    // Into the last line of that caption, which is added when there is none.
    void Set(const CString& caption, const CString& column, const CString& text)
    {
        const auto found = std::find_if(m_lines.rbegin(), m_lines.rend(),
                                        [&](const Line& line) { return line.caption == caption; });
        const bool isNew = found == m_lines.rend();
        if (isNew) AddLine(caption);
        (isNew ? m_lines.back() : *found).cells.push_back({column, text});
        AddColumn(column);
    }
    void Print() const
    {
        if (m_lines.empty()) return PrintLine(L"  (无数据)");
        TextTable table;
        CStringArray header = {m_corner};
        header.insert(header.end(), m_columns.begin(), m_columns.end());
        table.AddRow(header);
        for (const Line& line : m_lines) {
            CStringArray row = {line.caption};
            for (const CString& column : m_columns)
                row.push_back(TextAt(line, column));
            table.AddRow(row);
        }
        for (const CString& line : table.Lines(2))
            PrintLine(line);
    }

private:
    struct Cell {
        CString column, text;
    };
    struct Line {
        CString caption;
        std::vector<Cell> cells;
    };

    static CString TextAt(const Line& line, const CString& column)
    {
        for (const Cell& cell : line.cells)
            if (EqualNoCase(cell.column, column)) return cell.text;
        return L"-";
    }
    static int NumberOf(const CString& column)
    {
        int number = 0;
        ParseInt(ToUtf8(column), number);
        return number;
    }
    void AddColumn(const CString& column)
    {
        for (const CString& one : m_columns)
            if (EqualNoCase(one, column)) return;
        const auto lower = [&](const CString& one) { return NumberOf(one) < NumberOf(column); };
        m_columns.insert(std::find_if(m_columns.begin(), m_columns.end(), lower), column);
    }

    CString m_corner;
    CStringArray m_columns;
    std::vector<Line> m_lines;
};

void PrintTables(const CriterionInfo& criterion, const void* object)
{
    Grid grid(kSpeedCorner);
    bool any = false;
    for (const Field& field : criterion.fields) {
        if (!field.IsTable() || (field.isUsed && !field.isUsed(object))) continue;
        if (field.skipEmpty && field.RowCount(object) == 0) continue;
        any = true;
        const CString caption = PageCaption(field);
        const auto fields = field.RowFields(); // speed and value
        grid.AddLine(caption);
        for (std::int32_t i = 0; i < field.RowCount(object); ++i) {
            const void* entry = field.Row(object, i);
            grid.Set(caption, ValueText(fields[0], entry), ValueText(fields[1], entry));
        }
    }
    if (any) grid.Print();
}

// The texts of a row and those around it, by their places in a grid.
using Texts = std::array<CString, 4>;

CString& At(Texts& texts, GridPlace place)
{
    return texts[static_cast<size_t>(place)];
}

void AddText(Texts& texts, const Field& field, const void* row)
{
    CString& text = At(texts, field.place);
    if (!text.empty()) text += L"~"; // the ends of a range
    text += ValueText(field, row);
    if (field.form) text = Format(field.form, text);
}

// What stands above the captions: what the columns are, or else what the lines are.
CString CornerOf(const Field& rows, const CString& lines)
{
    for (const Field& field : rows.RowFields()) {
        if (field.HasRows()) return CornerOf(field, lines);
        if (field.place == GridPlace::Column && field.kind == FieldKind::Int) return kSpeedCorner;
    }
    return lines;
}

void PrintRows(const Field& field, const void* object);

void AddRows(Grid& grid, const Field& field, const void* object, const Texts& around)
{
    for (std::int32_t i = 0; i < field.RowCount(object); ++i) {
        const void* row = field.Row(object, i);
        Texts texts = around;
        const Field* inner = nullptr;
        for (const Field& one : field.RowFields()) {
            if (one.HasRows())
                inner = &one;
            else
                AddText(texts, one, row);
        }
        if (field.rowText) At(texts, GridPlace::Row) = field.rowText(object, row);
        const CString& line = At(texts, GridPlace::Row);
        if (!inner) {
            grid.Set(line, At(texts, GridPlace::Column), At(texts, GridPlace::Cell));
        } else if (const CString& heading = At(texts, GridPlace::Heading); !heading.empty()) {
            PrintLine(L"  " + heading);
            PrintRows(*inner, row);
        } else {
            if (!line.empty()) grid.AddLine(line); // be it without cells
            AddRows(grid, *inner, row, texts);
        }
    }
}

// One grid, or one for each heading.
void PrintRows(const Field& field, const void* object)
{
    Grid grid(CornerOf(field, PageCaption(field)));
    AddRows(grid, field, object, {});
    const auto fields = field.RowFields();
    const bool hasHeadings = std::any_of(fields.begin(), fields.end(), [](const Field& one) {
        return one.place == GridPlace::Heading;
    });
    if (!hasHeadings || field.RowCount(object) == 0) grid.Print();
}

void PrintScalars(const CriterionInfo& criterion, const void* object, bool texts)
{
    for (const Field& field : criterion.fields)
        if (!field.HasRows() && (field.kind == FieldKind::Text) == texts)
            PrintLine(Format(L"  %s: %s", PageCaption(field),
                             ReadableText(field, GetValue(field, object))));
}

void PrintCriterion(const CriterionInfo& criterion, CDesignSpecification& specification)
{
    const void* object = criterion.get(specification);
    PrintLine(Format(L"%s  %s", CString(criterion.label), CString(criterion.name)));
    PrintScalars(criterion, object, false);
    PrintTables(criterion, object);
    for (const Field& field : criterion.fields)
        if (field.kind == FieldKind::Rows) PrintRows(field, object);
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
    const ValuePath parsed = ParsePath(path);
    if (!parsed.steps.empty()) Refuse(L"show 只接受条目,不接受字段");
    return {parsed.criterion};
}

Json JsonOf(CDesignSpecification& specification, const std::vector<const CriterionInfo*>& chosen)
{
    Json json = ToJson(specification);
    for (const CriterionInfo* criterion : chosen)
        json["criteria"][ToUtf8(criterion->name)] = ToJson(*criterion, specification);
    return json;
}

void Print(CDesignSpecification& specification, const std::vector<const CriterionInfo*>& chosen)
{
    PrintLine(
        Format(L"%s  %s", Printable(specification.Name()), VMRDPub::GUIDToStr(specification.ID())));
    for (const CriterionInfo* criterion : chosen) {
        PrintLine(L"");
        PrintCriterion(*criterion, specification);
    }
}

} // namespace

Status RunShow(const Arguments& arguments, Teller& teller)
{
    // A single word that is no file names a criterion.
    const bool isFile = !arguments.path.empty() || Operands::IsPath(arguments.file);
    const auto chosen = ChosenCriteria(isFile ? arguments.path : arguments.file);
    Operands operands(arguments, teller);
    const std::vector<CDesignSpecification*> shown =
        isFile ? operands.FindAll(arguments.file)
               : std::vector{&operands.Library().Chosen(arguments)};
    if (arguments.json) {
        Json all = Json::array();
        for (CDesignSpecification* const one : shown)
            all.push_back(JsonOf(*one, chosen));
        PrintJson(all.size() == 1 ? all.front() : all);
        return kDone;
    }
    for (CDesignSpecification* const one : shown) {
        if (one != shown.front()) PrintLine(L"");
        Print(*one, chosen);
    }
    return kDone;
}
