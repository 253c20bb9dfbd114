#include "sheets/SheetGrid.h"

#include "sheets/CellText.h"

namespace designspec {

void SheetGrid::Set(int row, int column, CString text)
{
    if (text.empty()) return;
    m_cells[row][column] = std::move(text);
}

const CString& SheetGrid::At(int row, int column) const
{
    static const CString kNone;
    const auto line = m_cells.find(row);
    if (line == m_cells.end()) return kNone;
    const auto cell = line->second.find(column);
    return cell == line->second.end() ? kNone : cell->second;
}

SheetGrid::Row SheetGrid::Line(int row) const
{
    const auto own = m_cells.find(row);
    Row line = own == m_cells.end() ? Row() : own->second;
    const auto merged = m_merged.find(row);
    if (merged == m_merged.end()) return line;
    for (const auto& [column, of] : merged->second)
        if (const CString& text = At(of.row, of.column); !text.empty()) line.emplace(column, text);
    return line;
}

SheetGrid SheetGrid::Transposed() const
{
    SheetGrid other(m_name);
    other.m_transposed = !m_transposed;
    for (const auto& [row, cells] : m_cells)
        for (const auto& [column, text] : cells)
            other.Set(column, row, text);
    for (const auto& [row, cells] : m_merged)
        for (const auto& [column, of] : cells)
            other.Merge(column, row, {of.column, of.row});
    return other;
}

CString SheetGrid::PlaceOf(int row, int column) const
{
    const CString cell = m_transposed ? CellName(column, row) : CellName(row, column);
    return m_name.empty() ? cell : m_name + L" " + cell;
}

} // namespace designspec
