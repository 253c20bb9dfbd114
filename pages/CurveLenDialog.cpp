#include "pages/CurveLenDialog.h"

namespace {

constexpr UINT kDialogResource = 105;

using C = CDSCurveMinLen;
constexpr SpeedTableRow<C> kRows[] = {
    {&C::HorizontalCurveMinLen, L"平曲线最小长度(m)"},
    {&C::CircularCurveMinLen, L"圆曲线最小长度(m)"},
};

} // namespace

CCurveLenDialog::CCurveLenDialog() : CSpeedTablePage(kDialogResource, kRows) {}
