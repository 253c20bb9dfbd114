// Asks for a new whole number, such as a design speed in km/h.
#pragma once

#include "platform/vmrd/VMRDControls/InputDialog.h"

class CInputIntValueDialog : public CInputDialog {
public:
    // `name` is the quantity's name in the title and the messages. `values` are present already
    // and may not be entered again. `minimum` to `maximum`, both allowed, is the range; equal
    // ends stand for no range at all.
    CInputIntValueDialog(const CString& name, const CString& prompt, const CArray<int>& values,
                         QWidget* parent, int minimum, int maximum);

    CString Title() const override;
    CString Prompt() const override;
    bool CheckValue(CString& value) override;

private:
    // Why the text is refused; empty when it is not.
    CString Fault(const CString& text) const;

    CString m_name;
    CString m_prompt;
    CArray<int> m_values;
    int m_minimum;
    int m_maximum;
};
