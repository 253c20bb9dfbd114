// The family's dialog that asks for one value.
#pragma once

#include "base/Export.h"
#include "platform/mfc/String.h"

class QWidget;

// Controls: edit field 108, prompt 119, OK 1, Cancel 2. A derived class gives title, prompt and
// rule; the order of the virtual functions is other modules' contract.
class AFX_EXT_CLASS CInputDialog {
public:
    explicit CInputDialog(QWidget* parent = nullptr) : m_parent(parent) {}
    virtual ~CInputDialog() = default;
    CInputDialog(const CInputDialog&) = delete;
    CInputDialog& operator=(const CInputDialog&) = delete;

    virtual CString Title() const;
    virtual CString Prompt() const;
    // What the edit field holds at first; here nothing.
    virtual CString DefaultValue() const;
    // The controls stand and are filled.
    virtual void OnInitDialog();
    // The user has confirmed `value`, which may be put in order here. False keeps the dialog
    // open for another try; telling the reason is the function's own matter.
    virtual bool CheckValue(CString& value);
    // The user has cancelled; the dialog closes next.
    virtual void OnCancel();

    // Asks, and waits. True with the accepted text in `value`, which Cancel leaves as it was.
    bool Input(CString& value);
    // The window that owns messages: the dialog while it is open, its parent otherwise.
    QWidget* GetDialogWindow() const { return m_window ? m_window : m_parent; }

private:
    QWidget* m_parent;
    QWidget* m_window = nullptr;
};
