// Asks for a new gradient in percent, with at most one decimal.
#pragma once

#include "platform/vmrd/VMRDControls/InputDialog.h"

class CInputGradientDialog : public CInputDialog {
public:
    // `gradients`, in percent, are present already and may not be entered again.
    CInputGradientDialog(const CString& title, const CString& prompt,
                         const CArray<double>& gradients, QWidget* parent);

    CString Title() const override;
    CString Prompt() const override;
    bool CheckValue(CString& value) override;

private:
    // Why the text is refused; empty when it is not.
    CString Fault(const CString& text) const;

    CString m_title;
    CString m_prompt;
    CArray<double> m_gradients;
};
