#include "app/ImportChanges.h"

#include <gtest/gtest.h>

#include "tests/app/AppTest.h"

namespace {

class ImportChanges : public AppTest {};

} // namespace

TEST_F(ImportChanges, AreThoseOfTheSameIdentity)
{
    CDesignSpecification& first = AddSaved(Make(L"甲"));
    AddSaved(Make(L"乙"));
    AddSaved(Make(L"丙"));
    const CString path = m_project.Path(L"out.hds");
    ASSERT_TRUE(Library().Export(path.c_str(), {L"甲", L"乙"}, nullptr));
    first.CircularCurveRad.SuperelevationMinRad[0].value = 270;
    first.BeelineLen.MaxLen = 25;
    const auto changes =
        ChangesOfImport(Library().Folder(), path,
                        {At(1).ID(), first.ID(), At(2).ID(), CDesignSpecification().ID()});
    ASSERT_EQ(changes.size(), 4U);
    ASSERT_TRUE(changes[0]);
    EXPECT_EQ(changes[0]->inOneLine, L"") << "it is the same";
    ASSERT_TRUE(changes[1]);
    EXPECT_EQ(changes[1]->all,
              (CStringArray{L"直线长度 · 最大直线长度: 25 倍设计速度(km/h) → 20 倍设计速度(km/h)",
                            L"圆曲线半径 · 设超高最小半径 车速 80 km/h: 270 m → 250 m"}));
    EXPECT_NE(changes[1]->inOneLine, L"");
    EXPECT_FALSE(changes[2]) << "the file has it not";
    EXPECT_FALSE(changes[3]);
}
