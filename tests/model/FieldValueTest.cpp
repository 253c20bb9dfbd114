#include "model/FieldValue.h"

#include <gtest/gtest.h>

#include "base/Format.h"
#include "base/Text.h"
#include "model/Criteria.h"

using namespace designspec;

namespace {

const Field& FieldAt(const wchar_t* criterion, const wchar_t* key)
{
    return *FindField(FindCriterion(criterion)->fields, key);
}

// What is wrong with the text, or the value as text.
CString Parsed(const Field& field, const CString& text)
{
    Value value;
    const CString problem = ParseValue(field, text, L"值", value);
    return problem.empty() ? ValueText(value) : problem;
}

} // namespace

TEST(FieldValue, IsReadAndWrittenWhateverTheKind)
{
    CDesignSpecification specification;
    const auto change = [&](const wchar_t* criterion, const wchar_t* key, const Value& value) {
        void* object = FindCriterion(criterion)->get(specification);
        SetValue(FieldAt(criterion, key), object, value);
        EXPECT_EQ(GetValue(FieldAt(criterion, key), object), value);
        return ValueText(FieldAt(criterion, key), object);
    };
    EXPECT_EQ(change(L"CircularCurveRad", L"MaxRad", 7), L"7");
    EXPECT_EQ(change(L"LonGrad", L"MinGrad", 0.25), L"0.25");
    EXPECT_EQ(change(L"CurveWidening", L"IsGMinAndLEMaxMode", 5), L"1");
    EXPECT_EQ(change(L"LonGrad", L"Criterion", CString(L" 甲 ")), L" 甲 ");
    EXPECT_EQ(specification.CircularCurveRad.MaxRad, 7);
    EXPECT_EQ(specification.LonGrad.Criterion, L" 甲 ");
}

TEST(FieldValue, IsParsedByTheKindOfItsField)
{
    const Field& whole = FieldAt(L"CircularCurveRad", L"MaxRad");
    EXPECT_EQ(Parsed(whole, L" +12 "), L"12");
    EXPECT_EQ(Parsed(whole, L"-3"), L"-3");
    EXPECT_EQ(Parsed(whole, L"1.5"), L"值“1.5”不是整数");
    const Field& decimal = FieldAt(L"LonGrad", L"MinGrad");
    EXPECT_EQ(Parsed(decimal, L"-0"), L"0");
    EXPECT_EQ(Parsed(decimal, L"1e-3"), L"0.001");
    EXPECT_EQ(Parsed(decimal, L"１"), L"值“１”不是数");
    const Field& flag = FieldAt(L"CurveWidening", L"IsGMinAndLEMaxMode");
    EXPECT_EQ(Parsed(flag, L"TRUE"), L"1");
    EXPECT_EQ(Parsed(flag, L"2"), L"值应为 0 或 1");
    const Field& text = FieldAt(L"LonGrad", L"Criterion");
    EXPECT_EQ(Parsed(text, L" a b\n"), L"a b");
    EXPECT_EQ(Parsed(text, L"\x1"), L"值中有文件无法记录的字符");
    EXPECT_EQ(Parsed(Key(text), L" a "), L" a ");
}

TEST(FieldValue, TextsAreTheSameIgnoringCase)
{
    EXPECT_TRUE(IsSameValue(CString(L"Bus"), CString(L"bUS")));
    EXPECT_FALSE(IsSameValue(CString(L"Bus"), CString(L"Car")));
    EXPECT_TRUE(IsSameValue(5, 5));
    EXPECT_FALSE(IsSameValue(5, 5.0));
}

TEST(FieldValue, IsNegativeBelowNought)
{
    EXPECT_TRUE(IsNegative(-1));
    EXPECT_TRUE(IsNegative(-0.1));
    EXPECT_FALSE(IsNegative(0));
    EXPECT_FALSE(IsNegative(0.0));
    EXPECT_FALSE(IsNegative(CString(L"-1")));
}

TEST(FieldValue, IsReadableWithItsUnit)
{
    const auto text = [](std::span<const Field> fields, const wchar_t* key, const Value& value) {
        const Field& field = *FindField(fields, key);
        return ReadableText(field, value, field.unit);
    };
    const auto radii = CDSCircularCurveRad::Fields();
    EXPECT_EQ(text(radii, L"MaxRad", 250), L"250 m");
    EXPECT_EQ(text(radii, L"MaxRad", 0), L"0 (不限)");
    EXPECT_EQ(text(radii, L"MaxRadCriterion", CString(L"JTG")), L"JTG");
    EXPECT_EQ(text(radii, L"MaxRadCriterion", CString()), L"(未填)");
    EXPECT_EQ(text(CDSLonGrad::Fields(), L"MinGrad", 0.3), L"0.3%");
    EXPECT_EQ(text(CDSMaxSuperElevation::Fields(), L"GradualChangeRatio1", 150), L"1/150");
    EXPECT_EQ(text(CTransitionCurveMinLen::Fields(), L"NoTCBySuperelevation", 1), L"是");
    EXPECT_EQ(text(CTransitionCurveMinLen::Fields(), L"NoTCBySuperelevation", 0), L"否");
    EXPECT_EQ(ReadableText(*FindField(radii, L"MaxRad"), 250), L"250");
}
