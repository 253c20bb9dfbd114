#include "platform/xtp/report/ReportKeys.h"

#include <QKeyEvent>

#include "platform/xtp/report/ReportClipboard.h"
#include "platform/xtp/report/ReportControl.h"
#include "platform/xtp/report/ReportUndo.h"

using namespace designspec;

namespace {

bool IsCtrlShift(const QKeyEvent* event, Qt::Key key)
{
    return event->key() == key && event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
}

} // namespace

bool ReportKeys::IsUndo(const QKeyEvent* event)
{
    return event->matches(QKeySequence::Undo);
}

bool ReportKeys::IsRedo(const QKeyEvent* event)
{
    const bool ctrlY = event->key() == Qt::Key_Y && event->modifiers() == Qt::ControlModifier;
    return ctrlY || event->matches(QKeySequence::Redo);
}

bool ReportKeys::IsMoveOn(const QKeyEvent* event)
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

std::function<void()> ReportKeys::CommandOf(const QKeyEvent* event) const
{
    using Clipboard = ReportClipboard;
    if (IsCtrlShift(event, Qt::Key_C)) return [this] { m_clipboard.Copy(Clipboard::kPlain); };
    if (IsCtrlShift(event, Qt::Key_V)) return [this] { m_clipboard.Paste(Clipboard::kPlain); };
    if (event->matches(QKeySequence::Copy))
        return [this] { m_clipboard.Copy(Clipboard::kWithCaptions); };
    if (event->matches(QKeySequence::Cut)) return [this] { m_clipboard.Cut(); };
    if (event->matches(QKeySequence::Paste))
        return [this] { m_clipboard.Paste(Clipboard::kWithCaptions); };
    if (event->matches(QKeySequence::Delete)) return [this] { m_clipboard.Delete(); };
    if (IsUndo(event)) return [this] { m_undo.Undo(); };
    if (IsRedo(event)) return [this] { m_undo.Redo(); };
    return {};
}

bool ReportKeys::Command(const QKeyEvent* event)
{
    const auto command = CommandOf(event);
    if (command) command();
    return static_cast<bool>(command);
}

void ReportKeys::MoveOn(const QKeyEvent* event)
{
    const int key = event->key();
    const QModelIndex from = m_grid.currentIndex();
    if (key == Qt::Key_Up || key == Qt::Key_Down) {
        const QModelIndex next = from.siblingAtRow(from.row() + (key == Qt::Key_Up ? -1 : 1));
        if (next.isValid()) m_grid.setCurrentIndex(next);
        return;
    }
    const bool back = key == Qt::Key_Backtab || (event->modifiers() & Qt::ShiftModifier);
    const bool down = key == Qt::Key_Return || key == Qt::Key_Enter;
    const QModelIndex next = NextEditable(down, !back);
    if (!next.isValid()) return;
    m_grid.setCurrentIndex(next);
    m_grid.edit(next);
}

bool ReportKeys::Walk(bool forward)
{
    const QModelIndex next = NextEditable(false, forward);
    if (next.isValid()) m_grid.setCurrentIndex(next);
    return next.isValid();
}

void ReportKeys::GoToFirstValue(bool forward)
{
    const int columns = m_grid.model()->columnCount();
    const int cells = m_grid.model()->rowCount() * columns;
    for (int i = 0; i < cells; ++i) {
        const int number = forward ? i : cells - 1 - i;
        const QModelIndex cell = m_grid.IndexOf(number / columns, number % columns);
        if (const auto* const item = m_grid.ItemAt(cell); !item || !item->IsEditable()) continue;
        m_grid.setCurrentIndex(cell);
        return;
    }
}

QModelIndex ReportKeys::NextEditable(bool down, bool forward) const
{
    // The cells have numbers in the order that the key walks them.
    const int rows = m_grid.model()->rowCount();
    const int columns = m_grid.model()->columnCount();
    const auto cell = [&](int number) {
        return down ? m_grid.IndexOf(number % rows, number / rows)
                    : m_grid.IndexOf(number / columns, number % columns);
    };
    const QModelIndex from = m_grid.currentIndex();
    int number = forward ? -1 : rows * columns;
    if (from.isValid())
        number = down ? from.column() * rows + from.row() : from.row() * columns + from.column();
    const int step = forward ? 1 : -1;
    for (number += step; number >= 0 && number < rows * columns; number += step)
        if (m_grid.IsEditable(cell(number))) return cell(number);
    return {};
}
