#include "model/MaxSuperElevation.h"

using namespace designspec;

namespace {

using C = CDSMaxSuperElevation;

constexpr Field OnSnowField()
{
    Field field =
        MakeField<&C::MaxSuperElevOnSFR>(L"MaxSuperElevOnSFR", L"积雪冰冻地区最大超高", L"%");
    field.zeroWhenMissing = true;
    return ZeroMeans(field, L"未设");
}

} // namespace

// Both runoff tables start equal.
CDSMaxSuperElevation::CDSMaxSuperElevation()
    : MaxSuperElev{{80, 6}, {60, 4}, {50, 4}, {40, 2}, {30, 2}, {20, 2}},
      GradualChangeRatio1{{80, 150}, {60, 125}, {50, 115}, {40, 100}, {30, 75}, {20, 50}},
      GradualChangeRatio2(GradualChangeRatio1)
{
}

CDSMaxSuperElevation::CDSMaxSuperElevation(const CDSMaxSuperElevation& other) = default;
CDSMaxSuperElevation& CDSMaxSuperElevation::operator=(const CDSMaxSuperElevation& other) = default;
CDSMaxSuperElevation::~CDSMaxSuperElevation() = default;

std::span<const Field> CDSMaxSuperElevation::Fields()
{
    static constexpr Field kFields[] = {
        MakeField<&C::Criterion>(L"Criterion", L"数据来源"),
        OnSnowField(),
        MakeField<&C::MaxSuperElev>(L"MaxSuperElev", L"最大超高", L"%"),
        MakeField<&C::GradualChangeRatio1>(L"GradualChangeRatio1", L"旋转轴在中线的超高渐变率",
                                           L"1/n"),
        MakeField<&C::GradualChangeRatio2>(L"GradualChangeRatio2", L"旋转轴在边线的超高渐变率",
                                           L"1/n"),
    };
    return kFields;
}

void CDSMaxSuperElevation::DoPropExchange(CXTPPropExchange* pPX)
{
    ExchangeFields(pPX, this, Fields());
}
