// Waits for a name to become free in the library.
#pragma once

#include <QTimer>

#include "platform/mfc/Dialog.h"

// Names the clash and says what to do about it. DoModal returns IDOK when no specification bears
// the name any more, kGoTo when the user wants to see the one that does, IDCANCEL when he wants
// neither.
class CNameWaitDialog : public CDialog {
public:
    static constexpr int kGoTo = 3; // the button, and what DoModal returns for it

    CNameWaitDialog(const CString& name, QWidget* parent);

    // True when a specification of the library bears the name, in any case.
    static bool IsTaken(const CString& name);

protected:
    bool OnInitDialog() override;

private:
    CString m_name;
    QTimer m_timer;
};
