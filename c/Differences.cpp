// Where two specifications differ.
#include "model/Differences.h"

#include "base/Text.h"
#include "c/Objects.h"

using namespace designspec;

namespace {

struct ToldDifference {
    std::string path, label, key;
    std::optional<std::string> left, right;
};

struct DifferencesObject {
    static constexpr HandleKind kKind = HandleKind::Differences;
    static constexpr wchar_t kNoHandle[] = L"不是差异列表的句柄,或已释放";

    CDesignSpecification left, right;
    std::vector<ToldDifference> told;
};

std::optional<std::string> SideText(const std::optional<CString>& side)
{
    if (!side) return std::nullopt;
    return ToUtf8(*side);
}

const char* TextOrNull(const std::optional<std::string>& text)
{
    return text ? text->c_str() : nullptr;
}

} // namespace

designspec_status designspec_compare(const designspec_specification* left,
                                     const designspec_specification* right,
                                     designspec_differences** differences)
{
    return Call([&] {
        NeedAll(differences);
        auto object = std::make_shared<DifferencesObject>(
            DifferencesObject{ObjectOf<SpecificationObject>(left)->Get(),
                              ObjectOf<SpecificationObject>(right)->Get(),
                              {}});
        for (const Difference& one : Differences(object->left, object->right))
            object->told.push_back({ToUtf8(one.path), ToUtf8(one.label), ToUtf8(one.key),
                                    SideText(one.left), SideText(one.right)});
        HandOut(differences, std::move(object));
    });
}

designspec_status designspec_differences_free(designspec_differences* differences)
{
    return EndHandle<DifferencesObject>(differences);
}

designspec_status designspec_differences_count(const designspec_differences* differences,
                                               size_t* count)
{
    return Call([&] {
        NeedAll(count);
        *count = ObjectOf<DifferencesObject>(differences)->told.size();
    });
}

designspec_status designspec_differences_at(const designspec_differences* differences, size_t index,
                                            designspec_difference* difference)
{
    return Call([&] {
        NeedAll(difference);
        const auto object = ObjectOf<DifferencesObject>(differences);
        if (index >= object->told.size()) return DESIGNSPEC_NO_ANSWER;
        const ToldDifference& one = object->told[index];
        *difference = {one.path.c_str(), one.label.c_str(), one.key.c_str(), TextOrNull(one.left),
                       TextOrNull(one.right)};
        return DESIGNSPEC_OK;
    });
}

designspec_status designspec_differences_apply(const designspec_differences* differences,
                                               const uint8_t* taken,
                                               designspec_specification* specification)
{
    return Call([&] {
        const auto object = ObjectOf<DifferencesObject>(differences);
        CDesignSpecification& now = ObjectOf<SpecificationObject>(specification)->Get();
        CDesignSpecification left = object->left;
        left.SetName(now.Name().c_str());
        CDesignSpecification same = now;
        same.CopyCriteria(left);
        if (!(same == now)) RefuseCall(L"设计规范已改变, 与比较时不同");
        std::vector<bool> all(object->told.size(), true);
        for (size_t i = 0; taken && i < all.size(); ++i)
            all[i] = taken[i] != 0;
        ChangeTo(now, WithTaken(object->left, object->right, all));
    });
}
