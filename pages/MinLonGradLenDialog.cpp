#include "pages/MinLonGradLenDialog.h"

namespace {

constexpr UINT kDialogResource = 111;

using C = CDSLonGradMinLen;
constexpr SpeedTableRow<C> kRows[] = {
    {&C::MinLens, L"最小坡长(m)"},
};

} // namespace

CMinLonGradLenDialog::CMinLonGradLenDialog() : CSpeedTablePage(kDialogResource, kRows) {}
