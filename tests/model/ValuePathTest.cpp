#include "model/ValuePath.h"

#include <gtest/gtest.h>

#include "base/Format.h"
#include "base/Text.h"

using namespace designspec;

namespace {

CString ProblemOf(const wchar_t* path)
{
    return ParseValuePath(path).problem;
}

} // namespace

TEST(ValuePath, IsReadIgnoringCaseAndWrittenInItsOwn)
{
    for (const wchar_t* text :
         {L"CircularCurveRad", L"CircularCurveRad.MaxRad", L"CircularCurveRad.SuperelevationMinRad",
          L"CircularCurveRad.SuperelevationMinRad[80]", L"LonGradMaxLen.rows[5.5].lengths[80]",
          L"SuperElevation.definitions[6].rows[80].ranges[200~300].superElev",
          L"CurveWidening.ranges[200~250].widenings[小型汽车].widening"}) {
        const ParsedPath parsed = ParseValuePath(text);
        EXPECT_EQ(parsed.problem, L"");
        EXPECT_EQ(parsed.path.Text(), text);
    }
    EXPECT_EQ(ParseValuePath(L"longradmaxlen.ROWS[ 5.50 ].Lengths[+80]").path.Text(),
              L"LonGradMaxLen.rows[5.5].lengths[80]");
}

TEST(ValuePath, TakesLabelsForNames)
{
    for (const auto& [text, path] :
         {std::pair{L"圆曲线半径", L"CircularCurveRad"},
          std::pair{L"设超高最小半径", L"CircularCurveRad.SuperelevationMinRad"},
          std::pair{L"设超高最小半径[80]", L"CircularCurveRad.SuperelevationMinRad[80]"},
          std::pair{L"圆曲线半径.圆曲线最大半径", L"CircularCurveRad.MaxRad"},
          std::pair{L"CircularCurveRad.圆曲线最大半径", L"CircularCurveRad.MaxRad"},
          std::pair{L"纵坡最大坡长.数据来源", L"LonGradMaxLen.Criterion"},
          std::pair{L"纵坡最大坡长.rows[6].最大坡长[60]", L"LonGradMaxLen.rows[6].lengths[60]"}}) {
        const ParsedPath parsed = ParseValuePath(text);
        EXPECT_EQ(parsed.problem, L"");
        EXPECT_EQ(parsed.path.Text(), path);
    }
}

TEST(ValuePath, ALabelOfSeveralIsAskedBack)
{
    EXPECT_EQ(ProblemOf(L"平曲线最小长度"), L"“平曲线最小长度”不止一个,请写作其中之一:\n"
                                            L"  CurveMinLen.HorizontalCurveMinLen\n"
                                            L"  SmallAngleCurveMinLen.HorizontalCurveMinLen");
    EXPECT_FALSE(ParseValuePath(L"数据来源").isWrongName);
    EXPECT_EQ(ProblemOf(L"圆曲线最大半径[80]"), L"CircularCurveRad.MaxRad 没有行");
    EXPECT_EQ(ProblemOf(L"圆曲线半径[80]"), L"没有条目“圆曲线半径[80]”");
}

TEST(ValuePath, TakesAnyTextAsAKeyButForABracketBeforeAPoint)
{
    const ParsedPath parsed = ParseValuePath(L"CurveWidening.ranges[1~2].widenings[a.b[c]d]");
    EXPECT_EQ(parsed.problem, L"");
    EXPECT_EQ(parsed.path.steps.back().keys, std::vector<Value>{CString(L"a.b[c]d")});
    EXPECT_EQ(parsed.path.LastField()->key, CString(L"widenings"));
}

TEST(ValuePath, TellsWhichNameIsNone)
{
    for (const auto& [text, problem] :
         {std::pair{L"", L"没有条目“”"}, std::pair{L"Radius.MaxRad", L"没有条目“Radius”"},
          std::pair{L"LonGrad[3].MinGrad", L"没有条目“LonGrad[3]”"},
          std::pair{L"LonGrad.Max", L"LonGrad 没有字段“Max”"},
          std::pair{L"LonGrad.MinGrad.x", L"LonGrad.MinGrad 没有字段“x”"},
          std::pair{L"LonGradMaxLen.rows[5].x", L"LonGradMaxLen.rows[5] 没有字段“x”"}}) {
        const ParsedPath parsed = ParseValuePath(text);
        EXPECT_EQ(parsed.problem, problem);
        EXPECT_TRUE(parsed.isWrongName);
        EXPECT_EQ(parsed.path.criterion != nullptr, CString(problem).starts_with(L"LonGrad"))
            << ToUtf8(text);
    }
}

TEST(ValuePath, TellsWhatIsWrongWithAKey)
{
    EXPECT_EQ(ProblemOf(L"LonGrad.MinGrad[3]"), L"LonGrad.MinGrad 没有行");
    EXPECT_EQ(ProblemOf(L"LonGradMaxLen.rows[x]"), L"坡度“x”不是数");
    EXPECT_EQ(ProblemOf(L"LonGradMaxLen.rows[]"), L"坡度“”不是数");
    EXPECT_EQ(ProblemOf(L"LonGradMaxLen.rows.lengths"),
              L"LonGradMaxLen.rows 有多行,请用 [坡度] 指定");
    EXPECT_EQ(ProblemOf(L"CurveWidening.ranges[200]"), L"半径上限“”不是整数");
    EXPECT_EQ(ProblemOf(L"CurveWidening.ranges[1~2~3]"), L"半径上限“2~3”不是整数");
    for (const wchar_t* text :
         {L"LonGradMaxLen.rows[5", L"LonGradMaxLen.", L"LonGradMaxLen.rows[5]."})
        EXPECT_EQ(ProblemOf(text), Format(L"路径“%s”没有写完", CString(text)));
    EXPECT_FALSE(ParseValuePath(L"LonGradMaxLen.rows[x]").isWrongName);
}

TEST(ValuePath, ATableTakesOneKey)
{
    ValuePath path = ParseValuePath(L"LonGradMinLen.MinLens").path;
    EXPECT_EQ(path.AddKey(L"8o"), L"车速“8o”不是整数");
    path = ParseValuePath(L"LonGradMinLen.MinLens").path;
    EXPECT_EQ(path.AddKey(L"80"), L"");
    EXPECT_EQ(path.Text(), L"LonGradMinLen.MinLens[80]");
    EXPECT_EQ(path.AddKey(L"80"), L"LonGradMinLen.MinLens[80] 没有行");
}

TEST(ValuePath, AllOfACriterionNameTheirKeys)
{
    std::vector<CString> paths;
    for (const wchar_t* criterion : {L"LonGradMaxLen", L"SuperElevation", L"CurveWidening"})
        for (const PathLabel& one : PathsOf(*FindCriterion(criterion)))
            paths.push_back(one.path + L" " + one.label);
    EXPECT_EQ(paths,
              (std::vector<CString>{
                  L"LonGradMaxLen.Criterion 数据来源", L"LonGradMaxLen.rows[坡度].lengths 最大坡长",
                  L"SuperElevation.Criterion 数据来源",
                  L"SuperElevation.definitions[最大超高].rows[车速].ranges[半径下限~半径上限]"
                  L".superElev 超高",
                  L"CurveWidening.Criterion 数据来源",
                  L"CurveWidening.IsGMinAndLEMaxMode 半径范围含上限、不含下限",
                  L"CurveWidening.ranges[半径下限~半径上限].widenings[车型].widening 加宽"}));
}
