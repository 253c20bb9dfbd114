#include "platform/xtp/report/ReportControl.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QScrollBar>
#include <QUndoStack>

#include "base/HalfWidth.h"
#include "base/NoCase.h"
#include "platform/mfc/Dialog.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportDelegate.h"
#include "platform/xtp/report/ReportModel.h"
#include "platform/xtp/report/ReportRightClick.h"
#include "platform/xtp/report/ReportUndo.h"
#include "platform/xtp/report/TabText.h"

using namespace designspec;

CXTPReportControl::CXTPReportControl(QWidget* parent)
    : QTableView(parent), m_model(new CXTPReportModel(this)), m_header(new CXTPReportHeader(this)),
      m_delegate(new CXTPReportDelegate(this)), m_undo(new QUndoStack(this))
{
    SetPaintManager(nullptr);
    setHorizontalHeader(m_header);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    setModel(m_model);
    setItemDelegate(m_delegate);
    setShowGrid(false); // the paint manager draws the lines
    setCornerButtonEnabled(false);
    setSelectionMode(ContiguousSelection);
    setTabKeyNavigation(false); // focusNextPrevChild does it, for cells that can be edited
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setEditTriggers(NoEditTriggers);
    new CXTPReportRightClick(viewport(), [this](const QPoint& pos, const QPoint& globalPos) {
        OnRightClick(pos, globalPos);
    });
}

CXTPReportControl::~CXTPReportControl()
{
    // The header outlives this part of the grid and must not ask it anything more.
    setModel(nullptr);
}

void CXTPReportControl::CreateOver(QWidget* placeholder, int controlId)
{
    setProperty(kControlIdProperty, controlId);
    setParent(placeholder->parentWidget());
    setGeometry(placeholder->geometry());
    setSizePolicy(placeholder->sizePolicy());
    setMinimumSize(placeholder->minimumSize());
    setAccessibleName(placeholder->accessibleName());
    placeholder->setFocusPolicy(Qt::TabFocus); // what takes no focus has no place in the order
    setTabOrder(placeholder, this);
    for (QLabel* label : parentWidget()->findChildren<QLabel*>())
        if (label->buddy() == placeholder) label->setBuddy(this);
    QLayout* const layout = parentWidget()->layout();
    if (layout) delete layout->replaceWidget(placeholder, this);
    placeholder->hide();
    show();
}

void CXTPReportControl::Populate()
{
    const QModelIndex current = currentIndex();
    const int x = horizontalScrollBar()->value();
    const int y = verticalScrollBar()->value();
    m_model->Reload();
    m_header->ApplyColumns();
    ApplyHeights();
    updateGeometries();
    horizontalScrollBar()->setValue(x);
    verticalScrollBar()->setValue(y);
    if (!current.isValid() || m_model->rowCount() == 0 || m_model->columnCount() == 0) return;
    const QModelIndex kept = m_model->index(std::min(current.row(), m_model->rowCount() - 1),
                                            std::min(current.column(), m_model->columnCount() - 1));
    selectionModel()->setCurrentIndex(kept, QItemSelectionModel::ClearAndSelect);
}

void CXTPReportControl::SetPaintManager(CXTPReportPaintManager* paintManager)
{
    m_paintManager.reset(paintManager ? paintManager : new CXTPReportPaintManager);
    m_paintManager->SetControl(this);
    if (m_header && model()) ApplyHeights();
}

void CXTPReportControl::SetGridStyle(bool vertical, XTPReportGridStyle style)
{
    m_paintManager->SetGridStyle(vertical, style);
    viewport()->update();
}

void CXTPReportControl::ApplyHeights()
{
    for (int row = 0; row < m_model->rowCount(); ++row)
        setRowHeight(row, m_paintManager->GetRowHeight(m_model->Record(row)));
    m_header->updateGeometry();
    updateGeometries();
    viewport()->update();
    m_header->viewport()->update();
}

void CXTPReportControl::AllowEdit(bool allow)
{
    m_allowEdit = allow;
    if (!allow) m_delegate->EndEdit(false);
    setEditTriggers(allow ? AnyKeyPressed | EditKeyPressed | DoubleClicked
                          : EditTriggers(NoEditTriggers));
}

void CXTPReportControl::CommitEdit()
{
    m_delegate->EndEdit(true);
}

void CXTPReportControl::commitData(QWidget* editor)
{
    // A cell may answer with a message box, and the editor loses the focus to it: once is enough.
    if (m_committing) return;
    m_committing = true;
    QTableView::commitData(editor);
    m_committing = false;
}

void CXTPReportControl::EnterText(const QModelIndex& index, const CString& text)
{
    CXTPReportRecordItem* const item = ItemAt(index);
    if (!item) return;
    CXTPReportRecord* const record = RecordAt(index);
    CXTPReportColumn* const column = ColumnAt(index);
    const CXTPReportUserChange change(*this, L"编辑");
    item->OnEditChanged(this, ToHalfWidth(text));
    m_model->Refresh();
    emit ValueChanged(record, column);
}

// Undo

void CXTPReportControl::BeginUserChange(const CString& text)
{
    if (m_changeDepth++ > 0) return;
    m_changeText = text;
    m_before = std::make_shared<CXTPReportSnapshot>(CXTPReportSnapshot::Take(m_columns, m_records));
}

void CXTPReportControl::EndUserChange()
{
    if (m_changeDepth == 0 || --m_changeDepth > 0) return;
    const auto before = std::move(m_before);
    auto after =
        std::make_shared<CXTPReportSnapshot>(CXTPReportSnapshot::Take(m_columns, m_records));
    if (*before != *after)
        m_undo->push(new CXTPReportUndoCommand(this, m_changeText, before, std::move(after)));
    ShowMessages();
}

void CXTPReportControl::Tell(const CString& message)
{
    if (std::find(m_messages.begin(), m_messages.end(), message) == m_messages.end())
        m_messages.push_back(message);
    if (m_changeDepth == 0) ShowMessages();
}

void CXTPReportControl::ShowMessages()
{
    CString text;
    for (const CString& message : std::exchange(m_messages, {}))
        text += (text.empty() ? L"" : L"\n") + message;
    if (!text.empty()) MessageBox(this, text, L"提示", MB_ICONINFORMATION);
}

void CXTPReportControl::Restore(const CXTPReportSnapshot& snapshot)
{
    const auto before = CXTPReportSnapshot::Take(m_columns, m_records);
    snapshot.PutBack(m_columns, m_records);
    Populate();
    // The user sees what has changed, wherever the grid was scrolled to.
    if (const auto place = snapshot.FirstChange(before))
        setCurrentIndex(IndexOf(place->first, place->second));
    emit UndoDone();
}

void CXTPReportControl::ClearUndo()
{
    m_undo->clear();
}

bool CXTPReportControl::CanUndo() const
{
    return m_allowEdit && m_undo->canUndo();
}

bool CXTPReportControl::CanRedo() const
{
    return m_allowEdit && m_undo->canRedo();
}

void CXTPReportControl::Undo()
{
    if (CanUndo()) m_undo->undo();
}

void CXTPReportControl::Redo()
{
    if (CanRedo()) m_undo->redo();
}

void CXTPReportControl::SortByColumn(int column)
{
    const CXTPReportColumn* const key = ShownColumn(column);
    if (!key) return;
    const auto text = [key](const auto& record) {
        const auto* const item = record->GetItem(key->GetItemIndex());
        return item ? item->GetCaption() : CString();
    };
    const CXTPReportUserChange change(*this, L"排序");
    auto records = m_records.All();
    std::stable_sort(records.begin(), records.end(), [&text](const auto& a, const auto& b) {
        return CompareNoCase(text(a), text(b)) < 0;
    });
    m_records.Assign(std::move(records));
    Populate();
}

// Cells

CXTPReportRecord* CXTPReportControl::RecordAt(const QModelIndex& index) const
{
    return index.isValid() ? m_model->Record(index.row()) : nullptr;
}

CXTPReportColumn* CXTPReportControl::ColumnAt(const QModelIndex& index) const
{
    return index.isValid() ? m_model->Column(index.column()) : nullptr;
}

CXTPReportRecordItem* CXTPReportControl::ItemAt(const QModelIndex& index) const
{
    return m_model->Item(index);
}

QModelIndex CXTPReportControl::IndexOf(int row, int column) const
{
    return m_model->index(row, column);
}

CXTPReportColumn* CXTPReportControl::ShownColumn(int column) const
{
    return m_model->Column(column);
}

bool CXTPReportControl::IsEditable(const QModelIndex& index) const
{
    return m_model->flags(index) & Qt::ItemIsEditable;
}

std::vector<int> CXTPReportControl::VisibleColumns() const
{
    std::vector<int> columns;
    for (int column = 0; column < m_model->columnCount(); ++column)
        if (!isColumnHidden(column)) columns.push_back(column);
    return columns;
}

QModelIndex CXTPReportControl::NextEditable(const QModelIndex& from, bool down, bool forward) const
{
    // All shown cells in the order that the key walks them.
    QModelIndexList cells;
    const std::vector<int> columns = VisibleColumns();
    const int rows = m_model->rowCount();
    for (int i = 0; i < rows * static_cast<int>(columns.size()); ++i) {
        const int width = static_cast<int>(columns.size());
        const int column = down ? i / rows : i % width;
        cells.append(IndexOf(down ? i % rows : i / width, columns[static_cast<size_t>(column)]));
    }
    if (!forward) std::reverse(cells.begin(), cells.end());
    const auto start = from.isValid() ? cells.indexOf(from) + 1 : 0;
    const auto next = std::find_if(cells.begin() + start, cells.end(),
                                   [this](const QModelIndex& cell) { return IsEditable(cell); });
    return next == cells.end() ? QModelIndex() : *next;
}

// Clipboard

QModelIndexList CXTPReportControl::SelectedCells() const
{
    QModelIndexList cells = selectionModel()->selectedIndexes();
    cells.removeIf([this](const QModelIndex& cell) { return isColumnHidden(cell.column()); });
    if (cells.isEmpty() && currentIndex().isValid()) cells.append(currentIndex());
    std::sort(cells.begin(), cells.end());
    return cells;
}

void CXTPReportControl::Copy() const
{
    std::vector<CStringArray> rows;
    int row = -1;
    for (const QModelIndex& cell : SelectedCells()) {
        if (cell.row() != row) rows.emplace_back();
        row = cell.row();
        const CXTPReportRecordItem* const item = ItemAt(cell);
        rows.back().push_back(item ? item->GetCaption() : CString());
    }
    if (!rows.empty()) QApplication::clipboard()->setText(ToQString(FormatTabText(rows)));
}

void CXTPReportControl::Cut()
{
    Copy();
    DeleteSelection();
}

void CXTPReportControl::DeleteSelection()
{
    const CXTPReportUserChange change(*this, L"清除");
    for (const QModelIndex& cell : SelectedCells())
        if (IsEditable(cell) && !ItemAt(cell)->GetCaption().empty()) EnterText(cell, {});
}

void CXTPReportControl::Paste()
{
    const auto rows = ParseTabText(FromQString(QApplication::clipboard()->text()));
    const QModelIndexList cells = SelectedCells();
    if (rows.empty() || cells.isEmpty()) return;
    const CXTPReportUserChange change(*this, L"粘贴");
    if (rows.size() > 1 || rows.front().size() > 1) {
        PasteBlock(rows, cells.front());
        return;
    }
    for (const QModelIndex& cell : cells)
        if (IsEditable(cell)) EnterText(cell, rows.front().front());
}

void CXTPReportControl::PasteBlock(const std::vector<CStringArray>& rows,
                                   const QModelIndex& topLeft)
{
    const std::vector<int> columns = VisibleColumns();
    const auto left = std::find(columns.begin(), columns.end(), topLeft.column());
    QItemSelection pasted;
    for (size_t r = 0; r < rows.size(); ++r) {
        auto column = left;
        for (const CString& text : rows[r]) {
            if (column == columns.end()) break;
            const QModelIndex cell = IndexOf(topLeft.row() + static_cast<int>(r), *column++);
            if (!IsEditable(cell)) continue;
            EnterText(cell, text);
            pasted.select(cell, cell);
        }
    }
    if (!pasted.isEmpty()) selectionModel()->select(pasted, QItemSelectionModel::ClearAndSelect);
}

// Keys and mouse

bool CXTPReportControl::IsUndoKey(const QKeyEvent* event)
{
    return event->matches(QKeySequence::Undo);
}

bool CXTPReportControl::IsRedoKey(const QKeyEvent* event)
{
    const bool ctrlY = event->key() == Qt::Key_Y && event->modifiers() == Qt::ControlModifier;
    return ctrlY || event->matches(QKeySequence::Redo);
}

bool CXTPReportControl::IsMoveOnKey(const QKeyEvent* event)
{
    if (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) return false;
    switch (event->key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Up:
    case Qt::Key_Down:
        return true;
    default:
        return false;
    }
}

void CXTPReportControl::MoveOn(const QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down) {
        const int step = key == Qt::Key_Up ? -1 : 1;
        const QModelIndex next = currentIndex().siblingAtRow(currentIndex().row() + step);
        if (next.isValid()) setCurrentIndex(next);
        return;
    }
    const bool back = key == Qt::Key_Backtab || (event->modifiers() & Qt::ShiftModifier);
    const bool down = key == Qt::Key_Return || key == Qt::Key_Enter;
    const QModelIndex next = NextEditable(currentIndex(), down, !back);
    if (!next.isValid()) return;
    setCurrentIndex(next);
    edit(next);
}

bool CXTPReportControl::HandleKey(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy))
        Copy();
    else if (event->matches(QKeySequence::Cut))
        Cut();
    else if (event->matches(QKeySequence::Paste))
        Paste();
    else if (event->matches(QKeySequence::Delete))
        DeleteSelection();
    else if (IsUndoKey(event))
        Undo();
    else if (IsRedoKey(event))
        Redo();
    else
        return false;
    return true;
}

void CXTPReportControl::keyPressEvent(QKeyEvent* event)
{
    if (HandleKey(event)) return;
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && IsEditable(currentIndex()))
        edit(currentIndex());
    else if (enter || event->key() == Qt::Key_Escape)
        event->ignore(); // for the dialog
    else
        QTableView::keyPressEvent(event);
}

void CXTPReportControl::inputMethodEvent(QInputMethodEvent* event)
{
    // Qt opens the editor for a text that comes at once, without being composed (full-width
    // digits do), but drops the text.
    const bool atOnce = !event->commitString().isEmpty() && event->preeditString().isEmpty();
    if (!atOnce || m_delegate->Editor() || !IsEditable(currentIndex())) {
        QTableView::inputMethodEvent(event);
        return;
    }
    edit(currentIndex());
    if (QLineEdit* const editor = m_delegate->Editor()) QApplication::sendEvent(editor, event);
}

bool CXTPReportControl::event(QEvent* event)
{
    // The grid's keys come before a window's shortcuts of the same name.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        if (IsUndoKey(key) || IsRedoKey(key) || key->matches(QKeySequence::Copy) ||
            key->matches(QKeySequence::Cut) || key->matches(QKeySequence::Paste) ||
            key->matches(QKeySequence::Delete)) {
            event->accept();
            return true;
        }
    }
    return QTableView::event(event);
}

bool CXTPReportControl::focusNextPrevChild(bool next)
{
    const QModelIndex cell = NextEditable(currentIndex(), false, next);
    if (!cell.isValid()) return QTableView::focusNextPrevChild(next);
    setCurrentIndex(cell);
    return true;
}

void CXTPReportControl::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) ApplyHeights();
}

void CXTPReportControl::mousePressEvent(QMouseEvent* event)
{
    const bool plain = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    QTableView::mousePressEvent(event);
    m_pressed = plain ? indexAt(event->position().toPoint()) : QModelIndex();
}

void CXTPReportControl::mouseReleaseEvent(QMouseEvent* event)
{
    QTableView::mouseReleaseEvent(event);
    const QModelIndex released = indexAt(event->position().toPoint());
    const bool clicked = released.isValid() && released == m_pressed;
    m_pressed = QModelIndex();
    // A drag over several cells selects them; a click on one edits it.
    if (!clicked || !m_editOnClick || !IsEditable(released)) return;
    CommitEdit();
    edit(released);
}

void CXTPReportControl::contextMenuEvent(QContextMenuEvent* event)
{
    // The menu key: the place is the current cell's.
    const QPoint pos = visualRect(currentIndex()).center();
    OnRightClick(pos, viewport()->mapToGlobal(pos));
    event->accept();
}

void CXTPReportControl::OnRightClick(const QPoint& viewportPos, const QPoint& globalPos)
{
    CommitEdit();
    emit RowRightClick(m_model->Record(rowAt(viewportPos.y())),
                       m_model->Column(columnAt(viewportPos.x())), globalPos);
}
