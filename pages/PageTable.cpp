#include "pages/PageTable.h"

#include "pages/BeelineLenDialog.h"
#include "pages/CurveLenDialog.h"
#include "pages/CurveWideningPage.h"
#include "pages/LonGradDialog.h"
#include "pages/LonGradLenDialog.h"
#include "pages/MaxSuperElevPage.h"
#include "pages/MinACurveLenDialog.h"
#include "pages/MinLonGradLenDialog.h"
#include "pages/RadiusDialog.h"
#include "pages/ResultantGradientDialog.h"
#include "pages/SuperElevationPage.h"
#include "pages/TransitionCurveDialog.h"
#include "pages/VerticalCurveMinRadDialog.h"

namespace {

template <class Page> std::unique_ptr<CDSPage> Make(CDSPage*)
{
    return std::make_unique<Page>();
}

// It asks the page of the maximum superelevations, which stands before it.
std::unique_ptr<CDSPage> MakeSuperElevationPage(CDSPage* before)
{
    return std::make_unique<CSuperElevationPage>(dynamic_cast<CMaxSuperElevPage*>(before));
}

constexpr PageEntry kPages[] = {
    {L"平面", L"直线长度", Make<CBeelineLenDialog>},
    {L"平面", L"圆曲线半径", Make<CRadiusDialog>},
    {L"平面", L"平曲线与圆曲线最小长度", Make<CCurveLenDialog>},
    {L"平面", L"小转角平曲线最小长度", Make<CMinACurveLenDialog>},
    {L"平面", L"缓和曲线最小长度", Make<CTransitionCurveDialog>},
    {L"纵断", L"纵坡坡度", Make<CLonGradDialog>},
    {L"纵断", L"最大合成坡度", Make<CResultantGradientDialog>},
    {L"纵断", L"纵坡最大坡长", Make<CLonGradLenDialog>},
    {L"纵断", L"纵坡最小坡长", Make<CMinLonGradLenDialog>},
    {L"纵断", L"竖曲线最小半径和长度", Make<CVerticalCurveMinRadDialog>},
    {L"超高加宽", L"超高规范", Make<CMaxSuperElevPage>},
    {L"超高加宽", L"超高", MakeSuperElevationPage},
    {L"超高加宽", L"加宽", Make<CCurveWideningPage>},
};

} // namespace

std::span<const PageEntry> PageTable()
{
    return kPages;
}
