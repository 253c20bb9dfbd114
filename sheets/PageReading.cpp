#include "sheets/PageReading.h"

#include <algorithm>

#include "base/Format.h"
#include "model/PageLayout.h"
#include "model/Rules.h"
#include "sheets/RowPages.h"

namespace designspec {

namespace {

constexpr int kFirstCells = 1000; // that tell what page a sheet is

std::vector<const Field*> FieldsOf(const CriterionInfo& criterion)
{
    std::vector<const Field*> fields;
    for (const Field& field : criterion.fields)
        if (field.kind != FieldKind::Rows) fields.push_back(&field);
    return fields;
}

CStringArray CaptionsOf(const CriterionInfo& criterion)
{
    CStringArray captions;
    for (const Field* field : FieldsOf(criterion))
        captions.push_back(PageCaption(*field));
    return captions;
}

bool IsNumber(const CString& text)
{
    return ReadSpeed(text).has_value();
}

// Most of what a row, or a column, has of what is `wanted`.
template <class Wanted> int MostInARow(const SheetGrid& sheet, Wanted wanted)
{
    int most = 0;
    for (const auto& [row, cells] : sheet.Rows())
        most = std::max(
            most, static_cast<int>(std::count_if(cells.begin(), cells.end(), [&](const auto& cell) {
                return wanted(cell.second);
            })));
    return most;
}

} // namespace

PageReading::PageReading(const CriterionInfo& criterion)
    : m_criterion(criterion), m_fields(FieldsOf(criterion)), m_captions(CaptionsOf(criterion))
{
}

std::unique_ptr<PageReading> PageReading::Make(const CriterionInfo& criterion)
{
    if (auto page = MakeRowPage(criterion)) return page;
    return std::unique_ptr<PageReading>(new PageReading(criterion));
}

const CriterionInfo* PageReading::CriterionByName(const CString& name)
{
    CStringArray labels;
    for (const CriterionInfo& criterion : Criteria())
        labels.emplace_back(criterion.label);
    const int found = CaptionIndex(labels).Find(name);
    return found < 0 ? nullptr : &Criteria()[static_cast<std::size_t>(found)];
}

std::unique_ptr<PageReading> PageReading::Of(const SheetGrid& sheet)
{
    const CriterionInfo* named = CriterionByName(sheet.Name());
    if (!named && !sheet.IsEmpty())
        named = CriterionByName(sheet.Rows().begin()->second.begin()->second);
    if (named) {
        auto page = Make(*named);
        page->m_grid = std::make_unique<SheetGrid>(sheet);
        return page;
    }
    std::unique_ptr<PageReading> best;
    int most = 0;
    for (const CriterionInfo& criterion : Criteria()) {
        auto page = Make(criterion);
        const int count = page->CountCaptions(sheet);
        if (count == most) best.reset(); // either could be meant
        if (count <= most) continue;
        most = count;
        best = std::move(page);
    }
    if (best) best->m_grid = std::make_unique<SheetGrid>(sheet);
    return best;
}

const Field* PageReading::FindField(const CString& caption) const
{
    const int found = m_captions.Find(caption);
    return found < 0 ? nullptr : m_fields[static_cast<std::size_t>(found)];
}

bool PageReading::IsCaption(const CString& text) const
{
    return TakesCaption(text) || FindField(text);
}

// Those that tell the page: a source of data tells none.
int PageReading::CountCaptions(const SheetGrid& sheet) const
{
    std::set<CString> captions;
    int looked = 0;
    for (const auto& [row, cells] : sheet.Rows())
        for (const auto& [column, text] : cells) {
            if (++looked > kFirstCells) return static_cast<int>(captions.size());
            const Field* field = FindField(text);
            if (TakesCaption(text) || (field && field->kind != FieldKind::Text))
                captions.insert(text);
        }
    return static_cast<int>(captions.size());
}

bool PageReading::IsSpeedCorner(const CString& text) const
{
    const CString word = CaptionParts(text).word;
    return !FindField(text) &&
           (word.find(L"车速") != CString::npos || word.find(L"速度") != CString::npos);
}

bool PageReading::LiesAcross(const SheetGrid& sheet) const
{
    for (const auto& [row, cells] : sheet.Rows())
        for (const auto& [column, text] : cells)
            if (IsSpeedCorner(text) && !IsNumber(sheet.At(row, column + 1)))
                return IsNumber(sheet.At(row + 1, column));
    const auto isCaption = [this](const CString& text) { return IsCaption(text); };
    return MostInARow(sheet, isCaption) > MostInARow(sheet.Transposed(), isCaption);
}

// The one with most captions; without any the first one that holds something.
int PageReading::FindCaptionColumn(const SheetGrid& sheet) const
{
    std::map<int, int> counts;
    for (const auto& [row, cells] : sheet.Rows())
        for (const auto& [column, text] : cells)
            counts[column] += IsCaption(text) || IsSpeedCorner(text);
    const auto most =
        std::max_element(counts.begin(), counts.end(),
                         [](const auto& a, const auto& b) { return a.second < b.second; });
    return most == counts.end() ? 0 : most->first;
}

void PageReading::ApplyTo(CDesignSpecification& specification, const CString& path,
                          Problems& problems)
{
    if (LiesAcross(*m_grid)) *m_grid = m_grid->Transposed();
    m_object = m_criterion.get(specification);
    m_path = &path;
    m_problems = &problems;
    m_captionColumn = FindCaptionColumn(*m_grid);
    for (const auto& [row, cells] : m_grid->Rows())
        ReadRow(row);
    TellUnused();
}

void PageReading::Wrong(int row, int column, const CString& text)
{
    AddProblem(*m_problems, Severity::Error, *m_path, 0,
               Format(L"%s: %s", m_grid->PlaceOf(row, column), text));
}

std::map<int, CString> PageReading::Values(int row) const
{
    std::map<int, CString> values;
    if (IsAlone(row)) return values;
    for (const auto& [column, text] : m_grid->Rows().at(row))
        if (column != m_captionColumn && !IsBlank(text)) values.emplace(column, text);
    return values;
}

// A word that stands alone in its row is a caption wherever it stands.
bool PageReading::IsAlone(int row) const
{
    const SheetGrid::Row& cells = m_grid->Rows().at(row);
    return cells.size() == 1 && !CaptionParts(cells.begin()->second).word.empty();
}

CString PageReading::CaptionOf(int row) const
{
    return IsAlone(row) ? m_grid->Rows().at(row).begin()->second : m_grid->At(row, m_captionColumn);
}

// Also numbers that can be nothing else: with a word of no meaning here, or none, before them.
bool PageReading::IsSpeedRow(int row, const CString& caption) const
{
    if (IsSpeedCorner(caption)) return true;
    const auto values = Values(row);
    return values.size() > 1 && !IsCaption(caption) && CaptionParts(caption).numbers.empty() &&
           std::all_of(values.begin(), values.end(), [](const auto& value) {
               const auto speed = ReadSpeed(value.second);
               return speed && IsSpeed(*speed);
           });
}

void PageReading::ReadRow(int row)
{
    const CString caption = CaptionOf(row);
    // The title; a table may be called the same.
    if (row == m_grid->Rows().begin()->first && CriterionByName(caption) == &m_criterion &&
        Values(row).empty())
        return;
    if (TakeHeading(row, caption)) return;
    if (IsSpeedRow(row, caption)) return ReadSpeeds(row);
    if (const Field* field = FindField(caption)) return ReadField(row, *field);
    if (TakeLine(row, caption)) return;
    const auto values = Values(row);
    if (values.empty()) return; // a title or a remark
    if (caption.empty())
        Wrong(row, values.begin()->first, L"这一行前面没有标题");
    else
        Wrong(row, m_captionColumn,
              Format(L"“%s”不是“%s”页的内容", caption, CString(m_criterion.label)));
}

void PageReading::ReadSpeeds(int row)
{
    m_speeds.clear();
    for (const auto& [column, text] : Values(row)) {
        if (const auto speed = ReadSpeed(text))
            m_speeds[column] = *speed;
        else
            Wrong(row, column, Format(L"车速“%s”不是整数", text));
    }
    SpeedsChanged();
}

void PageReading::ReadField(int row, const Field& field)
{
    if (!m_read.emplace(&field, row).second)
        return Wrong(row, m_captionColumn, Format(L"“%s”写了两次", CString(field.label)));
    if (field.HasRows())
        ReadTable(row, field, m_object);
    else
        ReadValue(row, field);
}

void PageReading::ReadTable(int row, const Field& table, void* object)
{
    while (table.RowCount(object) > 0)
        table.RemoveRow(object, table.RowCount(object) - 1);
    const auto fields = table.RowFields(); // speed and value
    ReadLine(row, m_speeds, [&](int column, std::int32_t speed, const CString& text) {
        Value value;
        const CString problem = ReadCell(fields[1], table.unit, text, value);
        if (!problem.empty()) return Wrong(row, column, problem);
        void* entry = table.InsertRow(object, table.RowCount(object));
        SetValue(fields[0], entry, speed);
        SetValue(fields[1], entry, value);
    });
}

// The value stands in the next cell that holds something, mostly on the right.
void PageReading::ReadValue(int row, const Field& field)
{
    const SheetGrid::Row& cells = m_grid->Rows().at(row);
    auto cell = cells.upper_bound(m_captionColumn);
    if (cell == cells.end()) cell = cells.begin();
    const bool isThere = cell->first != m_captionColumn;
    if (!isThere && field.kind != FieldKind::Text)
        return Wrong(row, m_captionColumn, Format(L"“%s”没有值", CString(field.label)));
    Value value;
    const CString problem = ReadCell(field, field.unit, isThere ? cell->second : CString(), value);
    if (problem.empty())
        SetValue(field, m_object, value);
    else
        Wrong(row, cell->first, problem);
}

void PageReading::TellUnused()
{
    for (const auto& [field, row] : m_read)
        if (field->isUsed && !field->isUsed(m_object) && field->RowCount(m_object) > 0)
            Wrong(row, m_captionColumn,
                  Format(L"“%s”在当前条件下不用,也不会保存", CString(field->label)));
}

} // namespace designspec
