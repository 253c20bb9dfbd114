#include "model/ResultantGrad.h"

using namespace designspec;

namespace {

using C = CDSMaxResultantGrad;

constexpr const wchar_t* kLabels[C::kRoadTypes] = {
    L"城市道路", L"高速公路", L"一级公路", L"二级公路", L"三级公路", L"四级公路", L"其它道路",
};

template <C::RoadType Type> constexpr Field TableField(const wchar_t* key)
{
    Field field =
        FieldOf<SpeedToDoubleValues>(key, kLabels[Type], L"%", [](void* criterion) -> void* {
            return &static_cast<C*>(criterion)->tables[Type];
        });
    field.skipEmpty = true;
    return field;
}

} // namespace

CDSMaxResultantGrad::CDSMaxResultantGrad()
{
    tables[CityRoad] = {{80, 7}, {60, 6.5}, {50, 6.5}, {40, 7}, {30, 7}, {20, 8}};
}

CDSMaxResultantGrad::CDSMaxResultantGrad(const CDSMaxResultantGrad& other) = default;
CDSMaxResultantGrad& CDSMaxResultantGrad::operator=(const CDSMaxResultantGrad& other) = default;
CDSMaxResultantGrad::~CDSMaxResultantGrad() = default;

SpeedToDoubleValues& CDSMaxResultantGrad::Item(RoadType type)
{
    return tables[type];
}

const SpeedToDoubleValues& CDSMaxResultantGrad::Item(RoadType type) const
{
    return tables[type];
}

std::span<const Field> CDSMaxResultantGrad::Fields()
{
    static constexpr Field kFields[] = {
        MakeField<&C::Criterion>(L"Criterion", L"数据来源"),
        MakeField<&C::MaxResultantGradOnSnowFrozenRegion>(L"MaxResultantGradOnSnowFrozenRegion",
                                                          L"积雪冰冻地区最大合成坡度", L"%"),
        TableField<CityRoad>(L"CityRoad"),
        TableField<FreeWay>(L"FreeWay"),
        TableField<HighwayClass1>(L"HighwayClass1"),
        TableField<HighwayClass2>(L"HighwayClass2"),
        TableField<HighwayClass3>(L"HighwayClass3"),
        TableField<HighwayClass4>(L"HighwayClass4"),
        TableField<OtherRoad>(L"OtherRoad"),
    };
    return kFields;
}

void CDSMaxResultantGrad::DoPropExchange(CXTPPropExchange* pPX)
{
    ExchangeFields(pPX, this, Fields());
}

const wchar_t* designspec::RoadTypeLabel(int type)
{
    return type >= 0 && type < C::kRoadTypes ? kLabels[type] : L"";
}
