#include "model/VerticalCurve.h"

using namespace designspec;

namespace {

constexpr struct {
    std::int32_t speed, convexGeneral, convexLimit, concaveGeneral, concaveLimit, length;
} kDefaults[] = {
    {80, 4500, 3000, 2700, 1800, 70}, {60, 1800, 1200, 1500, 1000, 50},
    {50, 1350, 900, 1050, 700, 40},   {45, 750, 500, 850, 550, 40},
    {40, 600, 400, 700, 450, 35},     {35, 450, 300, 550, 350, 30},
    {30, 400, 250, 400, 250, 25},     {25, 250, 150, 250, 170, 20},
    {20, 150, 100, 150, 100, 20},     {15, 90, 60, 90, 60, 15},
};

} // namespace

CDSVerticalCurveMinRadAndLen::CDSVerticalCurveMinRadAndLen()
{
    for (const auto& row : kDefaults) {
        AddSpeed(ConvexGeneralMinRad, row.speed, row.convexGeneral);
        AddSpeed(ConvexLimitMinRad, row.speed, row.convexLimit);
        AddSpeed(ConcaveGeneralMinRad, row.speed, row.concaveGeneral);
        AddSpeed(ConcaveLimitMinRad, row.speed, row.concaveLimit);
        AddSpeed(MinLens, row.speed, row.length);
    }
}

CDSVerticalCurveMinRadAndLen::CDSVerticalCurveMinRadAndLen(
    const CDSVerticalCurveMinRadAndLen& other) = default;
CDSVerticalCurveMinRadAndLen&
CDSVerticalCurveMinRadAndLen::operator=(const CDSVerticalCurveMinRadAndLen& other) = default;
CDSVerticalCurveMinRadAndLen::~CDSVerticalCurveMinRadAndLen() = default;

std::span<const Field> CDSVerticalCurveMinRadAndLen::Fields()
{
    using C = CDSVerticalCurveMinRadAndLen;
    static constexpr Field kFields[] = {
        MakeField<&C::Criterion>(L"Criterion", L"数据来源"),
        MakeField<&C::ConvexGeneralMinRad>(L"ConvexGeneralMinRad", L"凸竖曲线一般最小半径", L"m"),
        MakeField<&C::ConvexLimitMinRad>(L"ConvexLimitMinRad", L"凸竖曲线极限最小半径", L"m"),
        MakeField<&C::ConcaveGeneralMinRad>(L"ConcaveGeneralMinRad", L"凹竖曲线一般最小半径", L"m"),
        MakeField<&C::ConcaveLimitMinRad>(L"ConcaveLimitMinRad", L"凹竖曲线极限最小半径", L"m"),
        MakeField<&C::MinLens>(L"MinLens", L"竖曲线最小长度", L"m"),
    };
    return kFields;
}

void CDSVerticalCurveMinRadAndLen::DoPropExchange(CXTPPropExchange* pPX)
{
    ExchangeFields(pPX, this, Fields());
}
