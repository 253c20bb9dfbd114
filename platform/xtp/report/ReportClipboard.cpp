#include "platform/xtp/report/ReportClipboard.h"

#include <algorithm>

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportControl.h"
#include "platform/xtp/report/ReportPaste.h"
#include "platform/xtp/report/TabText.h"

using namespace designspec;

namespace {

// The grid that copied, how ('p' plain, 'v' values, 'c' captions selected as well), and the texts
// with all decimals of their numbers.
const QString kOwnFormat = QStringLiteral("application/x-designspec-cells");

} // namespace

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

QRect ReportClipboard::SelectedBlock() const
{
    QRect block;
    for (const QModelIndex& cell : SelectedCells())
        block |= QRect(cell.column(), cell.row(), 1, 1);
    return block;
}

// A block's cells, below and beside the captions of its columns and rows or alone.
std::vector<CStringArray> ReportClipboard::TextsOf(const QRect& block, bool captions,
                                                   TextOf textOf) const
{
    const TableCaptions shown = CaptionsOf(m_grid);
    std::vector<CStringArray> rows;
    if (captions) rows.push_back({OneLine(shown.corner)});
    for (int column = block.left(); captions && column <= block.right(); ++column)
        rows.front().push_back(OneLine(shown.columns[static_cast<size_t>(column) - 1]));
    for (int row = block.top(); row <= block.bottom(); ++row) {
        rows.emplace_back();
        if (captions) rows.back().push_back(OneLine(shown.rows[static_cast<size_t>(row)]));
        for (int column = block.left(); column <= block.right(); ++column) {
            const auto* const item = m_grid.ItemAt(m_grid.IndexOf(row, column));
            rows.back().push_back(item ? textOf(*item) : CString());
        }
    }
    return rows;
}

void ReportClipboard::Copy(Kind kind) const
{
    QRect block = SelectedBlock();
    if (block.isEmpty()) return;
    const bool withCaptions = m_grid.HasCaptions() && block.left() == 0;
    const bool captionsAlone = withCaptions && block.right() == 0;
    if (withCaptions && !captionsAlone) block.setLeft(1);
    const bool isSingle = block.size() == QSize(1, 1) && !withCaptions;
    const bool captions =
        kind == kWithCaptions && m_grid.HasCaptions() && !captionsAlone && !isSingle;
    auto* const data = new QMimeData;
    data->setText(ToQString(FormatTabText(TextsOf(
        block, captions, [](const CXTPReportRecordItem& item) { return item.GetCaption(); }))));
    const CString exact = FormatTabText(TextsOf(
        block, captions, [](const CXTPReportRecordItem& item) { return item.GetExactText(); }));
    const char mark = !captions ? 'p' : withCaptions ? 'c' : 'v';
    if (!captionsAlone)
        data->setData(kOwnFormat, m_id.toByteArray() + mark + ToQString(exact).toUtf8());
    QApplication::clipboard()->setMimeData(data);
}

void ReportClipboard::Cut()
{
    Copy(kWithCaptions);
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

// What another grid or program has copied is read for its captions. What this grid has copied goes
// where the user points, unless the captions were copied deliberately.
PastedTable ReportClipboard::Pasted(Kind kind) const
{
    const QMimeData& data = *QApplication::clipboard()->mimeData();
    const QByteArray own = data.data(kOwnFormat);
    const qsizetype mark = m_id.toByteArray().size();
    if (own.size() <= mark) {
        auto texts = ParseTabText(FromQString(data.text()));
        return kind == kPlain ? PastedTable::OfValues(std::move(texts))
                              : PastedTable(std::move(texts), CaptionsOf(m_grid));
    }
    auto texts = ParseTabText(FromQString(QString::fromUtf8(own.mid(mark + 1))));
    if (own[mark] == 'p') return PastedTable::OfValues(std::move(texts));
    PastedTable table = PastedTable::WithCaptions(std::move(texts));
    const bool moved = own.startsWith(m_id.toByteArray()) && own[mark] == 'v';
    return moved || kind == kPlain ? table.WithoutCaptions() : table;
}

void ReportClipboard::Paste(Kind kind)
{
    const QModelIndexList cells = SelectedCells();
    // A table that has its captions with it can make the rows of an empty grid.
    const bool hasPlace = !cells.isEmpty() || m_grid.model()->rowCount() == 0;
    if (!hasPlace || !QApplication::clipboard()->mimeData()) return;
    const PastedTable table = Pasted(kind);
    if (table.IsSingle())
        ReportPaste(m_grid).Fill(*table.Value(0, 0), cells);
    else if (!table.IsEmpty() || table.IsWords())
        ReportPaste(m_grid).Block(table, cells.isEmpty() ? QModelIndex() : cells.front());
}
