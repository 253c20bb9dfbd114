// A cell for the constant c of a length that is c / α.
#pragma once

#include "pages/framework/MyRecordItemPositiveInt.h"

class CMyRecordItemSmallACurveLen : public CMyRecordItemPositiveInt {
    DECLARE_DYNCREATE(CMyRecordItemSmallACurveLen)

public:
    CString ReadPasted(const CString& text) const override;

protected:
    CString TextOf(const Values& values) const override; // 1200/α
    // The user may leave "/α" out, or type a for α.
    Values Read(CXTPReportControl* control, const CString& text) const override;
};
