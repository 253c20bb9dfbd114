#include "model/ManyChange.h"

#include <gtest/gtest.h>

#include "base/Text.h"

using namespace designspec;

namespace {

using Kind = ManyChange::Kind;
using Lines = std::vector<std::string>;

ValuePath Path(const CString& text)
{
    const ParsedPath parsed = ParseValuePath(text);
    EXPECT_EQ(parsed.problem, L"") << ToUtf8(text);
    return parsed.path;
}

class MadeChangeTest : public testing::Test {
protected:
    Changed Make(const CString& path, Kind kind, const CString& operand)
    {
        return MadeChange(m_specification, {Path(path), kind, operand});
    }
    // What has changed: "车速 80 km/h: 250 m -> 275 m", or what is wrong.
    Lines Told(const CString& path, Kind kind, const CString& operand)
    {
        const Changed changed = Make(path, kind, operand);
        if (!changed.problem.empty()) {
            EXPECT_TRUE(changed.made == m_specification);
            EXPECT_TRUE(changed.differences.empty());
            return {ToUtf8(changed.problem)};
        }
        Lines lines;
        for (const Difference& one : changed.differences)
            lines.push_back(ToUtf8(one.key + L": " + one.left.value_or(L"-") + L" -> " +
                                   one.right.value_or(L"-")));
        return lines;
    }

    CDesignSpecification m_specification;
};

} // namespace

TEST_F(MadeChangeTest, SetsAddsToAndScalesOneValue)
{
    const CString path = L"CircularCurveRad.SuperelevationMinRad[80]";
    EXPECT_EQ(Told(path, Kind::Set, L" 300 "), Lines{"车速 80 km/h: 250 m -> 300 m"});
    EXPECT_EQ(Told(path, Kind::Add, L"-5"), Lines{"车速 80 km/h: 250 m -> 245 m"});
    EXPECT_EQ(Told(path, Kind::Scale, L"1.1"), Lines{"车速 80 km/h: 250 m -> 275 m"});
    EXPECT_EQ(Told(path, Kind::Set, L"250"), Lines{}) << "it is so already";
}

TEST_F(MadeChangeTest, ATableIsChangedAtAllItsSpeeds)
{
    const Changed changed = Make(L"LonGradMinLen.MinLens", Kind::Add, L"10");
    const auto& before = m_specification.LonGradMinLen.MinLens;
    const auto& after = changed.made.LonGradMinLen.MinLens;
    ASSERT_EQ(changed.differences.size(), static_cast<size_t>(before.count));
    for (std::int32_t i = 0; i < before.count; ++i)
        EXPECT_EQ(after[i].value, before[i].value + 10);
    EXPECT_EQ(Told(L"LonGradMaxLen.rows[6].lengths", Kind::Add, L"50").size(), 3U);
}

TEST_F(MadeChangeTest, WholeNumbersStayWholeAndDecimalsShort)
{
    EXPECT_EQ(Told(L"CircularCurveRad.SuperelevationMinRad[80]", Kind::Scale, L"0.333"),
              Lines{"车速 80 km/h: 250 m -> 83 m"});
    m_specification.LonGrad.MinGrad = 0.1;
    EXPECT_EQ(Told(L"LonGrad.MinGrad", Kind::Add, L"0.2"), Lines{": 0.1% -> 0.3%"});
}

TEST_F(MadeChangeTest, AValueThatIsNotThereIsAddedWhenItIsSet)
{
    const CString path = L"LonGradMinLen.MinLens[120]";
    EXPECT_EQ(Told(path, Kind::Set, L"300"), Lines{"车速 120 km/h: - -> 300 m"});
    EXPECT_EQ(Told(path, Kind::Add, L"10"), Lines{});
    EXPECT_EQ(Told(path, Kind::Scale, L"2"), Lines{});
}

TEST_F(MadeChangeTest, AZeroThatSaysSomethingIsNoNumber)
{
    m_specification.CircularCurveRad.MaxRad = 0; // 不限
    EXPECT_EQ(Told(L"CircularCurveRad.MaxRad", Kind::Add, L"500"), Lines{});
    EXPECT_EQ(Told(L"CircularCurveRad.MaxRad", Kind::Scale, L"2"), Lines{});
    EXPECT_EQ(Told(L"CircularCurveRad.MaxRad", Kind::Set, L"5000").size(), 1U);
}

TEST_F(MadeChangeTest, WhatIsWrongChangesNothing)
{
    const CString path = L"CircularCurveRad.SuperelevationMinRad";
    EXPECT_EQ(Told(path, Kind::Scale, L"x"), Lines{"“x”不是数"});
    EXPECT_EQ(Told(path, Kind::Scale, L"1e9"), Lines{"得到的数太大"});
    EXPECT_EQ(Told(path, Kind::Add, L"-30").size(), 1U) << "the last of them would be below 0";
    EXPECT_EQ(Told(path + L"[80]", Kind::Set, L"2.5"), Lines{"值“2.5”不是整数"});
    EXPECT_EQ(Told(L"CircularCurveRad.MinRadCriterion", Kind::Add, L"1").size(), 1U);
    EXPECT_EQ(Told(L"LonGradMaxLen.rows", Kind::Set, L"1").size(), 1U) << "more than a value";
    EXPECT_EQ(Told(L"BeelineLen.MaxLen", Kind::Add, L"-25").size(), 1U);
}

// The pages ask for a value at each speed of the maximum superelevations.
TEST_F(MadeChangeTest, WhatAPageWouldRefuseIsWrong)
{
    const Changed changed = Make(L"BeelineLen.MaxLen", Kind::Set, L"0.01");
    EXPECT_NE(changed.problem, L"");
}
