// The keys of a report grid.
#pragma once

#include <functional>

#include <QModelIndex>

class CXTPReportControl;
class QKeyEvent;

namespace designspec {

class ReportClipboard;
class ReportUndo;

class ReportKeys {
public:
    ReportKeys(CXTPReportControl& grid, ReportClipboard& clipboard, ReportUndo& undo)
        : m_grid(grid), m_clipboard(clipboard), m_undo(undo)
    {
    }

    static bool IsUndo(const QKeyEvent* event);
    static bool IsRedo(const QKeyEvent* event);
    // Keys that end an edit and go to another cell: Tab, Enter (with Shift: back), up and down.
    static bool IsMoveOn(const QKeyEvent* event);

    // Clipboard, emptying, undo and redo: whether it is such a key, which comes before a window's
    // shortcut of the same name.
    bool IsCommand(const QKeyEvent* event) const { return static_cast<bool>(CommandOf(event)); }
    // Does what such a key says; false, and nothing, for another key.
    bool Command(const QKeyEvent* event);

    // Goes to where a key that moves on leads from the current cell; Tab and Enter go on editing
    // there.
    void MoveOn(const QKeyEvent* event);
    // Goes to the next cell that can be edited, to the right and then in the next row, or the
    // other way round; false where there is none.
    bool Walk(bool forward);
    // Goes to the first value, or to the last one; also where they can only be read.
    void GoToFirstValue(bool forward);

private:
    std::function<void()> CommandOf(const QKeyEvent* event) const;
    QModelIndex NextEditable(bool down, bool forward) const;

    CXTPReportControl& m_grid;
    ReportClipboard& m_clipboard;
    ReportUndo& m_undo;
};

} // namespace designspec
