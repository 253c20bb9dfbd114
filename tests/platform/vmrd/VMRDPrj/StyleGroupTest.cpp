#include "platform/vmrd/VMRDPrj/StyleGroup.h"

#include <gtest/gtest.h>

#include "tests/modules/FakeLibrary.h"
#include "tests/modules/TestInstall.h"

namespace {

class Group : public CStyleGroup {
public:
    explicit Group(int* alive = nullptr) : m_alive(alive) { Count(1); }
    ~Group() override { Count(-1); }
    CString Name() const override { return L"组"; }

private:
    void Count(int change)
    {
        if (m_alive) *m_alive += change;
    }
    int* m_alive;
};

class Editor : public CStyleEditor {
public:
    explicit Editor(CStyles* styles, int* alive = nullptr) : m_styles(styles), m_alive(alive)
    {
        if (m_alive) ++*m_alive;
    }
    ~Editor() override
    {
        if (m_alive) --*m_alive;
    }
    CStyles* GetStyles() const override { return m_styles; }
    CStyle* New(CStyle*) override { return nullptr; }
    bool Delete(CStyle*) override { return false; }
    void Edit(CStyle*) override {}

private:
    CStyles* m_styles;
    int* m_alive;
};

class TestProject : public TemporaryFolder {
public:
    TestProject() { VMRDPub::SetCurPrjPath(Path()); }
    ~TestProject() { VMRDPub::SetCurPrjPath({}); }
};

TEST(StyleGroup, OwnsChildrenAndEditors)
{
    int groups = 0;
    int editors = 0;
    {
        Group group(&groups);
        group.AddChild(new Group(&groups));
        auto* const child = new Group(&groups);
        group.AddChild(child);
        group.AddChild(nullptr);
        group.AddStyles(new Editor(nullptr, &editors));
        group.AddStyles(nullptr);
        EXPECT_EQ(group.ChildrenCount(), 2);
        EXPECT_EQ(group.GetChild(1), child);
        EXPECT_EQ(group.GetChild(2), nullptr);
        EXPECT_EQ(group.GetChild(-1), nullptr);
        EXPECT_EQ(group.StylesCount(), 1);
        EXPECT_NE(group.GetStyles(0), nullptr);
        EXPECT_EQ(group.GetStyles(1), nullptr);
        EXPECT_EQ(groups, 3);
        EXPECT_EQ(editors, 1);
    }
    EXPECT_EQ(groups, 0);
    EXPECT_EQ(editors, 0);
}

TEST(StyleGroup, ABareGroupGathersGroupsAlone)
{
    const Group group;
    EXPECT_FALSE(group.HasStyles());
    EXPECT_TRUE(group.Icon().isNull());
}

TEST(StyleGroup, RefurbishReadsTheLibrariesOfTheWholeTree)
{
    const TestProject project;
    CFakeStyles first;
    CFakeStyles second;
    first.Add(L"甲");
    Group group;
    group.AddStyles(new Editor(&first));
    group.AddStyles(new Editor(nullptr));
    auto* const child = new Group;
    child->AddStyles(new Editor(&second));
    group.AddChild(child);

    int told = 0;
    const auto connection = CStyles::ConnectRefurbish([&told](CStyles&) { ++told; });
    group.Refurbish();
    EXPECT_EQ(told, 2);
    ASSERT_EQ(second.Count(), 1);
    EXPECT_EQ(second.Item(0)->Name(), L"甲");
}

TEST(StyleGroup, RefurbishForgetsADefaultThatTheFilesDoNotName)
{
    const TestProject one;
    CFakeStyles styles;
    styles.Add(L"甲");
    Group group;
    group.AddStyles(new Editor(&styles));
    styles.SetDefaultItem(0);
    group.Refurbish();
    EXPECT_EQ(styles.GetDefaultItem(), 0) << "the settings file names it";

    const TestProject other;
    group.Refurbish();
    EXPECT_EQ(styles.GetDefaultItem(), -1);
    EXPECT_EQ(styles.Count(), 0);
}

TEST(StyleEditor, SetAsDefaultStyleTakesTheStylesIndex)
{
    const TestProject project;
    CFakeStyles styles;
    styles.Add(L"甲");
    CStyle* const second = styles.Add(L"乙");
    Editor editor(&styles);
    editor.SetAsDefaultStyle(second);
    EXPECT_EQ(styles.GetDefaultItem(), 1);
    CFakeStyle stranger;
    editor.SetAsDefaultStyle(&stranger);
    EXPECT_EQ(styles.GetDefaultItem(), 1);
    Editor(nullptr).SetAsDefaultStyle(second);
}

TEST(StyleEditor, OffersEverythingButTheView)
{
    const Editor editor(nullptr);
    EXPECT_TRUE(editor.EnableNew());
    EXPECT_TRUE(editor.EnableNewFrom());
    EXPECT_TRUE(editor.EnableEdit());
    EXPECT_TRUE(editor.EnableAsDefaultStyle());
    EXPECT_TRUE(editor.EnableDel());
    EXPECT_TRUE(editor.EnableExport());
    EXPECT_FALSE(editor.EnableView());
}

TEST(StyleEditor, ExportsTheNamedStyles)
{
    const TestProject project;
    CFakeStyles styles;
    styles.Add(L"甲");
    styles.Add(L"乙");
    Editor editor(&styles);
    const CString file = project.Path() + L"\\out.hds";
    ASSERT_TRUE(editor.Export(file.c_str(), {L"乙"}));
    CStringArray names;
    CArray<GUID> ids;
    ASSERT_TRUE(styles.StyleNames(file.c_str(), names, ids));
    EXPECT_EQ(names, CStringArray{L"乙"});
    EXPECT_FALSE(Editor(nullptr).Export(file.c_str(), {}));
}

} // namespace
