#include "host/StyleListModel.h"

#include <QAbstractItemModelTester>

#include "platform/vmrd/VMRDPrj/StyleEditor.h"
#include "tests/host/HostTest.h"

namespace {

// With columns of its own.
class ColumnEditor : public CStyleEditor {
public:
    explicit ColumnEditor(CFakeStyles& styles) : m_styles(styles) {}
    CStyles* GetStyles() const override { return &m_styles; }
    CStyle* New(CStyle*) override { return nullptr; }
    bool Delete(CStyle*) override { return false; }
    void Edit(CStyle*) override {}
    std::span<const StyleColumn> Columns() const override { return columns; }
    CStringArray ColumnTexts(const CStyle& style) const override
    {
        return {style.Name() + L"!", style.Name() == L"甲" ? L"城市道路、一级公路" : L""};
    }

    std::vector<StyleColumn> columns;

private:
    CFakeStyles& m_styles;
};

class StyleListModelTest : public HostTest {
protected:
    ColumnEditor editor{files};
};

TEST_F(StyleListModelTest, IsAPictureOfTheLibrary)
{
    StyleListModel model;
    const QAbstractItemModelTester tester(&model);
    model.Show(nullptr);
    EXPECT_EQ(model.rowCount(), 0);
    Have({L"甲", L"乙"});
    files.SetDefaultItem(1);
    model.Show(&editor);
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.index(0, 0).data().toString(), QStringLiteral("甲"));
    EXPECT_EQ(model.index(0, 1).data().toString(), QString());
    EXPECT_EQ(model.index(1, 1).data().toString(), QStringLiteral("✓ 默认"));
    EXPECT_TRUE(model.IdAt(1) == files.Item(1)->id);
    files.Add(L"丙");
    EXPECT_EQ(model.rowCount(), 2);
    model.Show(&editor);
    EXPECT_EQ(model.rowCount(), 3);
}

// Whatever a file calls a style, it is one line of plain text.
TEST_F(StyleListModelTest, ShowsNamesAsTheyAre)
{
    StyleListModel model;
    Have({L"<b>甲</b>", L"乙\n丙", L"a<b"});
    model.Show(&editor);
    EXPECT_EQ(model.index(0, 0).data().toString(), QStringLiteral("<b>甲</b>"));
    EXPECT_EQ(model.index(1, 0).data().toString(), QStringLiteral("乙\\n丙"));
    const QString tip = model.index(0, 0).data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(tip.contains(QStringLiteral("&lt;b&gt;甲&lt;/b&gt;"))) << tip.toStdString();
    EXPECT_EQ(model.index(2, 0).data(Qt::ToolTipRole).toString(), QStringLiteral("a<b"));
}

TEST_F(StyleListModelTest, ColumnsOfTheEditorStandBehindThoseOfTheHost)
{
    StyleListModel model;
    const QAbstractItemModelTester tester(&model);
    Have({L"甲", L"乙"});
    editor.columns = {{L"一", 4}, {L"二", 8, true}};
    model.Show(&editor);
    ASSERT_EQ(model.columnCount(), 5);
    EXPECT_EQ(model.headerData(4, Qt::Horizontal, Qt::DisplayRole).toString(),
              QStringLiteral("二"));
    EXPECT_EQ(model.index(1, 3).data().toString(), QStringLiteral("乙!"));
    EXPECT_EQ(model.GroupsOf(0),
              (QStringList{QStringLiteral("城市道路"), QStringLiteral("一级公路")}));
    EXPECT_EQ(model.GroupsOf(1), QStringList());
    EXPECT_TRUE(model.Tells(0, QStringLiteral("一级")));
    EXPECT_FALSE(model.Tells(1, QStringLiteral("一级")));
    EXPECT_EQ(model.Told(1), L"乙\n乙!\n");
    model.Show(nullptr);
    EXPECT_EQ(model.columnCount(), 3);
}

TEST_F(StyleListModelTest, WhereSomethingWasFoundIsToldBelowTheName)
{
    StyleListModel model;
    Have({L"甲"});
    model.Show(&editor);
    model.SetFound(0, QStringLiteral("圆曲线半径: 250 m"));
    const QString tip = model.index(0, 0).data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(tip.contains(QStringLiteral("圆曲线半径: 250 m"))) << tip.toStdString();
    model.SetFound(0, {});
    EXPECT_EQ(model.index(0, 0).data(Qt::ToolTipRole).toString(), QStringLiteral("甲"));
}

} // namespace
