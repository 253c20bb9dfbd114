#include "model/BeelineLen.h"

using namespace designspec;

CDSBeelineLen::CDSBeelineLen() = default;
CDSBeelineLen::CDSBeelineLen(const CDSBeelineLen& other) = default;
CDSBeelineLen& CDSBeelineLen::operator=(const CDSBeelineLen& other) = default;
CDSBeelineLen::~CDSBeelineLen() = default;

std::span<const Field> CDSBeelineLen::Fields()
{
    using C = CDSBeelineLen;
    static constexpr wchar_t kUnit[] = L"倍设计速度(km/h)";
    static constexpr wchar_t kOff[] = L"不限";
    static constexpr Field kFields[] = {
        ZeroMeans(MakeAttribute<&C::MaxLen>(L"MaxLen", L"最大直线长度", kUnit), kOff),
        ZeroMeans(
            MakeAttribute<&C::MinLenInOneDir>(L"MinLenInOneDir", L"同向曲线间最小直线长度", kUnit),
            kOff),
        ZeroMeans(MakeAttribute<&C::MinLenReverseCurve>(L"MinLenReverseCurve",
                                                        L"反向曲线间最小直线长度", kUnit),
                  kOff),
        MakeField<&C::MaxLenCriterion>(L"MaxLenCriterion", L"最大直线长度的数据来源"),
        MakeField<&C::MinLenInOneDirCriterion>(L"MinLenInOneDirCriterion",
                                               L"同向曲线间最小直线长度的数据来源"),
        MakeField<&C::MinLenReverseCurveCriterion>(L"MinLenReverseCurveCriterion",
                                                   L"反向曲线间最小直线长度的数据来源"),
    };
    return kFields;
}

void CDSBeelineLen::DoPropExchange(CXTPPropExchange* pPX)
{
    ExchangeFields(pPX, this, Fields());
}
