// A cell for a decimal number. Its range is the page's matter.
#pragma once

#include "pages/framework/MyRecordItemValue.h"

class CMyRecordItemPositiveDouble : public CMyRecordItemValue {
public:
    // The text has that many decimals; `trimZeros` leaves out zeros at its end.
    CMyRecordItemPositiveDouble(int decimals, bool trimZeros);
    CMyRecordItemPositiveDouble(int decimals, bool trimZeros, double value);

    double GetValue() const { return GetNumber(); }
    void SetValue(double value) { SetNumber(value); }
    CString GetExactText() const override;

protected:
    CString TextOf(const Values& values) const override;
    Values Read(CXTPReportControl* control, const CString& text) const override;

private:
    bool m_bTrimZeros;
    int m_nDecimals;
};

// An empty cell with that many decimals.
template <int Decimals, bool TrimZeros> CMyRecordItemValue* MakeDecimalCell()
{
    return new CMyRecordItemPositiveDouble(Decimals, TrimZeros);
}
