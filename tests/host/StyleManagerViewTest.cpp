#include "host/StyleManagerView.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

#include "base/Text.h"
#include "tests/host/HostTest.h"

using namespace designspec;

namespace {

class StyleManagerViewTest : public HostTest {
protected:
    void Filter(const CString& text) const { TypeInto(host.get(), ControlId::Filter, text); }
    CString Hint() const
    {
        auto* const hint = Control<QLabel>(host.get(), ControlId::Hint);
        return hint->isVisible() ? FromQString(hint->text()) : CString();
    }
    void SortByName() const
    {
        QHeaderView* const header = Table()->horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(header->sectionViewportPosition(0) + 20, header->height() / 2));
    }
};

TEST_F(StyleManagerViewTest, ListsTheStylesOfTheGroupSortedByName)
{
    Have({L"规范10", L"规范2", L"b", L"A"});
    Start();
    auto* const groups = Control<QTreeWidget>(host.get(), ControlId::Groups);
    ASSERT_EQ(groups->topLevelItemCount(), 1);
    EXPECT_EQ(FromQString(groups->topLevelItem(0)->text(0)), L"试验组");
    EXPECT_EQ(Listed(), (CStringArray{L"规范2", L"规范10", L"A", L"b"}));
    EXPECT_EQ(Cell(2, 2), VMRDPub::GUIDToStr(files.Item(L"A")->id));
}

TEST_F(StyleManagerViewTest, TheDefaultStyleIsMarkedAndKeptAcrossARestart)
{
    Have({L"甲", L"乙"});
    Start();
    EXPECT_EQ(Cell(0, 1) + Cell(1, 1), L"");
    ClickRow(L"甲");
    Key(Qt::Key_D, Qt::ControlModifier);
    const auto marked = [&] {
        for (const CString& name : Listed())
            if (name[0] == L'*') return name;
        return CString();
    };
    EXPECT_EQ(marked(), L"*甲");
    EXPECT_EQ(FromQString(Table()->model()->index(0, 1).data().toString()) +
                  FromQString(Table()->model()->index(1, 1).data().toString()),
              L"✓ 默认");
    host.reset();
    Start();
    EXPECT_EQ(marked(), L"*甲");
}

TEST_F(StyleManagerViewTest, TheFilterKeepsWhatHoldsItsTextInAnyCase)
{
    Have({L"City road", L"highway", L"山区公路"});
    Start();
    Filter(L"CITY");
    EXPECT_EQ(Listed(), CStringArray{L"City road"});
    Filter(L"路");
    EXPECT_EQ(Listed(), CStringArray{L"山区公路"});
    Filter(L"[");
    EXPECT_EQ(Hint(),
              L"没有样式的名称、数据来源或值含“[”。\n可以少写几个字、写拼音首字母, 或者清除筛选。");
    Click(host.get(), ControlId::HintButton);
    EXPECT_EQ(Listed().size(), 3u);
    EXPECT_EQ(Hint(), L"");
}

TEST_F(StyleManagerViewTest, TheFilterIsReachedAndLeftByKeys)
{
    Have({L"a1", L"a2", L"b"});
    Start();
    Key(Qt::Key_F, Qt::ControlModifier);
    Type(host.get(), L"a");
    EXPECT_EQ(Listed(), (CStringArray{L"a1", L"a2"}));
    Key(Qt::Key_Down);
    EXPECT_TRUE(Table()->hasFocus());
    EXPECT_EQ(Selected(), CStringArray{L"a1"});
    Key(Qt::Key_Down);
    EXPECT_EQ(Selected(), CStringArray{L"a2"});
    Key(Qt::Key_F, Qt::ControlModifier);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Listed().size(), 3u);
}

TEST_F(StyleManagerViewTest, KeysThatEditTextDoNotReachTheStyles)
{
    Have({L"甲"});
    Start();
    ClickRow(L"甲");
    Filter(L"甲x");
    Key(Qt::Key_Home);
    Key(Qt::Key_Delete);
    EXPECT_EQ(Control<QLineEdit>(host.get(), ControlId::Filter)->text(), QStringLiteral("x"));
}

TEST_F(StyleManagerViewTest, DelDeletesNothingOutsideTheTable)
{
    Have({L"甲"});
    Start();
    ClickRow(L"甲");
    Control(host.get(), ControlId::Groups)->setFocus();
    Key(Qt::Key_Delete); // a question that nobody expects would fail the test
    EXPECT_EQ(Listed(), CStringArray{L"甲"});
    EXPECT_EQ(HdsFiles("规范/已删除"), 0u);
}

TEST_F(StyleManagerViewTest, SelectionAndSortOrderStayWhenTheListIsRefreshed)
{
    Have({L"a", L"b", L"c", L"d"});
    Start();
    SortByName();
    EXPECT_EQ(Listed(), (CStringArray{L"d", L"c", L"b", L"a"}));
    ClickRow(L"b");
    ClickRow(L"d", Qt::ControlModifier);
    AddOutside(L"bb");
    Key(Qt::Key_F5);
    EXPECT_EQ(Listed(), (CStringArray{L"d", L"c", L"bb", L"b", L"a"}));
    EXPECT_EQ(Selected(), (CStringArray{L"b", L"d"}));
    host.reset();
    Start();
    EXPECT_EQ(Listed(), (CStringArray{L"d", L"c", L"bb", L"b", L"a"}));
}

TEST_F(StyleManagerViewTest, AnEmptyLibrarySuggestsANewStyle)
{
    Start();
    EXPECT_EQ(Hint(), L"这个项目还没有样式。");
    ExpectModal dialog([](QWidget* window) {
        TypeInto(window, 108, L"first");
        Click(window, IDOK);
    });
    Click(host.get(), ControlId::HintButton);
    EXPECT_EQ(Listed(), CStringArray{L"first"});
}

TEST_F(StyleManagerViewTest, WithoutAModuleNothingCanBeManaged)
{
    QSettings().setValue(QStringLiteral("modulesAtStart"), QStringList());
    Start();
    EXPECT_EQ(Hint(), L"没有可以管理的样式。");
    EXPECT_FALSE(host->Styles().Actions().Action(kCommandNewStyle)->isEnabled());
    ExpectModal menu([](QWidget* window) {
        for (const ShownMenuItem& item : ReadMenu(window))
            EXPECT_TRUE(item.separator || !item.enabled) << ToUtf8(item.text);
        PressKey(window, Qt::Key_Escape);
    });
    OpenContextMenu();
}

TEST_F(StyleManagerViewTest, AGroupWithoutEditorsShowsNoStyles)
{
    install.Write("StyleGroups.json", R"({"groups": [{"name": "CFakeGroup"}]})");
    Start();
    EXPECT_EQ(Control<QTreeWidget>(host.get(), ControlId::Groups)->topLevelItemCount(), 1);
    EXPECT_EQ(Hint(), L"没有可以管理的样式。");
}

} // namespace
