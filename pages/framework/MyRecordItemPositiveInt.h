// A cell for a whole number of 0 or more.
#pragma once

#include "pages/framework/MyRecordItemValue.h"

class CMyRecordItemPositiveInt : public CMyRecordItemValue {
public:
    int GetValue() const { return static_cast<int>(GetNumber()); }
    void SetValue(int value) { SetNumber(value); }

protected:
    CString TextOf(const Values& values) const override;
    // 12.7 gives 12.
    Values Read(CXTPReportControl* control, const CString& text) const override;
};
