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

// Whatever a file calls a style, it is one line of plain text.
TEST_F(StyleListModelTest, ShowsNamesAsTheyAre)
{
    StyleListModel model;
    Have({L"<b>甲</b>", L"乙\n丙", L"a<b"});
    model.Show(&files);
    EXPECT_EQ(model.index(0, 0).data().toString(), QStringLiteral("<b>甲</b>"));
    EXPECT_EQ(model.index(1, 0).data().toString(), QStringLiteral("乙\\n丙"));
    const QString tip = model.index(0, 0).data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(tip.contains(QStringLiteral("&lt;b&gt;甲&lt;/b&gt;"))) << tip.toStdString();
    EXPECT_EQ(model.index(2, 0).data(Qt::ToolTipRole).toString(), QStringLiteral("a<b"));
}

} // namespace
