#include "tests/cli/CommandTest.h"

namespace {

class QueryCommand : public CommandTest {
protected:
    void SetUp() override { New("城市"); }

    std::string Query(Words words) const
    {
        words.insert(words.begin(), "query");
        return Done(words);
    }
    void NoAnswer(const std::string& text, Words words) const
    {
        words.insert(words.begin(), "query");
        Fails(1, text, words);
    }
    void Wrong(const std::string& text, Words words) const
    {
        words.insert(words.begin(), "query");
        Fails(2, text, words);
    }
};

constexpr char kMinRad[] = "CircularCurveRad.SuperelevationMinRad";

TEST_F(QueryCommand, PrintsTheBareValueAndNothingElse)
{
    EXPECT_EQ(Query({kMinRad, "--speed", "80"}), "250\n");
    EXPECT_EQ(Query({"LonGrad.MaxGradRecommendedValues", "--speed", "50"}), "5.5\n");
    EXPECT_EQ(Query({"LonGrad.MaxGradRecommendedValues", "--speed", "60"}), "5\n");
}

TEST_F(QueryCommand, TakesLabelsForNames)
{
    EXPECT_EQ(Query({"设超高最小半径", "--speed", "80"}), "250\n");
    EXPECT_EQ(Query({"设超高最小半径[60]"}), "150\n");
    EXPECT_EQ(Query({"纵坡坡度.最小纵坡"}), "0.3\n");
    EXPECT_EQ(Query({"纵坡最大坡长", "--grad", "6", "--speed", "60"}), "400\n");
    Wrong("“数据来源”不止一个,请写作其中之一:\n  CurveMinLen.Criterion\n", {"数据来源"});
}

TEST_F(QueryCommand, TakesTheNearestSpeedByDefaultAndTheHigherOneOnATie)
{
    EXPECT_EQ(Query({kMinRad, "--speed", "69"}), "150\n");
    EXPECT_EQ(Query({kMinRad, "--speed", "70"}), "250\n");
    EXPECT_EQ(Query({"CircularCurveRad.noSuperelevationMinRad", "--speed", "70"}), "1000\n");
    EXPECT_EQ(Query({"VerticalCurveMinRadAndLen.ConvexLimitMinRad", "--speed", "70"}), "3000\n");
}

TEST_F(QueryCommand, AnswersInEveryModeBetweenTwoSpeeds)
{
    const auto ask = [&](const char* mode) {
        return Query({kMinRad, "--speed", "65", "--mode", mode});
    };
    EXPECT_EQ(ask("nearest"), "150\n");
    EXPECT_EQ(ask("upper"), "250\n");
    EXPECT_EQ(ask("lower"), "150\n");
    EXPECT_EQ(ask("interpolate"), "175\n");
    EXPECT_EQ(ask("INTERPOLATE"), "175\n");
    NoAnswer("没有符合条件的值", {kMinRad, "--speed", "65", "--mode", "exact"});
}

TEST_F(QueryCommand, AnswersASpeedOfTheTableInEveryMode)
{
    for (const char* mode : {"nearest", "upper", "lower", "interpolate", "exact"})
        EXPECT_EQ(Query({kMinRad, "--speed", "60", "--mode", mode}), "150\n") << mode;
}

TEST_F(QueryCommand, ClampsOutsideTheTableWhereTheModeAllowsIt)
{
    NoAnswer("没有符合条件的值", {kMinRad, "--speed", "120", "--mode", "upper"});
    NoAnswer("没有符合条件的值", {kMinRad, "--speed", "10", "--mode", "lower"});
    for (const char* mode : {"nearest", "lower", "interpolate"})
        EXPECT_EQ(Query({kMinRad, "--speed", "120", "--mode", mode}), "250\n") << mode;
    for (const char* mode : {"nearest", "upper", "interpolate"})
        EXPECT_EQ(Query({kMinRad, "--speed", "10", "--mode", mode}), "20\n") << mode;
}

TEST_F(QueryCommand, InterpolatesADoubleTableWithoutRounding)
{
    EXPECT_EQ(Query({"MaxResultantGrad.CityRoad", "--speed", "70", "--mode", "interpolate"}),
              "6.75\n");
}

TEST_F(QueryCommand, AnswersAllSevenRoadTypes)
{
    EXPECT_EQ(Query({"MaxResultantGrad.CityRoad", "--speed", "80"}), "7\n");
    for (const char* type : {"FreeWay", "HighwayClass1", "HighwayClass2", "HighwayClass3",
                             "HighwayClass4", "OtherRoad"}) {
        const std::string path = std::string("MaxResultantGrad.") + type;
        NoAnswer("没有符合条件的值", {path, "--speed", "80"});
        EXPECT_EQ(Done({"set", path, "--speed", "80", "9.5"}), "");
        EXPECT_EQ(Query({path, "--speed", "80"}), "9.5\n");
    }
}

TEST_F(QueryCommand, NeedsNoSpeedForAScalar)
{
    EXPECT_EQ(Query({"CircularCurveRad.MaxRad"}), "10000\n");
    EXPECT_EQ(Query({"LonGrad.MinGrad"}), "0.3\n");
    EXPECT_EQ(Query({"BeelineLen.MaxLen"}), "20\n");
    EXPECT_EQ(Query({"MaxSuperElev.MaxSuperElevOnSFR"}), "0\n");
    EXPECT_EQ(Query({"TransitionCurveMinLen.NoTCBySuperelevation"}), "0\n");
    EXPECT_EQ(Query({"CurveWidening.IsGMinAndLEMaxMode"}), "1\n");
    EXPECT_EQ(Query({"CurveWidening.Criterion"}), "\n");
}

TEST_F(QueryCommand, TakesPathsInAnyCase)
{
    EXPECT_EQ(Query({"circularcurverad.MAXRAD"}), "10000\n");
}

TEST_F(QueryCommand, AnswersEveryFieldOfEveryCriterion)
{
    const Json criteria = DoneJson({"show"})["criteria"];
    for (const auto& [criterion, values] : criteria.items()) {
        for (const auto& [field, value] : values.items()) {
            if (value.is_array()) continue;
            const Json answer = DoneJson({"query", criterion + "." + field});
            EXPECT_EQ(answer["value"], value) << criterion << "." << field;
        }
    }
}

TEST_F(QueryCommand, AnswersTheGradeLength)
{
    const auto ask = [&](const char* grad, const char* speed, const char* mode) {
        return Query({"LonGradMaxLen", "--grad", grad, "--speed", speed, "--mode", mode});
    };
    EXPECT_EQ(ask("6", "60", "exact"), "400\n");
    EXPECT_EQ(ask("6.004", "60", "exact"), "400\n");
    EXPECT_EQ(ask("9", "40", "nearest"), "200\n");
    EXPECT_EQ(ask("6.25", "60", "interpolate"), "375\n");
    EXPECT_EQ(ask("6.25", "80", "interpolate"), "375\n");
    EXPECT_EQ(Query({"LonGradMaxLen", "--grad", "6", "--speed", "60"}), "400\n");
    NoAnswer("没有符合条件的值",
             {"LonGradMaxLen", "--grad", "9", "--speed", "40", "--mode", "upper"});
    NoAnswer("没有符合条件的值",
             {"LonGradMaxLen", "--grad", "4", "--speed", "80", "--mode", "lower"});
}

TEST_F(QueryCommand, AnswersTheSuperelevation)
{
    EXPECT_EQ(Query({"SuperElevation", "--max-super", "6", "--speed", "80", "--radius", "500"}),
              "4\n");
    EXPECT_EQ(Query({"SuperElevation", "--max-super", "6", "--speed", "80", "--radius", "500",
                     "--mode", "lower"}),
              "4\n");
    EXPECT_EQ(Query({"SuperElevation", "--max-super", "4", "--speed", "70", "--radius", "200",
                     "--tolerance", "10"}),
              "4\n");
    EXPECT_EQ(Query({"SuperElevation", "--max-super", "2", "--speed", "35", "--radius", "50",
                     "--mode", "lower"}),
              "2\n");
}

TEST_F(QueryCommand, TellsTheCodeWhyThereIsNoSuperelevation)
{
    const auto ask = [&](const std::string& code, const Words& more, const char* speed = "80",
                         const char* super = "6", const char* radius = "500") {
        Words words = {"SuperElevation", "--max-super", super, "--speed", speed,
                       "--radius",       radius};
        words.insert(words.end(), more.begin(), more.end());
        NoAnswer("结果代码 " + code, words);
    };
    const std::string above = "-3: 车速高出表中车速,或该取值方式在表的一端没有值";
    const std::string outside = "-5: 半径不在该车速的任何范围内";
    ask("-1: 超高查询不支持 interpolate", {"--mode", "interpolate"});
    ask("-2: 没有这个最大超高的表,或表是空的", {}, "80", "8");
    ask(above, {"--mode", "upper"});
    ask(above, {"--tolerance", "5"}, "70", "4");
    ask(above, {"--mode", "lower"}, "20", "2", "50");
    ask("-4: 车速低于表中最低车速", {}, "15", "2", "50");
    ask(outside, {}, "80", "6", "1000");
    ask(outside, {"--mode", "lower"}, "35", "2", "100");
}

TEST_F(QueryCommand, HasNoSuperelevationForAModeThatChoosesNoRow)
{
    const Words words = {"query", "SuperElevation", "--max-super", "2",      "--speed",
                         "35",    "--radius",       "50",          "--mode", "exact",
                         "--json"};
    const ProcessResult result = Call(words);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(Json::parse(result.out)["value"], nullptr);
    EXPECT_EQ(Json::parse(result.out)["code"], 0);
    EXPECT_EQ(result.err, "designspec: 没有符合条件的值\n");
}

TEST_F(QueryCommand, AnswersTheWidening)
{
    const auto ask = [&](const char* car, const char* radius) {
        return Query({"CurveWidening", "--car", car, "--radius", radius});
    };
    EXPECT_EQ(ask("普通汽车", "200"), "0.45\n");
    EXPECT_EQ(ask("普通汽车", "250"), "0.4\n");
    EXPECT_EQ(ask("铰接车", "16"), "3.5\n");
    Done({"set", "CurveWidening.IsGMinAndLEMaxMode", "0"});
    EXPECT_EQ(ask("普通汽车", "200"), "0.4\n");
}

TEST_F(QueryCommand, TellsTheCodeWhyThereIsNoWidening)
{
    const auto ask = [&](const std::string& code, const char* car, const char* radius) {
        NoAnswer("结果代码 " + code + ": ", {"CurveWidening", "--car", car, "--radius", radius});
    };
    ask("-1", "自行车", "200");
    ask("-2", "普通汽车", "251");
    ask("-3", "普通汽车", "15");
    ask("-3", "普通汽车", "-5");
}

TEST_F(QueryCommand, TellsTheCodeWhereTheRangesHaveAGap)
{
    const std::string file = FileOf("城市");
    m_folder.Write(file, Replaced(m_folder.Read(file), R"(min="200")", R"(min="220")"));
    NoAnswer("结果代码 -4: ", {"CurveWidening", "--car", "普通汽车", "--radius", "210"});
}

TEST_F(QueryCommand, GivesValueCodeAndSpecificationAsJson)
{
    const Json answer = DoneJson({"query", kMinRad, "--speed", "80"});
    EXPECT_EQ(answer["specification"]["name"], "城市");
    EXPECT_EQ(answer["specification"]["id"], IdOf("城市"));
    EXPECT_EQ(answer["query"], kMinRad);
    EXPECT_EQ(answer["value"], 250);
    EXPECT_EQ(answer["code"], 0);

    const ProcessResult none =
        Call({"--json", "query", "CurveWidening", "--car", "普通汽车", "--radius", "251"});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(Json::parse(none.out)["value"], nullptr);
    EXPECT_EQ(Json::parse(none.out)["code"], -2);
}

TEST_F(QueryCommand, GivesATextAndABooleanAsJson)
{
    Done({"set", "CurveWidening.Criterion", "第 \"5\" 条\\"});
    EXPECT_EQ(DoneJson({"query", "CurveWidening.Criterion"})["value"], "第 \"5\" 条\\");
    EXPECT_EQ(DoneJson({"query", "CurveWidening.IsGMinAndLEMaxMode"})["value"], true);
}

TEST_F(QueryCommand, RefusesOptionsThatTheQueryDoesNotTake)
{
    Wrong("不用 --speed", {"CircularCurveRad.MaxRad", "--speed", "80"});
    Wrong("不用 --mode", {"CircularCurveRad.MaxRad", "--mode", "exact"});
    Wrong("不用 --radius", {kMinRad, "--speed", "80", "--radius", "5"});
    Wrong("不用 --mode",
          {"CurveWidening", "--car", "普通汽车", "--radius", "5", "--mode", "lower"});
    Wrong("不用 --tolerance", {kMinRad, "--speed", "80", "--tolerance", "5"});
    Wrong("不用 --tolerance",
          {"CurveWidening", "--car", "普通汽车", "--radius", "5", "--tolerance", "5"});
    Wrong("不用 --grad",
          {"SuperElevation", "--max-super", "6", "--speed", "80", "--radius", "5", "--grad", "1"});
    Wrong("不用 --car", {"LonGradMaxLen", "--grad", "6", "--speed", "60", "--car", "x"});
}

TEST_F(QueryCommand, NamesTheOptionThatIsMissing)
{
    Wrong("需要 --speed", {kMinRad});
    Wrong("需要 --grad", {"LonGradMaxLen", "--speed", "60"});
    Wrong("需要 --speed", {"LonGradMaxLen", "--grad", "6"});
    Wrong("需要 --max-super", {"SuperElevation", "--speed", "80", "--radius", "5"});
    Wrong("需要 --speed", {"SuperElevation", "--max-super", "6", "--radius", "5"});
    Wrong("需要 --radius", {"SuperElevation", "--max-super", "6", "--speed", "80"});
    Wrong("需要 --car", {"CurveWidening", "--radius", "5"});
    Wrong("需要 --radius", {"CurveWidening", "--car", "普通汽车"});
}

TEST_F(QueryCommand, RefusesNumbersThatAreNone)
{
    for (const char* speed : {"", "12abc", "２０", "1e999", "6.5", "99999999999", "0x50"})
        Wrong("车速“" + std::string(speed) + "”不是整数", {kMinRad, "--speed", speed});
    for (const char* grad : {"", "12abc", "２０", "1e999", "nan", "inf"})
        Wrong("坡度“" + std::string(grad) + "”不是数",
              {"LonGradMaxLen", "--speed", "60", "--grad", grad});
    Wrong("半径“5m”不是整数", {"CurveWidening", "--car", "普通汽车", "--radius", "5m"});
    Wrong("没有取值方式“closest”", {kMinRad, "--speed", "80", "--mode", "closest"});
}

TEST_F(QueryCommand, ListsWhatThereIsForAnUnknownPath)
{
    Wrong("没有条目“Radius”", {"Radius.MaxRad"});
    Wrong("VerticalCurveMinRadAndLen", {"Radius.MaxRad"});
    Wrong("CircularCurveRad 没有字段“Max”", {"CircularCurveRad.Max"});
    Wrong("MaxRad", {"CircularCurveRad.Max"});
    Wrong("请指定 CircularCurveRad 的字段", {"CircularCurveRad"});
    Wrong("noSuperelevationMinRad", {"CircularCurveRad"});
    Wrong("没有条目“”", {""});
    Wrong("缺少 PATH", {});
}

} // namespace
