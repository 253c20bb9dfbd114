// A cell for a range of radii, m. Unlike other cells it tells what is wrong with a text.
#pragma once

#include "pages/framework/MyRecordItemValue.h"

class CRadiusRangeItem : public CMyRecordItemValue {
public:
    // 0 when the cell is empty.
    int GetMinRadius() const { return static_cast<int>(GetNumber()); }
    int GetMaxRadius() const { return IsEmpty() ? 0 : static_cast<int>(GetValues().back()); }
    void SetRange(int minRadius, int maxRadius);

    Values ValuesFor(const CString& text) const override;
    CString ReadPasted(const CString& text) const override;
    CString GetRule() const override;

protected:
    CString TextOf(const Values& values) const override;
    // "250~300", "250 300" and "250,300", either end first.
    Values Read(CXTPReportControl* control, const CString& text) const override;
};
