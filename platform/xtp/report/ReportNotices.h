// What a report grid has to tell its user about what was entered.
#pragma once

#include <vector>

#include "platform/mfc/String.h"

class QWidget;

namespace designspec {

class ReportNotices {
public:
    // Notices are shown over `owner`, and only while its window is.
    explicit ReportNotices(QWidget* owner) : m_owner(owner) {}

    // Shows it once the event at hand has been dealt with and no mouse button is down, so that no
    // box opens in the midst of a change, of a window's end or of a press on a button. One box then
    // tells all that was added, each thing once.
    void Add(const CString& notice);
    // Until it is called again, what is added is about that cell, which the box names. Empty: about
    // the one that the user has just left.
    void SetCell(const CString& name) { m_cell = name; }
    // What was added and not yet shown; it will not be shown any more.
    CString Take();
    // Shows at once what was added, if anything, and waits.
    void Show();

private:
    struct Notice {
        CString text;
        CStringArray cells;
    };

    QWidget* m_owner;
    void ShowLater();

    CString m_cell;
    std::vector<Notice> m_notices;
};

} // namespace designspec
