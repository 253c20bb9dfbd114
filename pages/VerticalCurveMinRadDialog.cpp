#include "pages/VerticalCurveMinRadDialog.h"

namespace {

constexpr UINT kDialogResource = 112;

using C = CDSVerticalCurveMinRadAndLen;
constexpr SpeedTableRow<C> kRows[] = {
    {&C::ConvexGeneralMinRad, L"凸竖曲线一般\n最小半径"},
    {&C::ConvexLimitMinRad, L"凸竖曲线极限\n最小半径"},
    {&C::ConcaveGeneralMinRad, L"凹竖曲线一般\n最小半径"},
    {&C::ConcaveLimitMinRad, L"凹竖曲线极限\n最小半径"},
    {&C::MinLens, L"竖曲线最小长度"},
};

} // namespace

CVerticalCurveMinRadDialog::CVerticalCurveMinRadDialog()
    : CSpeedTablePage(kDialogResource, kRows, {.headerWidth = 100})
{
}
