// Asks for a line of text, or only shows it.
#pragma once

#include "platform/mfc/Dialog.h"

// Dialog resource 114: edit field 108, label 119, OK 1, Cancel 2.
class CInputTextDialog : public CDialog {
public:
    CInputTextDialog(const CString& title, const CString& label, QWidget* parent);

    // The text that the dialog shows, and after OK the text that the user left there.
    const CString& GetText() const { return m_text; }
    void SetText(const CString& text) { m_text = text; }
    // Before DoModal: the text can be read and copied, not changed.
    void SetReadOnly(bool readOnly) { m_readOnly = readOnly; }

protected:
    bool OnInitDialog() override;
    void OnOK() override;

private:
    CString m_title;
    CString m_label;
    CString m_text;
    bool m_readOnly = false;
};
