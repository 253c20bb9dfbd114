#include "model/Criteria.h"

#include "base/NoCase.h"

#include <algorithm>
#include <array>

namespace designspec {

namespace {

template <size_t Index> CriterionInfo MakeInfo()
{
    constexpr auto criterion = std::get<Index>(kCriteria);
    using Class = typename FieldDetail::MemberOf<decltype(criterion.member)>::Value;
    return {criterion.name, criterion.label, Class::Fields(),
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
    const auto all = Criteria();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const auto& one) { return EqualNoCase(one.name, name); });
    return found == all.end() ? nullptr : &*found;
}

const Field* FindField(const CriterionInfo& criterion, std::wstring_view key)
{
    const auto found = std::find_if(criterion.fields.begin(), criterion.fields.end(),
                                    [&](const auto& one) { return EqualNoCase(one.key, key); });
    return found == criterion.fields.end() ? nullptr : &*found;
}

} // namespace designspec
