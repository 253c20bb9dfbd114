#include "model/Criteria.h"
#include "base/Text.h"

#include <set>

#include <gtest/gtest.h>

using namespace designspec;

TEST(Criteria, AreCalledByNamesAndLabelsOfTheirOwn)
{
    std::set<CString> names;
    std::set<CString> labels;
    for (const CriterionInfo& criterion : Criteria()) {
        EXPECT_TRUE(names.insert(criterion.name).second) << ToUtf8(criterion.name);
        EXPECT_TRUE(labels.insert(criterion.label).second) << ToUtf8(criterion.label);
        EXPECT_EQ(FindCriterion(criterion.name), &criterion);
    }
    EXPECT_GE(names.size(), 13U);
}

TEST(Criteria, LeadToTheMembersOfASpecification)
{
    CDesignSpecification specification;
    EXPECT_EQ(FindCriterion(L"BeelineLen")->get(specification), &specification.BeelineLen);
    EXPECT_EQ(FindCriterion(L"curvewidening")->get(specification), &specification.CurveWidening);
    EXPECT_EQ(FindCriterion(L"Beeline"), nullptr);
    EXPECT_EQ(FindCriterion(L""), nullptr);
}

TEST(Criteria, FieldsHaveDistinctKeysLabelsAndPlaces)
{
    CDesignSpecification specification;
    for (const CriterionInfo& criterion : Criteria()) {
        std::set<CString> keys;
        std::set<const void*> places;
        for (const Field& field : criterion.fields) {
            EXPECT_TRUE(keys.insert(field.key).second) << ToUtf8(field.key);
            EXPECT_TRUE(places.insert(field.member(criterion.get(specification))).second);
            EXPECT_NE(CString(field.label), L"");
            EXPECT_EQ(FindField(criterion.fields, field.key), &field);
        }
        EXPECT_EQ(FindField(criterion.fields, L"NoSuchField"), nullptr);
    }
}

TEST(Criteria, AFieldIsReadAndWrittenThroughItsTable)
{
    CDesignSpecification specification;
    const CriterionInfo& radii = *FindCriterion(L"CircularCurveRad");
    const Field& maximum = *FindField(radii.fields, L"maxrad");
    EXPECT_FALSE(maximum.IsTable());
    EXPECT_EQ(maximum.Of<std::int32_t>(radii.get(specification)), 10000);
    maximum.Of<std::int32_t>(radii.get(specification)) = 5;
    EXPECT_EQ(specification.CircularCurveRad.MaxRad, 5);
    const Field& table = *FindField(radii.fields, L"SuperelevationMinRad");
    EXPECT_TRUE(table.IsTable());
    EXPECT_EQ(&table.Of<SpeedToIntValues>(radii.get(specification)),
              &specification.CircularCurveRad.SuperelevationMinRad);
}
