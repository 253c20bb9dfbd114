#include "model/ResultantGrad.h"

#include <gtest/gtest.h>

#include "tests/support/Exchanged.h"

using namespace designspec;

using C = CDSMaxResultantGrad;

TEST(MaxResultantGrad, RoadTypesHaveTheNumbersThatOtherModulesPass)
{
    EXPECT_EQ(C::CityRoad, 0);
    EXPECT_EQ(C::FreeWay, 1);
    EXPECT_EQ(C::HighwayClass1, 2);
    EXPECT_EQ(C::HighwayClass2, 3);
    EXPECT_EQ(C::HighwayClass3, 4);
    EXPECT_EQ(C::HighwayClass4, 5);
    EXPECT_EQ(C::OtherRoad, 6);
}

TEST(MaxResultantGrad, ANewOneStoresTheCityRoadTableAlone)
{
    const std::string xml =
        "<Root>\n"
        "  <Criterion></Criterion>\n"
        "  <MaxResultantGradOnSnowFrozenRegion>6</MaxResultantGradOnSnowFrozenRegion>\n" +
        TableXml(
            "CityRoad",
            {{"80", "7"}, {"60", "6.5"}, {"50", "6.5"}, {"40", "7"}, {"30", "7"}, {"20", "8"}}) +
        "</Root>\n";
    EXPECT_EQ(Stored(C()), xml);
    const C loaded = Loaded<C>(xml);
    EXPECT_EQ(loaded, C());
    for (int type = C::FreeWay; type <= C::OtherRoad; ++type)
        EXPECT_TRUE(loaded.Item(static_cast<C::RoadType>(type)).IsEmpty());
}

TEST(MaxResultantGrad, EachRoadTypeHasItsKeyInOrder)
{
    C criterion;
    std::string tables;
    const char* const keys[] = {"CityRoad",      "FreeWay",       "HighwayClass1", "HighwayClass2",
                                "HighwayClass3", "HighwayClass4", "OtherRoad"};
    for (int type = 0; type < C::kRoadTypes; ++type) {
        criterion.Item(static_cast<C::RoadType>(type)) = {{60, type + 0.5}};
        tables += TableXml(keys[type], {{"60", (std::to_string(type) + ".5").c_str()}});
    }
    const std::string xml = Stored(criterion);
    EXPECT_NE(xml.find(tables), std::string::npos) << xml;
    EXPECT_EQ(Loaded<C>(xml), criterion);
}

TEST(MaxResultantGrad, AMissingTableIsEmptyWhateverItHeld)
{
    const C loaded = Loaded<C>("<Root><Criterion> a </Criterion></Root>");
    EXPECT_EQ(loaded.Criterion, L"a");
    EXPECT_EQ(loaded.MaxResultantGradOnSnowFrozenRegion, 6.0);
    EXPECT_TRUE(loaded.Item(C::CityRoad).IsEmpty());
}

TEST(MaxResultantGrad, AnEmptyTableDoesNotAnswer)
{
    double value = 1.5;
    EXPECT_FALSE(QueryValue::QueryDoubleValBySpeed(&C().Item(C::HighwayClass2), 60,
                                                   QueryValue::Nearest, value));
    EXPECT_EQ(value, 1.5);
}

TEST(MaxResultantGrad, ItemIsTheTableItself)
{
    C criterion;
    const C& constant = criterion;
    EXPECT_EQ(&criterion.Item(C::FreeWay), &criterion.tables[1]);
    EXPECT_EQ(&constant.Item(C::OtherRoad), &criterion.tables[6]);
}

TEST(MaxResultantGrad, RoadTypesHaveChineseNames)
{
    EXPECT_STREQ(RoadTypeLabel(C::CityRoad), L"城市道路");
    EXPECT_STREQ(RoadTypeLabel(C::OtherRoad), L"其它道路");
    EXPECT_STREQ(RoadTypeLabel(-1), L"");
    EXPECT_STREQ(RoadTypeLabel(7), L"");
}
