// What the style manager tells of each specification.
#include "app/StyleColumns.h"

#include <gtest/gtest.h>

#include "app/DSEditor.h"
#include "base/File.h"
#include "model/Criteria.h"
#include "tests/app/AppTest.h"

namespace {

class StyleColumns : public AppTest {
protected:
    static CString Text(std::size_t column)
    {
        const CDSEditor editor;
        const CStringArray texts = editor.ColumnTexts(*Library().Item(0));
        EXPECT_EQ(texts.size(), editor.Columns().size());
        return texts[column];
    }
};

enum Column { kTime, kRoads, kSources };

} // namespace

TEST_F(StyleColumns, TheTimeIsThatOfTheFile)
{
    Add(Make(L"甲"));
    EXPECT_EQ(Text(kTime), L"") << "it is in no file yet";
    ASSERT_TRUE(Library().Save(&At(0)));
    const std::filesystem::path file = m_project.Native(FileOf(At(0)));
    ASSERT_EQ(std::system(("touch -d '2025-03-04 05:06:07' '" + file.string() + "'").c_str()), 0);
    EXPECT_EQ(Text(kTime), L"2025-03-04 05:06");
}

TEST_F(StyleColumns, RoadTypesAreThoseThatHaveLimits)
{
    AddSaved(Make(L"甲"));
    EXPECT_EQ(Text(kRoads), L"城市道路");
    auto& gradients = At(0).MaxResultantGrad;
    gradients.Item(CDSMaxResultantGrad::HighwayClass1) = {{80, 10}};
    EXPECT_EQ(Text(kRoads), L"城市道路、一级公路");
    gradients.Item(CDSMaxResultantGrad::CityRoad) = {};
    EXPECT_EQ(Text(kRoads), L"一级公路");
}

TEST_F(StyleColumns, SourcesThatAreMissingAreCounted)
{
    CDesignSpecification& one = AddSaved(Make(L"甲"));
    const auto fill = [&](const CString& text) {
        for (const CriterionInfo& criterion : Criteria())
            for (const Field& field : criterion.fields)
                if (field.kind == FieldKind::Text && CString(field.label).ends_with(L"数据来源"))
                    field.Of<CString>(criterion.get(one)) = text;
    };
    fill(L"《规范》");
    EXPECT_EQ(Text(kSources), L"");
    one.LonGradMaxLen.Criterion.clear();
    one.BeelineLen.MaxLenCriterion.clear();
    EXPECT_EQ(Text(kSources), L"缺 2 处");
}
