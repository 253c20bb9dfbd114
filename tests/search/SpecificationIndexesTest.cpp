#include "search/SpecificationIndexes.h"

#include <gtest/gtest.h>

using namespace designspec;

namespace {

TEST(SpecificationIndexes, FollowTheirSpecifications)
{
    CDesignSpecification one;
    CDesignSpecification other;
    one.CircularCurveRad.MaxRad = 12345;
    SpecificationIndexes indexes;
    const SearchWords words(L"12345");
    EXPECT_TRUE(indexes.First(one, words));
    EXPECT_FALSE(indexes.First(other, words));
    one.CircularCurveRad.MaxRad = 54321;
    EXPECT_FALSE(indexes.First(one, words));
    EXPECT_TRUE(indexes.First(one, SearchWords(L"54321")));
}

TEST(SpecificationIndexes, KeepWhatTheyHaveMade)
{
    const CDesignSpecification one;
    const CDesignSpecification other;
    SpecificationIndexes indexes;
    const SpecificationIndex* const made = &indexes.Of(one);
    indexes.Of(other);
    EXPECT_EQ(&indexes.Of(one), made);
}

} // namespace
