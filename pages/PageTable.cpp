#include "pages/PageTable.h"

#include "pages/BeelineLenDialog.h"
#include "pages/RadiusDialog.h"

namespace {

template <class Page> std::unique_ptr<CDSPage> Make(CDSPage*)
{
    return std::make_unique<Page>();
}

constexpr PageEntry kPages[] = {
    {L"平面", L"直线长度", Make<CBeelineLenDialog>},
    {L"平面", L"圆曲线半径", Make<CRadiusDialog>},
};

} // namespace

std::span<const PageEntry> PageTable()
{
    return kPages;
}
