// Asks for the name of a widening category, such as a class of vehicles.
#pragma once

#include "app/input/CheckedInputDialog.h"

class CInputWideningTypeDialog : public CCheckedInputDialog {
public:
    explicit CInputWideningTypeDialog(QWidget* parent = nullptr);

protected:
    CString Fault(CString& value) override;
};
