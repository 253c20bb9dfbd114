#include "model/Criteria.h"

#include <array>

#include "base/NoCase.h"

namespace designspec {

namespace {

template <size_t Index> CriterionInfo MakeInfo()
{
    constexpr auto criterion = std::get<Index>(kCriteria);
    using Class = typename FieldDetail::MemberOf<decltype(criterion.member)>::Value;
    return {criterion.name, criterion.label, criterion.group, Class::Fields(),
            [](CDesignSpecification& specification) -> void* {
                return &(specification.*std::get<Index>(kCriteria).member);
            }};
}

template <size_t... Index> auto MakeInfos(std::index_sequence<Index...>)
{
    return std::array{MakeInfo<Index>()...};
}

} // namespace

std::span<const CriterionInfo> Criteria()
{
    static const auto infos =
        MakeInfos(std::make_index_sequence<std::tuple_size_v<decltype(kCriteria)>>());
    return infos;
}

const CriterionInfo* FindCriterion(std::wstring_view name)
{
    for (const CriterionInfo& one : Criteria())
        if (EqualNoCase(one.name, name)) return &one;
    return nullptr;
}

const Field* FindField(std::span<const Field> fields, std::wstring_view key)
{
    for (const Field& one : fields)
        if (EqualNoCase(one.key, key)) return &one;
    return nullptr;
}

} // namespace designspec
