#include "app/DSEditor.h"

#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include <gtest/gtest.h>

#include "app/DSMainDialog.h"
#include "app/DesignSpecificationGroup.h"
#include "app/NameWaitDialog.h"
#include "app/OthersChangeDialog.h"
#include "app/ViewDesignSpecification.h"
#include "base/Text.h"
#include "platform/mfc/Menu.h"
#include "tests/app/AppTest.h"

using namespace designspec;

namespace {

class DSEditor : public AppTest {
protected:
    // The name that the dialog proposes; the dialog is cancelled.
    std::string Proposed(CStyle* from)
    {
        std::string name;
        const ExpectModal dialog([&name](QWidget* window) {
            EXPECT_EQ(Locks(), 1);
            name = Control<QLineEdit>(window, 108)->text().toStdString();
            Click(window, IDCANCEL);
        });
        EXPECT_EQ(m_editor.New(from), nullptr);
        return name;
    }

    CDSEditor m_editor;
    int m_refurbished = 0;
    Connection m_connection = CStyles::ConnectRefurbish([this](CStyles&) { ++m_refurbished; });
};

void Accept(QWidget* window)
{
    Click(window, IDOK);
}

} // namespace

TEST_F(DSEditor, IsForTheLibrary)
{
    EXPECT_EQ(m_editor.GetStyles(), &Library());
    EXPECT_TRUE(m_editor.IsKindOf(RUNTIME_CLASS(CStyleEditor)));
    for (const bool enabled :
         {m_editor.EnableNew(), m_editor.EnableEdit(), m_editor.EnableNewFrom(),
          m_editor.EnableAsDefaultStyle(), m_editor.EnableDel(), m_editor.EnableExport(),
          m_editor.EnableView()})
        EXPECT_TRUE(enabled);
}

TEST_F(DSEditor, ProposesTheNumberBehindTheCount)
{
    EXPECT_EQ(Proposed(nullptr), "规范1");
    for (const wchar_t* name : {L"甲", L"乙", L"丙"})
        Add(Make(name));
    EXPECT_EQ(Proposed(nullptr), "规范4");
}

TEST_F(DSEditor, ProposesTheFirstFreeNameOfACopy)
{
    CDesignSpecification& source = Add(Make(L"A"));
    EXPECT_EQ(Proposed(&source), "A[副本]");
    Add(Make(L"a[副本]"));
    EXPECT_EQ(Proposed(&source), "A[副本1]");
    Add(Make(L"A[副本1]"));
    EXPECT_EQ(Proposed(&source), "A[副本2]");
}

TEST_F(DSEditor, NewGivesTheStyleThatTheDialogAdded)
{
    Add(Make(L"甲"));
    const ExpectModal dialog(Accept);
    CStyle* const made = m_editor.New(nullptr);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->Name(), L"规范2");
    EXPECT_EQ(made, Library().Item(1));
    EXPECT_EQ(m_refurbished, 1);
    EXPECT_EQ(Locks(), 0);
}

TEST_F(DSEditor, ACancelledNewAddsNothing)
{
    Add(Make(L"甲"));
    Proposed(nullptr);
    EXPECT_EQ(Names(), L"甲");
    EXPECT_EQ(SpecificationFiles(), 0);
    EXPECT_EQ(m_refurbished, 0);
}

TEST_F(DSEditor, ATakenNameIsWaitedForWithANotice)
{
    Add(Make(L"规范2"));
    {
        const ExpectModal notice([](QWidget* window) {
            const CString text = dynamic_cast<CDialog*>(window)->GetDlgItemText(119);
            EXPECT_NE(text.find(L"“规范2”"), CString::npos) << ToUtf8(text);
            // The host goes on meanwhile, and the name stays taken.
            bool alive = false;
            QTimer::singleShot(0, window, [&alive] { alive = true; });
            QTest::qWait(350);
            EXPECT_TRUE(alive);
            EXPECT_TRUE(window->isVisible());
            Click(window, IDCANCEL);
        });
        EXPECT_EQ(m_editor.New(nullptr), nullptr);
    }
    EXPECT_EQ(Names(), L"规范2");
    EXPECT_EQ(m_refurbished, 0);
    EXPECT_EQ(Locks(), 0);
}

TEST_F(DSEditor, TheOneThatHasTheNameCanBeGoneTo)
{
    const CDesignSpecification& other = Add(Make(L"规范2"));
    std::optional<GUID> selected;
    const Connection wanted =
        CStyleEditor::SelectWanted().Connect([&selected](const GUID& id) { selected = id; });
    {
        const ExpectModal notice([](QWidget* window) { Click(window, CNameWaitDialog::kGoTo); });
        EXPECT_EQ(m_editor.New(nullptr), nullptr);
    }
    EXPECT_EQ(selected, other.ID());
    EXPECT_EQ(Locks(), 0);
}

TEST_F(DSEditor, AFreedNameIsTheOneProposed)
{
    CDesignSpecification& other = Add(Make(L"规范2"));
    const ExpectModal notice([&other](QWidget*) { other.SetName(L"甲"); });
    const ExpectModal dialog([](QWidget* window) {
        EXPECT_EQ(Control<QLineEdit>(window, 108)->text(), QStringLiteral("规范2"));
        Click(window, IDOK);
    });
    const CStyle* const made = m_editor.New(nullptr);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(Names(), L"甲 规范2");
}

TEST_F(DSEditor, EscEndsTheWaitWithNothingMade)
{
    Add(Make(L"规范2"));
    const ExpectModal notice([](QWidget* window) { PressKey(window, Qt::Key_Escape); });
    EXPECT_EQ(m_editor.New(nullptr), nullptr);
}

TEST_F(DSEditor, DeleteTakesOutTheStyle)
{
    CDesignSpecification& gone = Add(Make(L"甲"));
    Add(Make(L"乙"));
    EXPECT_TRUE(m_editor.Delete(&gone));
    EXPECT_EQ(Names(), L"乙");
    EXPECT_EQ(m_refurbished, 1);
}

TEST_F(DSEditor, DeleteOfAnUnknownStyleChangesNothing)
{
    Add(Make(L"甲"));
    CDesignSpecification other = Make(L"甲");
    EXPECT_FALSE(m_editor.Delete(&other));
    EXPECT_EQ(Names(), L"甲");
    EXPECT_EQ(m_refurbished, 0);
}

TEST_F(DSEditor, EditTellsTheViewsOfANewName)
{
    CDesignSpecification& edited = AddSaved(Make(L"甲"));
    {
        const ExpectModal dialog([](QWidget* window) {
            EXPECT_EQ(Locks(), 1);
            EXPECT_EQ(window->windowTitle(), QStringLiteral("设计规范"));
            Click(window, IDOK);
        });
        m_editor.Edit(&edited);
    }
    EXPECT_EQ(m_refurbished, 0);
    {
        const ExpectModal dialog([](QWidget* window) {
            TypeInto(window, 108, L"乙");
            Click(window, IDOK);
        });
        m_editor.Edit(&edited);
    }
    EXPECT_EQ(m_refurbished, 1);
    EXPECT_EQ(Names(), L"乙");
}

TEST_F(DSEditor, AnEditCanBeTakenBack)
{
    CDesignSpecification& edited = AddSaved(Make(L"甲", 7));
    const GUID id = edited.ID();
    EXPECT_EQ(m_editor.UndoText(), L"");
    {
        const ExpectModal dialog([](QWidget* window) {
            TypeInto(window, 108, L"乙");
            Click(window, IDOK);
        });
        m_editor.Edit(&edited);
    }
    EXPECT_EQ(m_editor.UndoText(), L"已保存“乙”。");
    EXPECT_EQ(m_editor.Undo(), L"已撤销, “甲”恢复到编辑之前。");
    EXPECT_EQ(m_refurbished, 2);
    EXPECT_EQ(m_editor.UndoText(), L"");
    EXPECT_EQ(m_editor.Undo(), L"") << "only once";
    Reload();
    EXPECT_EQ(Names(), L"甲");
    EXPECT_TRUE(Library().Item(id));
    EXPECT_EQ(MarkOf(L"甲"), 7);
}

TEST_F(DSEditor, AnEditThatChangesNothingOrIsCancelledCannotBeTakenBack)
{
    CDesignSpecification& edited = AddSaved(Make(L"甲"));
    for (const int button : {IDOK, IDCANCEL}) {
        const ExpectModal dialog([button](QWidget* window) { Click(window, button); });
        m_editor.Edit(&edited);
        EXPECT_EQ(m_editor.UndoText(), L"");
    }
}

// Undo takes back its own change, not theirs.
TEST_F(DSEditor, UndoKeepsWhatOthersDidSince)
{
    CDesignSpecification& edited = AddSaved(Make(L"甲", 7));
    {
        const ExpectModal dialog([](QWidget* window) {
            TypeInto(window, 108, L"乙");
            Click(window, IDOK);
        });
        m_editor.Edit(&edited);
    }
    SpecificationFolder theirs(m_project.Path(L"规范"));
    theirs.Load();
    theirs.Item(0)->CircularCurveRad.MaxRad = 8000;
    ASSERT_TRUE(theirs.Save(*theirs.Item(0)).done);
    const ExpectModal settle(
        [](QWidget* window) { Click(window, COthersChangeDialog::kAsChosen); });
    EXPECT_NE(m_editor.Undo(), L"");
    Reload();
    EXPECT_EQ(Names(), L"甲");
    EXPECT_EQ(Library().Item(0)->CircularCurveRad.MaxRad, 8000);
}

TEST_F(DSEditor, EditTellsTheViewsOfANameInAnotherCase)
{
    CDesignSpecification& edited = AddSaved(Make(L"Road"));
    const ExpectModal dialog([](QWidget* window) {
        TypeInto(window, 108, L"ROAD");
        Click(window, IDOK);
    });
    m_editor.Edit(&edited);
    EXPECT_EQ(m_refurbished, 1);
    EXPECT_EQ(Names(), L"ROAD");
}

TEST_F(DSEditor, ACancelledEditTellsNobody)
{
    CDesignSpecification& edited = AddSaved(Make(L"甲"));
    const ExpectModal dialog([](QWidget* window) {
        TypeInto(window, 108, L"乙");
        Click(window, IDCANCEL);
    });
    m_editor.Edit(&edited);
    EXPECT_EQ(m_refurbished, 0);
    EXPECT_EQ(Names(), L"甲");
}

TEST_F(DSEditor, ALibraryThatIsReadAnewMeanwhileDoesNoHarm)
{
    CDesignSpecification& edited = AddSaved(Make(L"甲"));
    const ExpectModal dialog([](QWidget* window) {
        Library().Update();
        TypeInto(window, 108, L"乙");
        Click(window, IDOK);
    });
    m_editor.Edit(&edited);
    EXPECT_EQ(m_refurbished, 1);
    EXPECT_EQ(Names(), L"乙");
}

TEST_F(DSEditor, SetsTheDefault)
{
    AddSaved(Make(L"甲"));
    CDesignSpecification& standard = AddSaved(Make(L"乙"));
    m_editor.SetAsDefaultStyle(&standard);
    EXPECT_EQ(Library().GetDefaultItem(), 1);
    EXPECT_TRUE(m_project.Has("规范/setting.ini"));
}

TEST_F(DSEditor, NamesTheDefaultCommandAndKeepsItsState)
{
    for (const UINT state : {MF_ENABLED, MF_GRAYED, MF_CHECKED}) {
        CMenu menu;
        menu.AppendMenu(MF_STRING | state, kCommandSetAsDefaultStyle, L"设为默认");
        EXPECT_TRUE(m_editor.AdjustContextMenu(&menu));
        EXPECT_EQ(menu.GetMenuString(4106), L"设为默认规范");
        EXPECT_EQ(menu.GetMenuState(4106), state);
    }
    CMenu without;
    EXPECT_TRUE(m_editor.AdjustContextMenu(&without));
}

TEST_F(DSEditor, ViewsAStyle)
{
    CDesignSpecification& style = AddSaved(Make(L"甲"));
    const ExpectModal dialog([](QWidget* window) {
        EXPECT_EQ(Locks(), 1);
        EXPECT_EQ(window->windowTitle(), QStringLiteral("设计规范 - 甲 -- 查看模式"));
        EXPECT_EQ(Control<QLineEdit>(window, 108)->text(), QStringLiteral("甲"));
        ClickItem(window, "圆曲线半径");
        EXPECT_FALSE(Control(window, 119)->isVisible());
        Click(window, IDOK);
    });
    m_editor.View(&style);
}

// The default specification for other modules

TEST_F(DSEditor, ViewDesignSpecificationShowsTheDefaultOneAtAPage)
{
    AddSaved(Make(L"甲"));
    AddSaved(Make(L"乙"));
    Library().SetDefaultItem(1);
    const ExpectModal dialog([](QWidget* window) {
        EXPECT_EQ(Locks(), 1);
        EXPECT_EQ(window->windowTitle(), QStringLiteral("设计规范 - 乙 -- 查看模式"));
        EXPECT_EQ(Control<QLineEdit>(window, 108)->text(), QStringLiteral("乙"));
        EXPECT_FALSE(Control(window, 108)->isEnabled());
        EXPECT_EQ(SelectedItem(window), "圆曲线半径");
        Click(window, IDOK);
    });
    ViewDesignSpecification(L"平面\\圆曲线半径");
}

TEST_F(DSEditor, ViewDesignSpecificationOfShowsTheOneOfThatNameAtAPage)
{
    AddSaved(Make(L"甲"));
    AddSaved(Make(L"乙"));
    Library().SetDefaultItem(1);
    {
        const ExpectModal dialog([](QWidget* window) {
            EXPECT_EQ(window->windowTitle(), QStringLiteral("设计规范 - 甲 -- 查看模式"));
            EXPECT_EQ(SelectedItem(window), "圆曲线半径");
            Click(window, IDOK);
        });
        ViewDesignSpecificationOf(L"甲", L"平面\\圆曲线半径");
    }
    ViewDesignSpecificationOf(L"丙", L"平面\\圆曲线半径");
    QTest::qWait(50); // nothing opens
}

TEST_F(DSEditor, ViewDesignSpecificationTakesNoPage)
{
    AddSaved(Make(L"甲"));
    Library().SetDefaultItem(0);
    const ExpectModal dialog([](QWidget* window) {
        EXPECT_EQ(SelectedItem(window), "平面");
        Click(window, IDCANCEL);
    });
    ViewDesignSpecification(nullptr);
}

TEST_F(DSEditor, ViewDesignSpecificationDoesNothingWithoutADefault)
{
    AddSaved(Make(L"甲"));
    ViewDesignSpecification(L"平面\\圆曲线半径");
    Library().SetDefaultItem(0);
    Library().Remove(0, true);
    ViewDesignSpecification(L"平面\\圆曲线半径");
    QTest::qWait(50);
}

TEST(DesignSpecificationGroup, HasNameIconAndStyles)
{
    CDesignSpecificationGroup group;
    EXPECT_EQ(group.Name(), L"设计规范");
    EXPECT_FALSE(group.Icon().isNull());
    EXPECT_TRUE(group.HasStyles());
    EXPECT_TRUE(group.IsKindOf(RUNTIME_CLASS(CStyleGroup)));
    group.AddStyles(new CDSEditor);
    EXPECT_EQ(group.StylesCount(), 1);
}
