#include "platform/xtp/report/ReportDelegate.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPainter>

#include "platform/xtp/report/ReportControl.h"

namespace {

constexpr int kEditorMargin = 2;

// Text of several cells, which is for the grid and not for one cell's editor.
bool IsBlockOnClipboard()
{
    const QString text = QApplication::clipboard()->text().trimmed();
    return text.contains(u'\t') || text.contains(u'\n');
}

// A number that is wider than its column can be seen while it is typed.
void GrowWithText(QLineEdit* editor)
{
    const int wanted = editor->fontMetrics().horizontalAdvance(editor->text()) + 4 * kEditorMargin;
    const int room = editor->parentWidget()->width() - editor->x();
    if (wanted > editor->width()) editor->resize(std::min(wanted, room), editor->height());
}

QPalette::ColorGroup GroupOf(const QStyleOptionViewItem& option)
{
    if (!(option.state & QStyle::State_Enabled)) return QPalette::Disabled;
    return option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
}

} // namespace

CXTPReportDelegate::CXTPReportDelegate(CXTPReportControl* control)
    : QStyledItemDelegate(control), m_control(control)
{
}

void CXTPReportDelegate::EndEdit(bool commit)
{
    const QPointer<QLineEdit> editor = m_editor;
    if (!editor) return;
    if (commit) emit commitData(editor);
    if (!editor || editor != m_editor) return;
    const bool hadFocus = editor->window()->focusWidget() == editor;
    emit closeEditor(editor, NoHint);
    if (hadFocus) m_control->setFocus();
}

void CXTPReportDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    CXTPReportItemDraw draw;
    draw.control = m_control;
    draw.rect = option.rect.adjusted(0, 0, -1, -1);
    draw.palette = option.palette;
    draw.palette.setCurrentColorGroup(GroupOf(option));
    // The cell that keys act on is framed and not filled, so that it stands out in its block.
    draw.focused = option.state & QStyle::State_HasFocus;
    draw.selected = (option.state & QStyle::State_Selected) && !draw.focused;

    painter->save();
    painter->setFont(option.font);
    if (const auto* item = m_control->ItemAt(index))
        item->Draw(*painter, draw);
    else
        painter->fillRect(draw.rect,
                          draw.selected ? draw.palette.highlight() : draw.palette.base());
    painter->restore();

    painter->save();
    m_control->GetPaintManager()->DrawGrid(*painter, option.rect);
    if (draw.focused) {
        painter->setPen(QPen(draw.palette.color(QPalette::Highlight), 2));
        painter->drawRect(draw.rect.adjusted(1, 1, -1, -1));
    }
    painter->restore();
}

QWidget* CXTPReportDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                          const QModelIndex&) const
{
    auto* const editor = new QLineEdit(parent);
    editor->setFrame(false);
    editor->setAlignment(Qt::AlignCenter);
    editor->setTextMargins(kEditorMargin, 0, kEditorMargin, 0);
    editor->setContextMenuPolicy(Qt::NoContextMenu); // a right click is for the grid
    connect(editor, &QLineEdit::textChanged, editor, [editor] { GrowWithText(editor); });
    m_editor = editor;
    return editor;
}

void CXTPReportDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const
{
    if (editor == m_editor) m_editor = nullptr;
    QStyledItemDelegate::destroyEditor(editor, index);
}

void CXTPReportDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* const edit = static_cast<QLineEdit*>(editor);
    edit->setText(index.data(Qt::EditRole).toString());
    edit->selectAll();
}

void CXTPReportDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                      const QModelIndex& index) const
{
    const QString text = static_cast<QLineEdit*>(editor)->text();
    if (text != index.data(Qt::EditRole).toString()) model->setData(index, text, Qt::EditRole);
}

void CXTPReportDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                              const QModelIndex&) const
{
    editor->setGeometry(option.rect.adjusted(0, 0, -1, -1));
    GrowWithText(static_cast<QLineEdit*>(editor));
}

bool CXTPReportDelegate::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && watched == m_editor &&
        HandleKey(static_cast<QKeyEvent*>(event)))
        return true;
    return QStyledItemDelegate::eventFilter(watched, event);
}

bool CXTPReportDelegate::HandleKey(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Paste) && IsBlockOnClipboard()) {
        EndEdit(false);
        m_control->Paste();
        return true;
    }
    // Nothing left to undo in the editor: the key is for the grid.
    const bool undo = CXTPReportControl::IsUndoKey(event) && !m_editor->isUndoAvailable();
    const bool redo = CXTPReportControl::IsRedoKey(event) && !m_editor->isRedoAvailable();
    if (undo || redo) {
        EndEdit(false);
        if (undo)
            m_control->Undo();
        else
            m_control->Redo();
        return true;
    }
    if (!CXTPReportControl::IsMoveOnKey(event)) return false;
    EndEdit(true);
    m_control->MoveOn(event);
    return true;
}
