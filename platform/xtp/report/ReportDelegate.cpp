#include "platform/xtp/report/ReportDelegate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>

#include "platform/xtp/report/ReportClipboard.h"
#include "platform/xtp/report/ReportControl.h"
#include "platform/xtp/report/ReportKeys.h"

using namespace designspec;

namespace {

constexpr int kEditorMargin = 2;

// A number that is wider than its column can be seen while it is typed.
void GrowWithText(QLineEdit* editor)
{
    const int wanted = editor->fontMetrics().horizontalAdvance(editor->text()) + 4 * kEditorMargin;
    const int room = editor->parentWidget()->width() - editor->x();
    if (wanted > editor->width()) editor->resize(std::min(wanted, room), editor->height());
}

// In the upper right corner, like a note in a spreadsheet.
void DrawMark(QPainter* painter, const QRect& cell, const QFontMetrics& font)
{
    const int side = font.height() / 2;
    const QPoint corner = cell.topRight() + QPoint(1, 0);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(213, 94, 0)); // stands out of light and dark cells
    painter->drawPolygon(QPolygon({corner - QPoint(side, 0), corner, corner + QPoint(0, side)}));
}

QPalette::ColorGroup GroupOf(const QStyleOptionViewItem& option)
{
    if (!(option.state & QStyle::State_Enabled)) return QPalette::Disabled;
    return option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
}

} // namespace

ReportDelegate::ReportDelegate(CXTPReportControl* control, ReportKeys& keys)
    : QStyledItemDelegate(control), m_control(control), m_keys(keys)
{
}

void ReportDelegate::EndEdit(bool commit)
{
    QLineEdit* const editor = m_editor;
    if (!editor) return;
    if (commit) emit commitData(editor);
    const bool hadFocus = editor->window()->focusWidget() == editor;
    emit closeEditor(editor, NoHint);
    if (hadFocus) m_control->setFocus();
}

void ReportDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const
{
    const QRect rect = option.rect.adjusted(0, 0, -1, -1);
    QPalette palette = option.palette;
    palette.setCurrentColorGroup(GroupOf(option));
    // The cell that keys act on is framed and not filled, so that it stands out in its block.
    const bool focused = option.state & QStyle::State_HasFocus;
    const bool selected = (option.state & QStyle::State_Selected) && !focused;

    painter->save();
    painter->setFont(option.font);
    if (const auto* item = m_control->ItemAt(index)) {
        item->Draw(*painter, rect, palette, selected);
        if (!item->GetMark().empty()) DrawMark(painter, rect, option.fontMetrics);
    } else {
        painter->fillRect(rect, selected ? palette.highlight() : palette.base());
    }
    painter->restore();

    painter->save();
    m_control->GetPaintManager()->DrawGrid(*painter, option.rect);
    if (focused) {
        painter->setPen(QPen(palette.color(QPalette::Highlight), 2));
        painter->drawRect(rect.adjusted(1, 1, -1, -1));
    }
    painter->restore();
}

QWidget* ReportDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                      const QModelIndex& index) const
{
    auto* const editor = new QLineEdit(parent);
    editor->setFrame(false);
    editor->setAlignment(Qt::AlignCenter);
    editor->setTextMargins(kEditorMargin, 0, kEditorMargin, 0);
    editor->setContextMenuPolicy(Qt::NoContextMenu); // a right click is for the grid
    connect(editor, &QLineEdit::textChanged, editor, [editor] { GrowWithText(editor); });
    connect(editor, &QLineEdit::textEdited, m_control,
            [control = m_control, cell = QPersistentModelIndex(index)](const QString& text) {
                emit control->Typing(cell, text);
            });
    // Back from another window by a click on something else, the editor has no focus to lose.
    m_leftOpen = false;
    connect(qApp, &QApplication::focusChanged, editor, [this, editor](QWidget*, QWidget* now) {
        if (!m_leftOpen || !now || now->window() != editor->window()) return;
        m_leftOpen = false;
        if (now != editor) const_cast<ReportDelegate*>(this)->EndEdit(true);
    });
    m_editor = editor;
    return editor;
}

void ReportDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const
{
    if (editor == m_editor) m_editor = nullptr;
    QStyledItemDelegate::destroyEditor(editor, index);
}

void ReportDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* const edit = static_cast<QLineEdit*>(editor);
    edit->setText(index.data(Qt::EditRole).toString());
    edit->selectAll();
}

void ReportDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                  const QModelIndex& index) const
{
    // What the user has typed counts, even where it reads as the cell does: the cell may show a
    // rounded number.
    const auto* const edit = static_cast<QLineEdit*>(editor);
    if (edit->isModified()) model->setData(index, edit->text(), Qt::EditRole);
}

void ReportDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                          const QModelIndex&) const
{
    editor->setGeometry(option.rect.adjusted(0, 0, -1, -1));
    GrowWithText(static_cast<QLineEdit*>(editor));
}

bool ReportDelegate::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && watched == m_editor &&
        HandleKey(static_cast<QKeyEvent*>(event)))
        return true;
    // Another window is in front: the edit goes on when the user is back.
    if (event->type() == QEvent::FocusOut && watched == m_editor &&
        static_cast<QFocusEvent*>(event)->reason() == Qt::ActiveWindowFocusReason) {
        m_leftOpen = true;
        return false;
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

bool ReportDelegate::HandleKey(const QKeyEvent* event)
{
    if (IsForGrid(event)) {
        EndEdit(false);
        return m_keys.Command(event);
    }
    if (!ReportKeys::IsMoveOn(event)) return false;
    m_control->CommitEdit();
    m_keys.MoveOn(event);
    return true;
}

bool ReportDelegate::IsForGrid(const QKeyEvent* event) const
{
    if (event->matches(QKeySequence::Paste)) return ReportClipboard::HoldsBlock();
    // Nothing is left to undo in the editor.
    if (ReportKeys::IsUndo(event)) return !m_editor->isUndoAvailable();
    return ReportKeys::IsRedo(event) && !m_editor->isRedoAvailable();
}
