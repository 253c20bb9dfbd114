// A dialog that asks for one value and tells why it refuses one.
#pragma once

#include "platform/vmrd/VMRDControls/InputDialog.h"

class CCheckedInputDialog : public CInputDialog {
public:
    CCheckedInputDialog(const CString& title, const CString& prompt, QWidget* parent);

    CString Title() const override { return m_title; }
    CString Prompt() const override { return m_prompt; }
    // Shows the fault in a message box.
    bool CheckValue(CString& value) override;

protected:
    // Why `value`, which has no blanks around it, is refused; empty when it is not. The value may
    // be put in order here.
    virtual CString Fault(CString& value) = 0;

private:
    CString m_title;
    CString m_prompt;
};
