// Asks for the name of a widening category, such as a class of vehicles.
#pragma once

#include "platform/vmrd/VMRDControls/InputDialog.h"

class CInputWideningTypeDialog : public CInputDialog {
public:
    using CInputDialog::CInputDialog;

    CString Title() const override;
    CString Prompt() const override;
    bool CheckValue(CString& value) override;
};
