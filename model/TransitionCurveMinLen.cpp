#include "model/TransitionCurveMinLen.h"

using namespace designspec;

namespace {

using C = CTransitionCurveMinLen;

constexpr Field NoTCByMinRadField()
{
    Field field =
        MakeField<&C::NoTCByMinRad>(L"NoTCByMinRad", L"不设缓和曲线的最小圆曲线半径", L"m");
    field.isUsed = [](const void* criterion) {
        return static_cast<const C*>(criterion)->NoTCBySuperelevation == 0;
    };
    return field;
}

} // namespace

// The radius table stays empty for 30 and 20 km/h.
CTransitionCurveMinLen::CTransitionCurveMinLen()
    : MinLen{{80, 70}, {60, 50}, {50, 45}, {40, 35}, {30, 25}, {20, 20}}, NoTCByMinRad{{80, 2000},
                                                                                       {60, 1000},
                                                                                       {50, 700},
                                                                                       {40, 500}}
{
}

CTransitionCurveMinLen::CTransitionCurveMinLen(const CTransitionCurveMinLen& other) = default;
CTransitionCurveMinLen&
CTransitionCurveMinLen::operator=(const CTransitionCurveMinLen& other) = default;
CTransitionCurveMinLen::~CTransitionCurveMinLen() = default;

std::span<const Field> CTransitionCurveMinLen::Fields()
{
    static constexpr Field kFields[] = {
        MakeBool<&C::NoTCBySuperelevation>(L"NoTCBySuperelevation", L"不设超高时不设缓和曲线"),
        MakeField<&C::Criterion>(L"Criterion", L"数据来源"),
        MakeField<&C::MinLen>(L"MinLen", L"缓和曲线最小长度", L"m"),
        NoTCByMinRadField(),
    };
    return kFields;
}

void CTransitionCurveMinLen::DoPropExchange(CXTPPropExchange* pPX)
{
    ExchangeFields(pPX, this, Fields());
}
