#include "pages/MinACurveLenDialog.h"

#include "pages/MyRecordItemSmallACurveLen.h"

namespace {

constexpr UINT kDialogResource = 106;

using C = CSmallAngleCurveMinLen;
constexpr SpeedTableRow<C> kRows[] = {
    {&C::HorizontalCurveMinLen, L"平曲线最小\n长度(m)", MakeCell<CMyRecordItemSmallACurveLen>},
};

} // namespace

CMinACurveLenDialog::CMinACurveLenDialog()
    : CSpeedTablePage(kDialogResource, kRows,
                      {.headerWidth = 95, .speedWidth = 50, .addedWidth = 50})
{
}
