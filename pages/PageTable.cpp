#include "pages/PageTable.h"

#include "pages/BeelineLenDialog.h"
#include "pages/MaxSuperElevPage.h"
#include "pages/RadiusDialog.h"
#include "pages/SuperElevationPage.h"

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
    {L"超高加宽", L"超高规范", Make<CMaxSuperElevPage>},
    {L"超高加宽", L"超高", MakeSuperElevationPage},
};

} // namespace

std::span<const PageEntry> PageTable()
{
    return kPages;
}
