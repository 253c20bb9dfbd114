// Asks for a new whole number, such as a design speed in km/h.
#pragma once

#include "app/input/CheckedInputDialog.h"

class CInputIntValueDialog : public CCheckedInputDialog {
public:
    // `name` is the quantity's name in the title and the messages. `values` are present already
    // and may not be entered again. `minimum` to `maximum`, both allowed, is the range; equal
    // ends stand for no range at all.
    CInputIntValueDialog(const CString& name, const CString& prompt, const CArray<int>& values,
                         QWidget* parent, int minimum, int maximum);

protected:
    CString Fault(CString& value) override;

private:
    CString m_name;
    CArray<int> m_values;
    int m_minimum;
    int m_maximum;
};
