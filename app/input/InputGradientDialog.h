// Asks for a new gradient in percent, with at most one decimal.
#pragma once

#include "app/input/CheckedInputDialog.h"

class CInputGradientDialog : public CCheckedInputDialog {
public:
    // `gradients`, in percent, are present already and may not be entered again.
    CInputGradientDialog(const CString& title, const CString& prompt,
                         const CArray<double>& gradients, QWidget* parent);

protected:
    CString Fault(CString& value) override;

private:
    CArray<double> m_gradients;
};
