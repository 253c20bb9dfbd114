#include "model/VerticalCurve.h"

#include <gtest/gtest.h>

#include "tests/support/Exchanged.h"

using C = CDSVerticalCurveMinRadAndLen;

TEST(VerticalCurveMinRadAndLen, HasLimitsForTenSpeeds)
{
    const C criterion;
    EXPECT_EQ(criterion.ConvexGeneralMinRad, (SpeedToIntValues{{80, 4500},
                                                               {60, 1800},
                                                               {50, 1350},
                                                               {45, 750},
                                                               {40, 600},
                                                               {35, 450},
                                                               {30, 400},
                                                               {25, 250},
                                                               {20, 150},
                                                               {15, 90}}));
    EXPECT_EQ(criterion.ConvexLimitMinRad, (SpeedToIntValues{{80, 3000},
                                                             {60, 1200},
                                                             {50, 900},
                                                             {45, 500},
                                                             {40, 400},
                                                             {35, 300},
                                                             {30, 250},
                                                             {25, 150},
                                                             {20, 100},
                                                             {15, 60}}));
    EXPECT_EQ(criterion.ConcaveGeneralMinRad, (SpeedToIntValues{{80, 2700},
                                                                {60, 1500},
                                                                {50, 1050},
                                                                {45, 850},
                                                                {40, 700},
                                                                {35, 550},
                                                                {30, 400},
                                                                {25, 250},
                                                                {20, 150},
                                                                {15, 90}}));
    EXPECT_EQ(criterion.ConcaveLimitMinRad, (SpeedToIntValues{{80, 1800},
                                                              {60, 1000},
                                                              {50, 700},
                                                              {45, 550},
                                                              {40, 450},
                                                              {35, 350},
                                                              {30, 250},
                                                              {25, 170},
                                                              {20, 100},
                                                              {15, 60}}));
    EXPECT_EQ(criterion.MinLens, (SpeedToIntValues{{80, 70},
                                                   {60, 50},
                                                   {50, 40},
                                                   {45, 40},
                                                   {40, 35},
                                                   {35, 30},
                                                   {30, 25},
                                                   {25, 20},
                                                   {20, 20},
                                                   {15, 15}}));
    EXPECT_EQ(criterion.Criterion, L"");
}

TEST(VerticalCurveMinRadAndLen, StoresItsTablesInOrder)
{
    C criterion;
    criterion.Criterion = L"6.3";
    criterion.ConvexGeneralMinRad = {{80, 1}};
    criterion.ConvexLimitMinRad = {{80, 2}};
    criterion.ConcaveGeneralMinRad = {{80, 3}};
    criterion.ConcaveLimitMinRad = {{80, 4}};
    criterion.MinLens = {{80, 5}};
    EXPECT_EQ(Stored(criterion), "<Root>\n  <Criterion>6.3</Criterion>\n" +
                                     TableXml("ConvexGeneralMinRad", {{"80", "1"}}) +
                                     TableXml("ConvexLimitMinRad", {{"80", "2"}}) +
                                     TableXml("ConcaveGeneralMinRad", {{"80", "3"}}) +
                                     TableXml("ConcaveLimitMinRad", {{"80", "4"}}) +
                                     TableXml("MinLens", {{"80", "5"}}) + "</Root>\n");
    EXPECT_EQ(Loaded<C>(Stored(C())), C());
}

TEST(VerticalCurveMinRadAndLen, AMissingTableIsEmpty)
{
    const C loaded = Loaded<C>("<Root><Criterion> a </Criterion>" +
                               TableXml("MinLens", {{"80", "5"}}) + "</Root>");
    EXPECT_EQ(loaded.Criterion, L"a");
    EXPECT_EQ(loaded.MinLens.count, 1);
    EXPECT_TRUE(loaded.ConvexGeneralMinRad.IsEmpty());
    EXPECT_TRUE(loaded.ConvexLimitMinRad.IsEmpty());
    EXPECT_TRUE(loaded.ConcaveGeneralMinRad.IsEmpty());
    EXPECT_TRUE(loaded.ConcaveLimitMinRad.IsEmpty());
}

TEST(VerticalCurveMinRadAndLen, ATieBetweenTwoSpeedsGoesToTheHigher)
{
    int value = 0;
    const C criterion;
    EXPECT_TRUE(QueryValue::QueryIntValBySpeed(&criterion.ConvexLimitMinRad, 70,
                                               QueryValue::Nearest, value));
    EXPECT_EQ(value, 3000);
}
