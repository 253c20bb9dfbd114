#include "model/SpecificationValue.h"

#include <cmath>

#include <gtest/gtest.h>

#include "base/Format.h"
#include "base/Text.h"

using namespace designspec;

namespace {

class SpecificationValue : public testing::Test {
protected:
    static ValuePath Path(const CString& text)
    {
        const ParsedPath parsed = ParseValuePath(text);
        EXPECT_EQ(parsed.problem, L"") << ToUtf8(text);
        return parsed.path;
    }
    // The value as text, "-" when there is none, or what is wrong.
    CString At(const CString& path)
    {
        ValuePlace place;
        const CString problem = FindValue(m_specification, Path(path), place);
        if (!problem.empty()) return problem;
        return place.field ? ValueText(*place.field, place.object) : L"-";
    }
    CString Write(const CString& path, const CString& value)
    {
        return WriteValue(m_specification, Path(path), value);
    }
    // A write that is refused, and changes nothing.
    CString Refused(const CString& path, const CString& value)
    {
        const CDesignSpecification before = m_specification;
        const CString problem = Write(path, value);
        EXPECT_FALSE(problem.empty());
        EXPECT_TRUE(m_specification == before);
        return problem;
    }
    CString Remove(const CString& path) { return RemoveRow(m_specification, Path(path)); }

    CDesignSpecification m_specification;
};

} // namespace

TEST_F(SpecificationValue, IsFoundByItsPath)
{
    EXPECT_EQ(At(L"CircularCurveRad.MaxRad"), L"10000");
    EXPECT_EQ(At(L"CircularCurveRad.SuperelevationMinRad[80]"), L"250");
    EXPECT_EQ(At(L"CircularCurveRad.SuperelevationMinRad[80].value"), L"250");
    EXPECT_EQ(At(L"LonGradMaxLen.rows[5.5].lengths[80]"), L"500");
    EXPECT_EQ(At(L"LonGradMaxLen.rows[5.5].Grad"), L"5.5");
    EXPECT_EQ(At(L"SuperElevation.definitions[4].rows[50].ranges[230~400].superElev"), L"2");
    EXPECT_EQ(At(L"SuperElevation.definitions[4].rows[50].ranges[230~400]"), L"2");
    EXPECT_EQ(At(L"CurveWidening.ranges[150~200].widenings[铰接车].widening"), L"0.55");
}

TEST_F(SpecificationValue, IsNotThereWithoutItsRow)
{
    EXPECT_EQ(At(L"CircularCurveRad.SuperelevationMinRad[70]"), L"-");
    EXPECT_EQ(At(L"LonGradMaxLen.rows[9].lengths[80]"), L"-");
    EXPECT_EQ(At(L"LonGradMaxLen.rows[9].lengths"), L"-");
    EXPECT_EQ(At(L"SuperElevation.definitions[6].rows[80].ranges[200~301].superElev"), L"-");
}

TEST_F(SpecificationValue, ATableIsFoundAsWell)
{
    ValuePlace place;
    EXPECT_EQ(FindValue(m_specification, Path(L"LonGradMaxLen.rows[6].lengths"), place), L"");
    EXPECT_EQ(&place.field->Of<SpeedToIntValues>(place.object),
              &m_specification.LonGradMaxLen.rows[2].lengths);
}

TEST_F(SpecificationValue, RowsAndCriteriaAreMoreThanAValue)
{
    for (const wchar_t* path :
         {L"LonGrad", L"LonGradMaxLen.rows", L"LonGradMaxLen.rows[6]",
          L"SuperElevation.definitions[6]", L"CurveWidening.ranges[150~200]"}) {
        EXPECT_EQ(At(path), path + CString(L" 不是一个值,请指定其中的一个"));
        EXPECT_EQ(Refused(path, L"1"), path + CString(L" 不是一个值,请指定其中的一个"));
    }
    EXPECT_EQ(Refused(L"LonGradMinLen.MinLens", L"1"),
              L"LonGradMinLen.MinLens 不是一个值,请指定其中的一个");
}

TEST_F(SpecificationValue, IsWrittenInItsPlace)
{
    EXPECT_EQ(Write(L"LonGrad.MinGrad", L"0.5"), L"");
    EXPECT_EQ(m_specification.LonGrad.MinGrad, 0.5);
    EXPECT_EQ(Write(L"SuperElevation.definitions[4].rows[50].ranges[230~400].superElev", L"3"),
              L"");
    EXPECT_EQ(m_specification.SuperElevation.definitions[1].rows[1].ranges[2].superElev, 3);
    EXPECT_EQ(Write(L"CurveWidening.ranges[150~200].widenings[铰接车]", L"0.6"), L"");
    EXPECT_EQ(m_specification.CurveWidening.ranges[1].widenings[2].widening, 0.6);
}

TEST_F(SpecificationValue, RowsAreAddedInTheirOrder)
{
    EXPECT_EQ(Write(L"LonGradMinLen.MinLens[70]", L"200"), L"");
    EXPECT_EQ(m_specification.LonGradMinLen.MinLens[1], (SpeedEntry<std::int32_t>{70, 200}));
    EXPECT_EQ(Write(L"LonGradMaxLen.rows[5.2].lengths[60]", L"700"), L"");
    EXPECT_EQ(m_specification.LonGradMaxLen.rows[1], (GradientRow{5.2, {{60, 700}}}));
    EXPECT_EQ(Write(L"SuperElevation.definitions[4].rows[55].ranges[9~10].superElev", L"1"), L"");
    EXPECT_EQ(m_specification.SuperElevation.definitions[1].rows[1],
              (SuperElevSpeedRow{55, {{9, 10, 1}}}));
    EXPECT_EQ(Write(L"SuperElevation.definitions[5].rows[55].ranges[9~10].superElev", L"1"), L"");
    EXPECT_EQ(m_specification.SuperElevation.definitions[3],
              (SuperElevDefinition{5, {{55, {{9, 10, 1}}}}}));
    EXPECT_EQ(Write(L"CurveWidening.ranges[9~10].widenings[Bus].widening", L"2"), L"");
    EXPECT_EQ(m_specification.CurveWidening.ranges[9], (WideningRange{9, 10, {{L"Bus", 2}}}));
}

TEST_F(SpecificationValue, ATableIsWrittenWhole)
{
    const auto write = [this](const CString& path, const std::vector<std::int32_t>& speeds,
                              const std::vector<double>& values) {
        ValuePlace place;
        EXPECT_EQ(FindValue(m_specification, Path(path), place), L"");
        return WriteTable(place, speeds, values);
    };
    EXPECT_EQ(write(L"LonGradMinLen.MinLens", {40, 100, 60}, {70, 400, 160}), L"");
    const SpeedToIntValues written{{100, 400}, {60, 160}, {40, 70}};
    EXPECT_EQ(m_specification.LonGradMinLen.MinLens, written);
    EXPECT_EQ(write(L"LonGradMinLen.MinLens", {40, 60}, {70, 0.5}), L"值“0.5”不是整数");
    EXPECT_EQ(write(L"LonGradMinLen.MinLens", {40}, {3e9}), L"值“3e+09”不是整数");
    EXPECT_EQ(write(L"LonGradMinLen.MinLens", {40}, {NAN}), L"值“nan”不是整数");
    EXPECT_EQ(write(L"LonGradMinLen.MinLens", {40, 60, 40}, {1, 2, 3}), L"车速 40 不止一次");
    EXPECT_EQ(m_specification.LonGradMinLen.MinLens, written);

    EXPECT_EQ(write(L"LonGrad.MaxGradLimitedValues", {80}, {INFINITY}), L"值“inf”不是数");
    EXPECT_EQ(write(L"LonGrad.MaxGradLimitedValues", {80}, {5.5}), L"");
    EXPECT_EQ(m_specification.LonGrad.MaxGradLimitedValues, (SpeedToDoubleValues{{80, 5.5}}));
    EXPECT_EQ(write(L"LonGrad.MaxGradLimitedValues", {}, {}), L"");
    EXPECT_TRUE(m_specification.LonGrad.MaxGradLimitedValues.IsEmpty());
}

TEST_F(SpecificationValue, OthersOfTheLastKeyGo)
{
    m_specification.LonGradMinLen.MinLens = {{80, 1}, {60, 2}, {80, 3}, {80, 4}};
    EXPECT_EQ(Write(L"LonGradMinLen.MinLens[80]", L"5"), L"");
    EXPECT_EQ(m_specification.LonGradMinLen.MinLens, (SpeedToIntValues{{80, 5}, {60, 2}}));
}

TEST_F(SpecificationValue, IsRefusedWithItsReason)
{
    EXPECT_EQ(Refused(L"LonGradMinLen.MinLens[80]", L"x"), L"值“x”不是整数");
    EXPECT_EQ(Refused(L"LonGradMinLen.MinLens[70]", L"x"), L"值“x”不是整数");
    EXPECT_EQ(Refused(L"LonGradMinLen.MinLens[70]", L"-1"), L"值不能小于 0");
    for (const wchar_t* speed : {L"9", L"151", L"-80"})
        EXPECT_EQ(Refused(Format(L"LonGradMinLen.MinLens[%s]", CString(speed)), L"1"),
                  L"车速 必须大于等于 10 并且小于等于 150");
    EXPECT_EQ(Refused(L"LonGradMaxLen.rows[-1].lengths[60]", L"1"), L"坡度不能小于 0");
    EXPECT_EQ(Refused(L"LonGradMaxLen.rows[9].lengths[200]", L"1"),
              L"车速 必须大于等于 10 并且小于等于 150");
    EXPECT_EQ(Refused(L"CurveWidening.ranges[30~20].widenings[a]", L"1"),
              L"半径下限必须小于半径上限");
    EXPECT_EQ(Refused(L"CurveWidening.ranges[20~20].widenings[a]", L"1"),
              L"半径下限必须小于半径上限");
    EXPECT_EQ(Refused(L"LonGradMaxLen.rows[6].Grad", L"7"),
              L"LonGradMaxLen.rows[6].Grad 是键,不能修改");
    m_specification.TransitionCurveMinLen.NoTCBySuperelevation = 1;
    EXPECT_EQ(Refused(L"TransitionCurveMinLen.NoTCByMinRad[80]", L"1"),
              L"NoTCByMinRad 在当前条件下不用,也不会保存");
}

TEST_F(SpecificationValue, ARowThatAFileHoldsIsWrittenWhateverItsKey)
{
    m_specification.LonGradMinLen.MinLens = {{200, 1}};
    EXPECT_EQ(Write(L"LonGradMinLen.MinLens[200]", L"5"), L"");
    EXPECT_EQ(m_specification.LonGradMinLen.MinLens, (SpeedToIntValues{{200, 5}}));
}

TEST_F(SpecificationValue, ARowIsRemoved)
{
    EXPECT_EQ(Remove(L"LonGradMinLen.MinLens[80]"), L"");
    EXPECT_EQ(m_specification.LonGradMinLen.MinLens[0].speed, 60);
    EXPECT_EQ(Remove(L"LonGradMinLen.MinLens[80]"), L"表中没有车速 80");
    EXPECT_EQ(Remove(L"LonGradMaxLen.rows[6]"), L"");
    EXPECT_EQ(m_specification.LonGradMaxLen.rows[2].Grad, 6.5);
    EXPECT_EQ(Remove(L"LonGradMaxLen.rows[6].lengths[60]"), L"表中没有车速 60");
    EXPECT_EQ(Remove(L"SuperElevation.definitions[6].rows[80].ranges[200~300]"), L"");
    EXPECT_EQ(m_specification.SuperElevation.definitions[0].rows[0].ranges[0].minRadius, 300);
    EXPECT_EQ(Remove(L"CurveWidening.ranges[200~250].widenings[小型汽车]"), L"");
    EXPECT_EQ(m_specification.CurveWidening.ranges[0].widenings.count, 2);
    EXPECT_EQ(Remove(L"CircularCurveRad.MaxRad"), L"CircularCurveRad.MaxRad 不是表中的一行");
    EXPECT_EQ(Remove(L"LonGrad"), L"LonGrad 不是表中的一行");
}
