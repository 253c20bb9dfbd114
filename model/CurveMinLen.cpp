#include "model/CurveMinLen.h"

using namespace designspec;

CDSCurveMinLen::CDSCurveMinLen()
    : HorizontalCurveMinLen{{80, 140}, {60, 100}, {50, 85}, {40, 70}, {30, 50}, {20, 40}},
      CircularCurveMinLen{{80, 70}, {60, 50}, {50, 40}, {40, 35}, {30, 25}, {20, 20}}
{
}

CDSCurveMinLen::CDSCurveMinLen(const CDSCurveMinLen& other) = default;
CDSCurveMinLen& CDSCurveMinLen::operator=(const CDSCurveMinLen& other) = default;
CDSCurveMinLen::~CDSCurveMinLen() = default;

std::span<const Field> CDSCurveMinLen::Fields()
{
    using C = CDSCurveMinLen;
    static constexpr Field kFields[] = {
        MakeField<&C::Criterion>(L"Criterion", L"数据来源"),
        MakeField<&C::HorizontalCurveMinLen>(L"HorizontalCurveMinLen", L"平曲线最小长度", L"m"),
        MakeField<&C::CircularCurveMinLen>(L"CircularCurveMinLen", L"圆曲线最小长度", L"m"),
    };
    return kFields;
}

void CDSCurveMinLen::DoPropExchange(CXTPPropExchange* pPX)
{
    ExchangeFields(pPX, this, Fields());
}

CSmallAngleCurveMinLen::CSmallAngleCurveMinLen()
    : HorizontalCurveMinLen{{80, 1000}, {60, 700}, {50, 600}, {40, 500}, {30, 350}, {20, 280}}
{
}

CSmallAngleCurveMinLen::CSmallAngleCurveMinLen(const CSmallAngleCurveMinLen& other) = default;
CSmallAngleCurveMinLen&
CSmallAngleCurveMinLen::operator=(const CSmallAngleCurveMinLen& other) = default;
CSmallAngleCurveMinLen::~CSmallAngleCurveMinLen() = default;

std::span<const Field> CSmallAngleCurveMinLen::Fields()
{
    using C = CSmallAngleCurveMinLen;
    static constexpr Field kFields[] = {
        MakeField<&C::Criterion>(L"Criterion", L"数据来源"),
        MakeField<&C::HorizontalCurveMinLen>(L"HorizontalCurveMinLen", L"平曲线最小长度", L"m/α"),
    };
    return kFields;
}

void CSmallAngleCurveMinLen::DoPropExchange(CXTPPropExchange* pPX)
{
    ExchangeFields(pPX, this, Fields());
}
