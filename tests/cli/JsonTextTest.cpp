#include "cli/JsonText.h"
#include "base/Text.h"

#include <gtest/gtest.h>

using namespace designspec;

namespace {

TEST(JsonText, GivesTextAsUtf8)
{
    EXPECT_EQ(ToJson(CString(L"城市 \U00020BB7")), "城市 \U00020BB7");
}

TEST(JsonText, GivesNameAndIdentityOfAStyle)
{
    CDesignSpecification specification;
    specification.SetName(L"城市");
    const Json json = ToJson(static_cast<const CStyle&>(specification));
    EXPECT_EQ(json.size(), 2U);
    EXPECT_EQ(json["name"], "城市");
    EXPECT_EQ(json["id"].get<std::string>().size(), 36U);
}

TEST(JsonText, GivesEveryFieldOfACriterionUnderItsKey)
{
    CDesignSpecification specification;
    for (const CriterionInfo& criterion : Criteria()) {
        const Json json = ToJson(criterion, specification);
        for (const Field& field : criterion.fields) {
            ASSERT_TRUE(json.contains(ToUtf8(field.key)));
            EXPECT_EQ(json[ToUtf8(field.key)].is_array(), field.HasRows());
        }
    }
}

TEST(JsonText, KeepsADoubleExactly)
{
    CDesignSpecification specification;
    specification.LonGrad.MinGrad = 0.1 + 0.2;
    const Json json = ToJson(*FindCriterion(L"LonGrad"), specification);
    EXPECT_EQ(Json::parse(json.dump())["MinGrad"].get<double>(), 0.1 + 0.2);
}

} // namespace
