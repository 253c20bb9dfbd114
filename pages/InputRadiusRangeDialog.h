// Asks for a range of radii in metres, such as 150~250.
#pragma once

#include "app/input/CheckedInputDialog.h"
#include "pages/RadiusRangeText.h"

class CInputRadiusRangeDialog : public CCheckedInputDialog {
public:
    explicit CInputRadiusRangeDialog(QWidget* parent = nullptr);

    // The range that was accepted.
    const RadiusRange& GetRange() const { return m_range; }

protected:
    CString Fault(CString& value) override;

private:
    RadiusRange m_range;
};
