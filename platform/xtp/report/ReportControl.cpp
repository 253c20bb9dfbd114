#include "platform/xtp/report/ReportControl.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "base/HalfWidth.h"
#include "platform/mfc/Dialog.h"
#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportDelegate.h"
#include "platform/xtp/report/ReportHeader.h"
#include "platform/xtp/report/ReportModel.h"
#include "platform/xtp/report/ReportPaste.h"
#include "platform/xtp/report/ReportRightClick.h"

using namespace designspec;

namespace {

constexpr int kRemarkLine = 20000; // the line's control id is the grid's and this

// The layout that holds a widget, in `layout` or below it; null when none does.
QLayout* LayoutOf(QWidget* widget, QLayout* layout)
{
    if (!layout || layout->indexOf(widget) >= 0) return layout;
    for (int i = 0; i < layout->count(); ++i)
        if (QLayout* const inner = layout->itemAt(i)->layout())
            if (QLayout* const found = LayoutOf(widget, inner)) return found;
    return nullptr;
}

// Scrolls what is around the widget so far that its part can be seen.
void BringIntoView(const QWidget* widget, const QRect& part, bool sideways)
{
    for (QWidget* around = widget->parentWidget(); around && widget->isVisible();
         around = around->parentWidget())
        if (auto* const scroll = qobject_cast<QScrollArea*>(around)) {
            const int x = scroll->horizontalScrollBar()->value();
            const QPoint middle = widget->mapTo(scroll->widget(), part.center());
            scroll->ensureVisible(middle.x(), middle.y(), part.width() / 2 + 1,
                                  part.height() / 2 + 1);
            if (!sideways) scroll->horizontalScrollBar()->setValue(x);
        }
}

} // namespace

CXTPReportControl::CXTPReportControl(QWidget* parent)
    : QTableView(parent), m_model(new ReportModel(this)), m_header(new ReportHeader(this)),
      m_delegate(new ReportDelegate(this, m_keys))
{
    SetPaintManager(new CXTPReportPaintManager);
    setHorizontalHeader(m_header);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    setModel(m_model);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& cell) {
                const QWidget* const focus = QApplication::focusWidget();
                if (focus == this || (focus && isAncestorOf(focus)))
                    BringIntoView(viewport(), visualRect(cell), true);
            });
    setItemDelegate(m_delegate);
    setShowGrid(false); // the paint manager draws the lines
    setCornerButtonEnabled(false);
    setSelectionMode(ContiguousSelection);
    setTabKeyNavigation(false); // focusNextPrevChild does it, for cells that can be edited
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setEditTriggers(NoEditTriggers);
    new ReportRightClick(viewport(), [this](const QPoint& pos, const QPoint& globalPos) {
        OnRightClick(pos, globalPos);
    });
}

CXTPReportControl::~CXTPReportControl()
{
    m_delegate->EndEdit(false);
    m_header->Leave();
}

void CXTPReportControl::CreateOver(QWidget* placeholder, int controlId)
{
    QWidget* const owner = placeholder->parentWidget();
    setProperty(kControlIdProperty, controlId);
    setParent(owner);
    setGeometry(placeholder->geometry());
    setSizePolicy(placeholder->sizePolicy());
    setMinimumSize(placeholder->minimumSize());
    setAccessibleName(placeholder->accessibleName());
    placeholder->setFocusPolicy(Qt::TabFocus); // what takes no focus has no place in the order
    setTabOrder(placeholder, this);
    for (QLabel* label : owner->findChildren<QLabel*>())
        if (label->buddy() == placeholder) label->setBuddy(this);
    if (QLayout* const layout = LayoutOf(placeholder, owner->layout()))
        PlaceIn(layout, layout->indexOf(placeholder));
    placeholder->hide();
    show();
}

// The grid takes an item's place, with the line for its remark below.
void CXTPReportControl::PlaceIn(QLayout* layout, int item)
{
    auto* const both = new QVBoxLayout;
    both->setSpacing(2);
    both->addWidget(this);
    m_remarkLine = new QLabel(parentWidget());
    m_remarkLine->setProperty(kControlIdProperty,
                              property(kControlIdProperty).toInt() + kRemarkLine);
    m_remarkLine->setTextFormat(Qt::PlainText);
    m_remarkLine->setWordWrap(true);
    m_remarkLine->hide();
    both->addWidget(m_remarkLine);
    if (auto* const grid = qobject_cast<QGridLayout*>(layout)) {
        int row, column, rows, columns;
        grid->getItemPosition(item, &row, &column, &rows, &columns);
        delete grid->takeAt(item);
        grid->addLayout(both, row, column, rows, columns);
    } else if (auto* const box = qobject_cast<QBoxLayout*>(layout)) {
        const int stretch = box->stretch(item);
        delete box->takeAt(item);
        box->insertLayout(item, both, stretch);
    }
}

void CXTPReportControl::SetRemark(const CString& remark)
{
    m_remark = remark;
    if (!m_remarkLine) return;
    m_remarkLine->setText(ToQString(remark));
    m_remarkLine->setVisible(!remark.empty());
    // Where the page is scrolled the line would be out of sight; it has no place before it is laid
    // out.
    QMetaObject::invokeMethod(
        m_remarkLine, // begins on the left
        [line = m_remarkLine] { BringIntoView(line, line->rect(), false); }, Qt::QueuedConnection);
}

// Content and look

void CXTPReportControl::Populate()
{
    const QModelIndex current = currentIndex();
    const int x = horizontalScrollBar()->value();
    const int y = verticalScrollBar()->value();
    m_model->Reload();
    m_header->ApplyColumns();
    ApplyHeights();
    if (current.isValid())
        selectionModel()->setCurrentIndex(
            IndexOf(std::min(current.row(), m_model->rowCount() - 1),
                    std::min(current.column(), m_model->columnCount() - 1)),
            QItemSelectionModel::ClearAndSelect);
    // Last: the view scrolls to its current cell.
    horizontalScrollBar()->setValue(x);
    verticalScrollBar()->setValue(y);
}

void CXTPReportControl::SetPaintManager(CXTPReportPaintManager* paintManager)
{
    m_paintManager.reset(paintManager);
    m_paintManager->SetControl(this);
    ApplyHeights();
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

void CXTPReportControl::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) ApplyHeights();
}

CXTPReportColumn* CXTPReportControl::ShownColumn(int column) const
{
    return m_model->Column(column);
}

CXTPReportRecordItem* CXTPReportControl::ItemAt(const QModelIndex& index) const
{
    return m_model->Item(index);
}

bool CXTPReportControl::IsEditable(const QModelIndex& index) const
{
    return m_model->flags(index) & Qt::ItemIsEditable;
}

bool CXTPReportControl::HasCaptions() const
{
    if (m_model->rowCount() == 0) return m_rowOffer.name != nullptr; // those that it could get
    const CXTPReportRecordItem* const first = ItemAt(IndexOf(0, 0));
    return first && !first->IsEditable();
}

CString CXTPReportControl::CellName(const QModelIndex& index) const
{
    const CXTPReportRecordItem* const row =
        HasCaptions() ? ItemAt(IndexOf(index.row(), 0)) : nullptr;
    const CXTPReportColumn* const column = ShownColumn(index.column());
    return OneLine((row ? row->GetCaption() + L" " : CString()) +
                   (column ? column->GetCaption() : CString()));
}

QModelIndex CXTPReportControl::IndexOf(int row, int column) const
{
    return m_model->index(row, column);
}

// Editing

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
    m_notices.Show();
}

CString CXTPReportControl::CommitEditQuietly()
{
    m_delegate->EndEdit(true);
    return m_notices.Take();
}

void CXTPReportControl::EnterText(const QModelIndex& index, const CString& text)
{
    EnterPasted(index, text, false);
    ShowEntered();
}

void CXTPReportControl::EnterPasted(const QModelIndex& index, const CString& text, bool named)
{
    CXTPReportRecordItem* const item = ItemAt(index);
    if (!item) return;
    m_notices.SetCell(named ? CellName(index) : CString());
    m_undo.Step([&] { item->OnEditChanged(this, ToHalfWidth(text)); });
    m_notices.SetCell({});
}

void CXTPReportControl::ShowEntered()
{
    m_model->Refresh();
}

void CXTPReportControl::Tell(const CString& notice)
{
    m_notices.Add(notice);
}

// Keys

bool CXTPReportControl::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        m_keys.IsCommand(static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

void CXTPReportControl::keyPressEvent(QKeyEvent* event)
{
    if (m_keys.Command(event)) return;
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && IsEditable(currentIndex()))
        edit(currentIndex());
    else if (enter && m_allowEdit && currentIndex().isValid())
        m_keys.Walk(true); // from a caption to its first value
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

void CXTPReportControl::focusInEvent(QFocusEvent* event)
{
    QTableView::focusInEvent(event);
    const CXTPReportRecordItem* const item = ItemAt(currentIndex());
    const Qt::FocusReason reason = event->reason();
    const bool byKey = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                       reason == Qt::ShortcutFocusReason;
    if (byKey && item && !item->IsEditable())
        m_keys.GoToFirstValue(reason != Qt::BacktabFocusReason);
}

bool CXTPReportControl::focusNextPrevChild(bool next)
{
    return m_keys.Walk(next) || QTableView::focusNextPrevChild(next);
}

// Mouse

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
    if (!clicked || !IsEditable(released)) return;
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
