// What a report grid has to tell its user about what was entered.
#pragma once

#include "platform/mfc/String.h"

class QWidget;

namespace designspec {

class ReportNotices {
public:
    // Notices are shown over `owner`, and only while its window is.
    explicit ReportNotices(QWidget* owner) : m_owner(owner) {}

    // Shows it once the event at hand has been dealt with, so that no box opens in the midst of a
    // change or of a window's end. One box then tells all that was added, each thing once.
    void Add(const CString& notice);
    // Shows at once what was added, if anything, and waits.
    void Show();

private:
    QWidget* m_owner;
    CStringArray m_notices;
};

} // namespace designspec
