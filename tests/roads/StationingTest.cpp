#include "roads/Stationing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace roadcheck {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Station, IsWrittenInKilometresAndMetres)
{
    EXPECT_EQ(StationText(0), L"K0+000.000");
    EXPECT_EQ(StationText(12345.6), L"K12+345.600");
    EXPECT_EQ(StationText(999.9996), L"K1+000.000");
    EXPECT_EQ(StationText(-12.3), L"-K0+012.300");
    EXPECT_EQ(StationText(-0.0001), L"K0+000.000");
    EXPECT_EQ(StationText(1234567.8901), L"K1234+567.890");
    EXPECT_EQ(StationText(12345.6, 1), L"K12+345.6");
    EXPECT_EQ(StationText(999.6, 0), L"K1+000");
    EXPECT_EQ(StationText(-20, 0), L"-K0+020");
}

TEST(Station, IsReadAsPeopleWriteIt)
{
    EXPECT_EQ(ParseStation(L"K12+345.6"), 12345.6);
    EXPECT_EQ(ParseStation(L" k0+5 "), 5);
    EXPECT_EQ(ParseStation(L"12+345.6"), 12345.6);
    EXPECT_EQ(ParseStation(L"12345.6"), 12345.6);
    EXPECT_EQ(ParseStation(L"-K0+012.3"), -12.3);
    EXPECT_EQ(ParseStation(L"-12"), -12);
    EXPECT_EQ(ParseStation(L"+12"), 12);
    for (const wchar_t* const text :
         {L"", L"K", L"K1+", L"+", L"--1", L"K-1+2", L"1+-2", L"1+2+3", L"x", L"1 2", L"nan"})
        EXPECT_EQ(ParseStation(text), std::nullopt) << text;
}

TEST(Stationing, GivesTheStationOfAPlaceAndBack)
{
    const Stationing plain(100);
    EXPECT_EQ(plain.At(50), 150);
    EXPECT_THAT(plain.Places(150, 200), ElementsAre(50));
    EXPECT_THAT(plain.Places(99, 200), IsEmpty());
    EXPECT_THAT(plain.Places(301, 200), IsEmpty());
}

TEST(Stationing, KnowsStationsThatComeTwiceOrNever)
{
    Stationing stations;
    stations.Add({.at = 500, .ahead = 400}); // 400 to 500 come twice
    stations.Add({.at = 800, .ahead = 900}); // 700 to 900 never
    EXPECT_THAT(stations.Places(450, 1000), ElementsAre(450, 550));
    EXPECT_THAT(stations.Places(800, 1000), IsEmpty());
    EXPECT_EQ(stations.At(500), 400);
    EXPECT_EQ(stations.At(900), 1000);
}

TEST(Stationing, HasRoundPlacesOnBothSidesOfAnEquation)
{
    EXPECT_THAT(Stationing(30).RoundPlaces(0, 250, 100), ElementsAre(70, 170));
    EXPECT_THAT(Stationing(-150).RoundPlaces(0, 200, 100), ElementsAre(50, 150));
    Stationing jump(0);
    jump.Add({150, 1000, 1});
    EXPECT_THAT(jump.RoundPlaces(0, 300, 100), ElementsAre(0, 100, 150, 250));
    EXPECT_THAT(jump.RoundPlaces(120, 149, 100), IsEmpty());
    Stationing back(0);
    back.Add({100, 530, -1});
    EXPECT_THAT(back.RoundPlaces(50, 300, 100), ElementsAre(130, 230)); // K0+500, K0+400
}

} // namespace roadcheck
