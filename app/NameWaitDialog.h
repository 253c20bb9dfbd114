// Waits for a name to become free in the library.
#pragma once

#include <QTimer>

#include "platform/mfc/Dialog.h"

// Names the clash. DoModal returns IDOK when no specification bears the name any more, IDCANCEL
// when the user does not want to wait.
class CNameWaitDialog : public CDialog {
public:
    CNameWaitDialog(const CString& name, QWidget* parent);

    // True when a specification of the library bears the name, in any case.
    static bool IsTaken(const CString& name);

protected:
    bool OnInitDialog() override;

private:
    CString m_name;
    QTimer m_timer;
};
