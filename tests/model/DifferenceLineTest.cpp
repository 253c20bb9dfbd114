#include "model/DifferenceLine.h"

#include <gtest/gtest.h>

using namespace designspec;

namespace {

Difference Make(const CString& label, const CString& key, std::optional<CString> left,
                std::optional<CString> right)
{
    Difference one;
    one.label = label;
    one.key = key;
    one.left = std::move(left);
    one.right = std::move(right);
    return one;
}

} // namespace

TEST(DifferenceLine, TellsValuesAndTheirPlaces)
{
    EXPECT_EQ(InOneLine({}), L"");
    EXPECT_EQ(InOneLine({Make(L"半径", L"车速 60 km/h", L"250 m", L"300 m")}),
              L"半径 车速 60 km/h: 250 m → 300 m");
    EXPECT_EQ(InOneLine({Make(L"名称", L"", L"a", L"b"), Make(L"长度", L"", {}, L"1 m"),
                         Make(L"长度", L"", L"1 m", {})}),
              L"名称: a → b; 长度: 无 → 1 m; 长度: 1 m → 无");
}

TEST(DifferenceLine, TellsHowManyThereAreAndLongTextsInPart)
{
    const std::vector<Difference> four(4, Make(L"a", L"", L"1", L"2"));
    EXPECT_EQ(InOneLine(four), L"a: 1 → 2; a: 1 → 2; a: 1 → 2 … 共 4 处");
    EXPECT_EQ(InOneLine(four, 1), L"a: 1 → 2 … 共 4 处");
    EXPECT_EQ(InOneLine({Make(L"a", L"", CString(24, L'x'), CString(25, L'y'))}),
              L"a: " + CString(24, L'x') + L" → " + CString(24, L'y') + L"…");
    EXPECT_EQ(InOneLine({Make(L"a", L"", L"1\n2", L"")}), L"a: 1\\n2 → ");
}

TEST(DifferenceLine, OfRealSpecifications)
{
    CDesignSpecification left;
    CDesignSpecification right = left;
    right.BeelineLen.MaxLen = 25;
    EXPECT_EQ(InOneLine(Differences(left, right)),
              L"最大直线长度: 20 倍设计速度(km/h) → 25 倍设计速度(km/h)");
}
