#include "host/StyleGroupTree.h"

#include <gtest/gtest.h>

#include "platform/mfc/QtText.h"
#include "tests/modules/FakeLibrary.h"

using namespace designspec;

namespace {

class Group : public CStyleGroup {
public:
    explicit Group(CString name) : m_name(std::move(name)) {}
    CString Name() const override { return m_name; }
    bool HasStyles() const override { return true; }

private:
    CString m_name;
};

class Editor : public CStyleEditor {
public:
    explicit Editor(CString name) { m_styles.m_name = std::move(name); }
    CStyles* GetStyles() const override { return &m_styles; }
    CStyle* New(CStyle*) override { return nullptr; }
    bool Delete(CStyle*) override { return false; }
    void Edit(CStyle*) override {}

private:
    struct Library : CFakeStyles {
        CString Name() const override { return m_name; }
        CString m_name;
    };
    mutable Library m_styles;
};

class StyleGroupTreeTest : public testing::Test {
protected:
    StyleGroupTreeTest()
    {
        m_manager.AddObject(static_cast<CStyleManager::EType>(1), &m_one);
        m_manager.AddObject(static_cast<CStyleManager::EType>(2), &m_several);
        m_one.AddStyles(m_road = new Editor(L"道路"));
        m_several.AddStyles(m_sign = new Editor(L"标志"));
        m_several.AddStyles(m_line = new Editor(L"标线"));
    }
    ~StyleGroupTreeTest() override
    {
        for (CStyleGroup* group : {&m_one, &m_several})
            m_manager.RemoveObject(group, false);
    }

    // The texts from top to bottom, two blanks before those below a group.
    CStringArray Lines() const
    {
        CStringArray lines;
        for (int i = 0; i < m_tree.topLevelItemCount(); ++i) {
            const QTreeWidgetItem* const group = m_tree.topLevelItem(i);
            lines.push_back(FromQString(group->text(0)));
            for (int j = 0; j < group->childCount(); ++j)
                lines.push_back(L"  " + FromQString(group->child(j)->text(0)));
        }
        return lines;
    }

    CStyleManager m_manager{StyleGroupConfig()};
    Group m_one{L"一组"};
    Group m_several{L"多组"};
    Editor* m_road;
    Editor* m_sign;
    Editor* m_line;
    StyleGroupTree m_tree;
};

TEST_F(StyleGroupTreeTest, AGroupStandsForItsOneEditorAndListsSeveral)
{
    m_tree.Show(&m_manager);
    EXPECT_EQ(Lines(), (CStringArray{L"一组", L"多组", L"  标志", L"  标线"}));
    EXPECT_EQ(m_tree.Editors(), (std::vector<CStyleEditor*>{m_road, m_sign, m_line}));
    EXPECT_EQ(m_tree.CurrentEditor(), m_road);
    EXPECT_TRUE(m_tree.topLevelItem(1)->isExpanded());
}

TEST_F(StyleGroupTreeTest, EachOfSeveralEditorsIsSelectedByItsItem)
{
    m_tree.Show(&m_manager);
    QTreeWidgetItem* const several = m_tree.topLevelItem(1);
    m_tree.setCurrentItem(several->child(0));
    EXPECT_EQ(m_tree.CurrentEditor(), m_sign);
    m_tree.setCurrentItem(several->child(1));
    EXPECT_EQ(m_tree.CurrentEditor(), m_line);
    m_tree.setCurrentItem(several);
    EXPECT_EQ(m_tree.CurrentEditor(), nullptr) << "of several, none is meant";
}

TEST_F(StyleGroupTreeTest, TheSelectedOneOfSeveralStaysSelected)
{
    m_tree.Show(&m_manager);
    m_tree.Select(m_line);
    m_tree.Show(&m_manager);
    EXPECT_EQ(m_tree.CurrentEditor(), m_line);
    m_tree.Show(nullptr);
    EXPECT_EQ(m_tree.CurrentEditor(), nullptr);
    EXPECT_EQ(Lines(), CStringArray());
}

} // namespace
