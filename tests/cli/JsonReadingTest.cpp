#include "cli/JsonReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/JsonText.h"
#include "model/Arrangement.h"
#include "tests/support/ProblemList.h"
#include "tests/support/RandomSpecification.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// What of the document was wrong.
std::vector<std::string> Wrong(const std::string& bytes)
{
    CDesignSpecification specification;
    JsonReading reading(bytes, L"a.json");
    reading.ApplyTo(specification);
    std::vector<std::string> texts;
    for (const Problem& problem : reading.Problems())
        texts.push_back(ToUtf8(problem.Text()));
    return texts;
}

// The built-in limits with those of the document.
CDesignSpecification With(const std::string& bytes)
{
    CDesignSpecification specification;
    JsonReading reading(bytes, L"a.json");
    reading.ApplyTo(specification);
    for (const Problem& problem : reading.Problems())
        ADD_FAILURE() << ToUtf8(problem.Text());
    return specification;
}

std::string Criterion(const std::string& name, const std::string& fields)
{
    return R"({"criteria": {")" + name + "\": {" + fields + "}}}";
}

TEST(JsonReading, GivesBackWhatWasWritten)
{
    for (unsigned seed = 0; seed < 50; ++seed) {
        CDesignSpecification one = RandomSpecification(seed).Make();
        Arrange(one);
        Json json = ToJson(static_cast<const CStyle&>(one));
        for (const CriterionInfo& criterion : Criteria())
            json["criteria"][ToUtf8(criterion.name)] = ToJson(criterion, one);
        CDesignSpecification again;
        again.CopyCriteria(With(json.dump()));
        JsonReading reading(json.dump(), L"");
        EXPECT_EQ(reading.Name(), one.Name());
        CDesignSpecification wanted(again);
        wanted.CopyCriteria(one);
        EXPECT_EQ(again, wanted) << seed;
    }
}

TEST(JsonReading, LeavesWhatTheDocumentDoesNotHave)
{
    const auto changed = With(Criterion("LonGrad", R"("MinGrad": 0.5)"));
    CDesignSpecification wanted(changed);
    wanted.CopyCriteria({});
    wanted.LonGrad.MinGrad = 0.5;
    EXPECT_EQ(changed, wanted);
    const CDesignSpecification same = With("{}");
    wanted = same;
    wanted.CopyCriteria({});
    EXPECT_EQ(same, wanted);
}

TEST(JsonReading, TakesATableWholeInAnyOrder)
{
    const auto changed = With(
        Criterion("LonGradMinLen",
                  R"("MinLens": [{"value": 100, "speed": 40}, {"speed": 60.0, "value": 200}])"));
    EXPECT_EQ(changed.LonGradMinLen.MinLens, (SpeedToIntValues{{60, 200}, {40, 100}}));
}

TEST(JsonReading, TakesRowsWithinRows)
{
    const auto changed = With(Criterion("CurveWidening", R"("ranges": [{"min": 1, "max": 2,
        "widenings": [{"carType": "普通汽车", "widening": 0.5}]}])"));
    ASSERT_EQ(changed.CurveWidening.ranges.count, 1);
    EXPECT_EQ(changed.CurveWidening.ranges[0].max, 2);
    EXPECT_EQ(changed.CurveWidening.ranges[0].widenings[0].carType, L"普通汽车");
}

TEST(JsonReading, TellsEachWrongValueWithItsPlace)
{
    EXPECT_THAT(
        Wrong(R"({"name": 1, "criteria": {"LonGrad": {"MinGrad": "x", "Criterion": 2, "Max": 1,
            "MaxGradLimitedValues": [{"speed": 60.5, "value": 1}, {"speed": 60}, 3]},
            "Lon": {}, "CurveWidening": {"IsGMinAndLEMaxMode": 1}, "BeelineLen": []}})"),
        ElementsAre("a.json: /name: 应为文字,写在引号中"));
    EXPECT_THAT(
        Wrong(R"({"criteria": {"LonGrad": {"MinGrad": "x", "Criterion": 2, "Max": 1,
            "MaxGradLimitedValues": [{"speed": 60.5, "value": 1}, {"speed": 60}, 3]},
            "Lon": {}, "CurveWidening": {"IsGMinAndLEMaxMode": 1}, "BeelineLen": []}})"),
        ElementsAre("a.json: /criteria/BeelineLen: 应为 { } 中的名称和值",
                    "a.json: /criteria/LonGrad/MinGrad: 应为数,不加引号",
                    "a.json: /criteria/LonGrad/Criterion: 应为文字,写在引号中",
                    "a.json: /criteria/LonGrad/MaxGradLimitedValues/0/speed: 车速“60.5”不是整数",
                    "a.json: /criteria/LonGrad/MaxGradLimitedValues/1: 缺少 value",
                    "a.json: /criteria/LonGrad/MaxGradLimitedValues/2: 应为 { } 中的名称和值",
                    "a.json: /criteria/LonGrad/Max: 没有这个名称",
                    "a.json: /criteria/CurveWidening/IsGMinAndLEMaxMode: 应为 true 或 false",
                    "a.json: /criteria/Lon: 没有这个名称"));
    EXPECT_THAT(Wrong(Criterion("LonGradMinLen", R"("MinLens": {})")),
                ElementsAre("a.json: /criteria/LonGradMinLen/MinLens: 应为 [ ] 中的各行"));
}

TEST(JsonReading, TellsATableThatASwitchTakesOut)
{
    EXPECT_THAT(Wrong(Criterion("TransitionCurveMinLen", R"("NoTCBySuperelevation": true,
                                "NoTCByMinRad": [{"speed": 60, "value": 1}])")),
                ElementsAre("a.json: /criteria/TransitionCurveMinLen/NoTCByMinRad: "
                            "在当前条件下不用,也不会保存"));
    const auto without =
        With(Criterion("TransitionCurveMinLen", R"("NoTCBySuperelevation": true)"));
    EXPECT_TRUE(without.TransitionCurveMinLen.NoTCByMinRad.IsEmpty());
}

TEST(JsonReading, TellsTheLineThatIsNoJson)
{
    EXPECT_THAT(Wrong("{\n\"name\": \"a\"\n\"id\"}"), ElementsAre("a.json:3: 不是完整的 JSON"));
    EXPECT_THAT(Wrong(""), ElementsAre("a.json:1: 不是完整的 JSON"));
    EXPECT_THAT(Wrong("{\"name\": \"\xFF\"}"), ElementsAre("a.json:1: 不是完整的 JSON"));
    EXPECT_THAT(Wrong("[]"), ElementsAre("a.json: 应为 { } 中的名称和值"));
    EXPECT_THAT(Wrong(R"({"criteria": 1e999})"), ElementsAre("a.json: 其中有超出范围的数"));
}

TEST(JsonReading, TellsANameThatStandsTwice)
{
    EXPECT_THAT(Wrong(Criterion("LonGrad", R"("MinGrad": 0.5, "MinGrad": 0.6)")),
                ElementsAre("a.json: 同一处“MinGrad”写了两次"));
    EXPECT_THAT(Wrong(R"({"criteria": {"LonGrad": {}, "CurveMinLen": {}, "LonGrad": {}}})"),
                ElementsAre(HasSubstr("“LonGrad”写了两次")));
}

TEST(JsonReading, SurvivesAVeryDeepDocument)
{
    EXPECT_THAT(Wrong(std::string(200000, '[')), ElementsAre("a.json:1: 不是完整的 JSON"));
    EXPECT_THAT(
        Wrong("{\"criteria\": " + std::string(200000, '[') + std::string(200000, ']') + "}"),
        ElementsAre("a.json: /criteria: 应为 { } 中的名称和值"));
}

} // namespace
