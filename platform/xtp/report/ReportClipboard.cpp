#include "platform/xtp/report/ReportClipboard.h"

#include <algorithm>

#include <QApplication>
#include <QClipboard>

#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportControl.h"
#include "platform/xtp/report/TabText.h"

using namespace designspec;

bool ReportClipboard::HoldsBlock()
{
    const QString text = QApplication::clipboard()->text().trimmed();
    return text.contains(u'\t') || text.contains(u'\n');
}

QModelIndexList ReportClipboard::SelectedCells() const
{
    QModelIndexList cells = m_grid.selectionModel()->selectedIndexes();
    if (cells.isEmpty() && m_grid.currentIndex().isValid()) cells.append(m_grid.currentIndex());
    std::sort(cells.begin(), cells.end());
    return cells;
}

void ReportClipboard::Copy() const
{
    std::vector<CStringArray> rows;
    int row = -1;
    for (const QModelIndex& cell : SelectedCells()) {
        if (cell.row() != row) rows.emplace_back();
        row = cell.row();
        rows.back().push_back(FromQString(cell.data().toString()));
    }
    if (!rows.empty()) QApplication::clipboard()->setText(ToQString(FormatTabText(rows)));
}

void ReportClipboard::Cut()
{
    Copy();
    Delete();
}

void ReportClipboard::Delete()
{
    m_grid.GetUndo().Step([this] {
        for (const QModelIndex& cell : SelectedCells())
            if (m_grid.IsEditable(cell) && !cell.data().toString().isEmpty())
                m_grid.EnterText(cell, {});
    });
}

void ReportClipboard::Paste()
{
    const auto rows = ParseTabText(FromQString(QApplication::clipboard()->text()));
    const QModelIndexList cells = SelectedCells();
    if (rows.empty() || cells.isEmpty()) return;
    m_grid.GetUndo().Step([&] {
        if (rows.size() > 1 || rows.front().size() > 1) {
            PasteBlock(rows, cells.front());
            return;
        }
        for (const QModelIndex& cell : cells)
            if (m_grid.IsEditable(cell)) m_grid.EnterText(cell, rows.front().front());
    });
}

void ReportClipboard::PasteBlock(const std::vector<CStringArray>& rows, const QModelIndex& corner)
{
    QItemSelection pasted;
    for (int r = 0; r < std::ssize(rows); ++r) {
        const CStringArray& texts = rows[static_cast<size_t>(r)];
        for (int c = 0; c < std::ssize(texts); ++c) {
            const QModelIndex cell = m_grid.IndexOf(corner.row() + r, corner.column() + c);
            if (!m_grid.IsEditable(cell)) continue;
            m_grid.EnterText(cell, texts[static_cast<size_t>(c)]);
            pasted.select(cell, cell);
        }
    }
    if (!pasted.isEmpty())
        m_grid.selectionModel()->select(pasted, QItemSelectionModel::ClearAndSelect);
}
