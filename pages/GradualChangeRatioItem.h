// A cell for a superelevation runoff: the n of 1/n, 2 to 999.
#pragma once

#include "pages/framework/MyRecordItemValue.h"

class CGradualChangeRatioItem : public CMyRecordItemValue {
public:
    explicit CGradualChangeRatioItem(int value = 0, bool empty = true);

    int GetValue() const { return static_cast<int>(GetNumber()); }
    void SetValue(int value) { SetNumber(value); }

    CString ReadPasted(const CString& text) const override;
    CString GetReadableText() const override { return GetExactText(); }
    CString GetRule() const override;

protected:
    CString TextOf(const Values& values) const override;
    // Both "1/150" and "150" are understood.
    Values Read(CXTPReportControl* control, const CString& text) const override;
};
