#include "model/LonGrad.h"

using namespace designspec;

CDSLonGrad::CDSLonGrad()
    : MaxGradRecommendedValues{{80, 4}, {60, 5}, {50, 5.5}, {40, 6}, {30, 7}, {20, 8}},
      MaxGradLimitedValues{{80, 6}, {60, 7}, {50, 7}, {40, 8}, {30, 9}, {20, 9}}
{
}

CDSLonGrad::CDSLonGrad(const CDSLonGrad& other) = default;
CDSLonGrad& CDSLonGrad::operator=(const CDSLonGrad& other) = default;
CDSLonGrad::~CDSLonGrad() = default;

std::span<const Field> CDSLonGrad::Fields()
{
    using C = CDSLonGrad;
    static constexpr Field kFields[] = {
        MakeField<&C::MinGrad>(L"MinGrad", L"最小纵坡", L"%"),
        MakeField<&C::GradeCompensationOnPlateau>(L"GradeCompensationOnPlateau",
                                                  L"高原地区最大纵坡折减", L"%"),
        MakeField<&C::MaxGradeOnSnowFrozenRegion>(L"MaxGradeOnSnowFrozenRegion",
                                                  L"积雪冰冻地区最大纵坡", L"%"),
        MakeField<&C::Criterion>(L"Criterion", L"数据来源"),
        MakeField<&C::MaxGradRecommendedValues>(L"MaxGradRecommendedValues", L"最大纵坡推荐值",
                                                L"%"),
        MakeField<&C::MaxGradLimitedValues>(L"MaxGradLimitedValues", L"最大纵坡限制值", L"%"),
    };
    return kFields;
}

void CDSLonGrad::DoPropExchange(CXTPPropExchange* pPX)
{
    ExchangeFields(pPX, this, Fields());
}
