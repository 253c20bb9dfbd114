#include "platform/xtp/report/ReportPaste.h"

#include <algorithm>

#include <QItemSelection>

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "platform/mfc/MessageBox.h"
#include "platform/vmrd/VmHFCBaseU/Text.h"
#include "platform/xtp/report/ReportControl.h"

using namespace designspec;

namespace {

constexpr size_t kMostNamed = 3; // in one line

// What the offer calls those of the captions that it can add, each once.
CStringArray NamesOf(const ReportOffer& offer, const CStringArray& captions)
{
    CStringArray names;
    for (const CString& caption : captions) {
        const CString name = offer.name ? offer.name(caption) : CString();
        if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end())
            names.push_back(name);
    }
    return names;
}

CString Asked(const ReportOffer& offer, const CStringArray& names)
{
    CString text;
    for (const CString& name : names)
        text += (text.empty() ? offer.what + L" " : L"、") + name;
    return text + (names.empty() ? L"" : offer.unit);
}

} // namespace

CString designspec::FirstNames(const CStringArray& names)
{
    CString text;
    for (size_t i = 0; i < std::min(names.size(), kMostNamed); ++i)
        text += (i == 0 ? L"" : L"、") + Printable(OneLine(names[i]));
    return text + (names.size() > kMostNamed ? L" 等" : L"");
}

CString designspec::OneLine(const CString& caption)
{
    CString line = caption;
    std::erase(line, L'\n');
    return line;
}

TableCaptions designspec::CaptionsOf(const CXTPReportControl& grid)
{
    TableCaptions captions;
    captions.usual = grid.GetColumnOffer().usual;
    captions.canAddColumn = [&grid](const CString& one) {
        return grid.GetColumnOffer().CanAdd(one);
    };
    captions.rowKind = grid.GetRowOffer().what;
    captions.canAddRow = [&grid](const CString& one) { return grid.GetRowOffer().CanAdd(one); };
    if (!grid.HasCaptions()) return captions;
    for (int column = 0; const auto* shown = grid.ShownColumn(column); ++column)
        if (column == 0)
            captions.corner = shown->GetCaption();
        else
            captions.columns.push_back(shown->GetCaption());
    for (int row = 0; const auto* item = grid.ItemAt(grid.IndexOf(row, 0)); ++row)
        captions.rows.push_back(item->GetCaption());
    return captions;
}

// Where the block goes

void ReportPaste::Find(const PastedTable& table, const QModelIndex& corner)
{
    m_byCaptions = false;
    m_headline = table.Headline();
    FindRows(table, std::max(corner.row(), 0));
    FindColumns(table, corner.column());
}

void ReportPaste::FindRows(const PastedTable& table, int corner)
{
    const CaptionIndex index(CaptionsOf(m_grid).rows);
    bool meant = false; // they are captions of such a grid
    CStringArray unknown;
    m_rows.clear();
    for (int row = 0; row < table.GetRowCount(); ++row) {
        const CString* const caption = table.RowCaption(row);
        m_rows.push_back(caption ? index.Find(*caption) : kNowhere);
        if (!caption) continue;
        if (m_rows.back() == kNowhere) unknown.push_back(*caption);
        meant = meant || m_rows.back() != kNowhere || m_grid.GetRowOffer().CanAdd(*caption);
    }
    m_byCaptions = m_byCaptions || meant;
    m_unknownRows = meant ? unknown : CStringArray();
    m_strangeRows = meant ? CStringArray() : unknown;
    const int rows = m_grid.model()->rowCount();
    for (int row = 0; !meant && row < table.GetRowCount(); ++row)
        m_rows[static_cast<size_t>(row)] = corner + row < rows ? corner + row : kNowhere;
}

void ReportPaste::FindColumns(const PastedTable& table, int corner)
{
    const int first = m_grid.HasCaptions() ? 1 : 0;
    const CaptionIndex index(CaptionsOf(m_grid).columns);
    const int columns = m_grid.model()->columnCount();
    m_columns.clear();
    m_unknownColumns.clear();
    for (int column = 0; column < table.GetColumnCount(); ++column) {
        int place = std::max(corner, first) + column;
        if (const CString* const caption = table.ColumnCaption(column)) {
            const int found = index.Find(*caption);
            m_byCaptions = true;
            place = found < 0 ? kNowhere : found + first;
            if (found < 0) m_unknownColumns.push_back(*caption);
        }
        m_columns.push_back(place < columns ? place : kNowhere);
    }
}

// True when the user wanted them, and the grid has them now.
bool ReportPaste::OfferMissing()
{
    const CStringArray rows = NamesOf(m_grid.GetRowOffer(), m_unknownRows);
    const CStringArray columns = NamesOf(m_grid.GetColumnOffer(), m_unknownColumns);
    if (rows.empty() && columns.empty()) return false;
    const CString question = L"表格中没有" + Asked(m_grid.GetRowOffer(), rows) +
                             (rows.empty() || columns.empty() ? L"" : L", 没有") +
                             Asked(m_grid.GetColumnOffer(), columns) + L"。添加后粘贴?";
    if (MessageBox(&m_grid, question, L"提示", MB_YESNO | MB_ICONQUESTION) != IDYES) return false;
    if (!rows.empty()) m_grid.GetRowOffer().add(rows);
    if (!columns.empty()) m_grid.GetColumnOffer().add(columns);
    m_grid.Populate();
    return true;
}

std::vector<ReportPaste::Entry> ReportPaste::EntriesOf(const PastedTable& table) const
{
    std::vector<Entry> entries;
    for (int row = 0; row < table.GetRowCount(); ++row)
        for (int column = 0; column < table.GetColumnCount(); ++column) {
            const int r = m_rows[static_cast<size_t>(row)];
            const int c = m_columns[static_cast<size_t>(column)];
            const CString* const text = table.Value(row, column);
            if (!text || r == kNowhere || c == kNowhere) continue;
            if (const QModelIndex cell = m_grid.IndexOf(r, c); m_grid.IsEditable(cell))
                entries.push_back({cell, *text});
        }
    return entries;
}

// Entering

void ReportPaste::Block(const PastedTable& table, const QModelIndex& corner)
{
    if (!m_grid.IsAllowEdit()) return;
    if (table.IsWords()) {
        m_grid.SetRemark(L"没有粘贴: 剪贴板上没有数值");
        return;
    }
    m_grid.GetUndo().Step([&] {
        Find(table, corner);
        if (OfferMissing()) Find(table, corner);
        const std::vector<Entry> entries = EntriesOf(table);
        Enter(entries);
        Select(entries);
    });
    m_grid.SetRemark(Report());
}

void ReportPaste::Fill(const CString& text, const QModelIndexList& cells)
{
    std::vector<Entry> entries;
    for (const QModelIndex& cell : cells)
        if (m_grid.IsEditable(cell)) entries.push_back({cell, text});
    if (entries.empty()) return;
    m_grid.GetUndo().Step([&] { Enter(entries); });
    m_grid.SetRemark(Report());
}

void ReportPaste::Enter(const std::vector<Entry>& entries)
{
    const bool several = entries.size() > 1;
    for (const Entry& entry : entries) {
        CXTPReportRecordItem* const item = m_grid.ItemAt(entry.cell);
        const CString before = item->GetCaption();
        m_grid.EnterPasted(entry.cell, item->ReadPasted(entry.text), several);
        Note(entry, before);
    }
    m_grid.ShowEntered();
}

void ReportPaste::Note(const Entry& entry, const CString& before)
{
    const CXTPReportRecordItem& item = *m_grid.ItemAt(entry.cell);
    const auto named = [&] {
        return m_grid.CellName(entry.cell) + L" “" + Printable(Trim(entry.text)) + L"”";
    };
    if (Trim(entry.text).empty()) {
        m_emptied += before.empty() ? 0 : 1;
    } else if (item.GetCaption().empty()) {
        m_refused.push_back(named());
    } else {
        ++m_entered;
        const CString text = item.ReadPasted(entry.text);
        const CString held = item.GetExactText();
        if (IsNumericText(text) && IsNumericText(held) && Wtof(text) != Wtof(held))
            m_cut.push_back(named());
    }
}

// One rectangle around all cells: a range for each would cost the square of their number.
void ReportPaste::Select(const std::vector<Entry>& entries)
{
    if (entries.empty()) return;
    QRect around;
    for (const Entry& entry : entries)
        around |= QRect(entry.cell.column(), entry.cell.row(), 1, 1);
    m_grid.setCurrentIndex(m_grid.IndexOf(around.top(), around.left()));
    m_grid.selectionModel()->select(QItemSelection(m_grid.IndexOf(around.top(), around.left()),
                                                   m_grid.IndexOf(around.bottom(), around.right())),
                                    QItemSelectionModel::ClearAndSelect);
}

// What there is to say

CString ReportPaste::LeftOut(const std::vector<int>& places, const CStringArray& unknown,
                             const wchar_t* what) const
{
    if (!unknown.empty())
        return Format(L", %d %s没有对应: ", static_cast<int>(unknown.size()), CString(what)) +
               FirstNames(unknown);
    const auto beyond = std::count(places.begin(), places.end(), kNowhere);
    return beyond > 0 ? Format(L", %d %s超出", static_cast<int>(beyond), CString(what)) : CString();
}

CString ReportPaste::Report() const
{
    const auto named = [](const CStringArray& cells, const wchar_t* what) {
        return cells.empty()
                   ? CString()
                   : Format(L", %d 个%s: ", static_cast<int>(cells.size()), CString(what)) +
                         FirstNames(cells);
    };
    CString said = named(m_refused, L"不合格") + named(m_cut, L"舍去了小数");
    if (m_emptied > 0) said += Format(L", %d 个清空", m_emptied);
    said += LeftOut(m_rows, m_unknownRows, L"行") + LeftOut(m_columns, m_unknownColumns, L"列");
    if (!m_strangeRows.empty())
        said += L", 表格中没有这些行, 依次填入: " + FirstNames(m_strangeRows);
    if (!m_headline.empty()) said += L", 第一行当作标题: " + FirstNames(m_headline);
    if (said.empty() && !m_byCaptions) return {};
    return Format(L"%d 个值", m_entered) + (m_byCaptions ? L", 按标题填入" : L"") + said;
}
