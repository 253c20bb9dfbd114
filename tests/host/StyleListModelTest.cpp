#include "host/StyleListModel.h"

#include <QAbstractItemModelTester>

#include "tests/host/HostTest.h"

namespace {

class StyleListModelTest : public HostTest {};

TEST_F(StyleListModelTest, IsAPictureOfTheLibrary)
{
    StyleListModel model;
    const QAbstractItemModelTester tester(&model);
    model.Show(nullptr);
    EXPECT_EQ(model.rowCount(), 0);
    Have({L"甲", L"乙"});
    files.SetDefaultItem(1);
    model.Show(&files);
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.index(0, 0).data().toString(), QStringLiteral("甲"));
    EXPECT_EQ(model.index(0, 1).data().toString(), QString());
    EXPECT_EQ(model.index(1, 1).data().toString(), QStringLiteral("✓ 默认"));
    EXPECT_TRUE(model.IdAt(1) == files.Item(1)->id);
    files.Add(L"丙");
    EXPECT_EQ(model.rowCount(), 2);
    model.Show(&files);
    EXPECT_EQ(model.rowCount(), 3);
}

} // namespace
