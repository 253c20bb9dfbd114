#include "model/CircularCurveRad.h"

using namespace designspec;

CDSCircularCurveRad::CDSCircularCurveRad()
    : noSuperelevationMinRad{{80, 1000}, {60, 600}, {50, 400}, {40, 300}, {30, 150}, {20, 70}},
      SuperelevationRecommendRad{{80, 400}, {60, 300}, {50, 200}, {40, 150}, {30, 85}, {20, 40}},
      SuperelevationMinRad{{80, 250}, {60, 150}, {50, 100}, {40, 70}, {30, 40}, {20, 20}}
{
}

CDSCircularCurveRad::CDSCircularCurveRad(const CDSCircularCurveRad& other) = default;
CDSCircularCurveRad& CDSCircularCurveRad::operator=(const CDSCircularCurveRad& other) = default;
CDSCircularCurveRad::~CDSCircularCurveRad() = default;

std::span<const Field> CDSCircularCurveRad::Fields()
{
    using C = CDSCircularCurveRad;
    static constexpr Field kFields[] = {
        ZeroMeans(MakeField<&C::MaxRad>(L"MaxRad", L"圆曲线最大半径", L"m"), L"不限"),
        MakeField<&C::MaxRadCriterion>(L"MaxRadCriterion", L"圆曲线最大半径的数据来源"),
        MakeField<&C::MinRadCriterion>(L"MinRadCriterion", L"圆曲线最小半径的数据来源"),
        MakeField<&C::noSuperelevationMinRad>(L"noSuperelevationMinRad", L"不设超高最小半径", L"m"),
        MakeField<&C::SuperelevationRecommendRad>(L"SuperelevationRecommendRad", L"设超高推荐半径",
                                                  L"m"),
        MakeField<&C::SuperelevationMinRad>(L"SuperelevationMinRad", L"设超高最小半径", L"m"),
    };
    return kFields;
}

void CDSCircularCurveRad::DoPropExchange(CXTPPropExchange* pPX)
{
    ExchangeFields(pPX, this, Fields());
}
