// Asks for a range of radii in metres, such as 150~250.
#pragma once

#include "pages/RadiusRangeText.h"
#include "platform/vmrd/VMRDControls/InputDialog.h"

class CInputRadiusRangeDialog : public CInputDialog {
public:
    using CInputDialog::CInputDialog;

    CString Title() const override;
    CString Prompt() const override;
    bool CheckValue(CString& value) override;

    // The range that was accepted.
    const RadiusRange& GetRange() const { return m_range; }

private:
    RadiusRange m_range;
};
