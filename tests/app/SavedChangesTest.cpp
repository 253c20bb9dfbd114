#include "app/SavedChanges.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

#include "app/ChangeManyDialog.h"
#include "app/DSEditor.h"
#include "app/HistoryDialog.h"
#include "app/SpecificationChange.h"
#include "base/Text.h"
#include "compare/ControlIds.h"
#include "platform/mfc/QtText.h"
#include "tests/app/AppTest.h"

using namespace designspec;

namespace {

class SavedChanges : public AppTest {
protected:
    // The command of that caption, which the editor offers.
    CString Run(const wchar_t* caption, const CArray<GUID>& selected)
    {
        for (const EditorCommand& command : m_editor.OwnCommands())
            if (CString(command.caption) == caption) return m_editor.RunOwn(command.id, selected);
        ADD_FAILURE() << "no such command";
        return {};
    }
    CDesignSpecification& AddWithRadius(const wchar_t* name, int radius)
    {
        CDesignSpecification made = Make(name);
        made.CircularCurveRad.MaxRad = radius;
        return AddSaved(made);
    }
    int Limit(const wchar_t* name)
    {
        return Library().Item(name)->CircularCurveRad.SuperelevationMinRad.entries[0].value;
    }
    int Radius(const wchar_t* name) { return Library().Item(name)->CircularCurveRad.MaxRad; }
    void Set(CDesignSpecification& specification, int radius)
    {
        CDesignSpecification made = specification;
        made.CircularCurveRad.MaxRad = radius;
        ASSERT_TRUE(StoreChanged(specification, made, &m_frame));
    }

    CDSEditor m_editor;
};

void Choose(QWidget* window, int list, const char* text)
{
    auto* const box = Control<QComboBox>(window, list);
    box->setCurrentIndex(box->findText(QString::fromUtf8(text)));
}

// Adds 5 to a limit at all speeds.
void AddFive(QWidget* window)
{
    Choose(window, CChangeManyDialog::kPage, "圆曲线半径");
    Choose(window, CChangeManyDialog::kLimit, "设超高最小半径");
    Choose(window, CChangeManyDialog::kKind, "加上 (负数为减)");
    TypeInto(window, CChangeManyDialog::kOperand, L"5");
    Click(window, IDOK);
}

} // namespace

TEST_F(SavedChanges, SeveralAtOnceAreTakenBackTogether)
{
    const GUID a = AddWithRadius(L"甲", 7000).ID(), b = AddWithRadius(L"乙", 8000).ID();
    {
        const ExpectModal dialog(AddFive);
        EXPECT_EQ(Run(L"批量修改…", {a, b}), L"已修改 2 个规范。");
    }
    EXPECT_EQ(Limit(L"甲"), 255);
    EXPECT_EQ(m_editor.UndoText(), L"已修改 2 个规范。");
    EXPECT_EQ(m_editor.Undo(), L"已撤销, 2 个规范恢复到原来。");
    EXPECT_EQ(m_editor.UndoText(), L"");
    Reload();
    EXPECT_EQ(Limit(L"甲"), 250);
    EXPECT_EQ(Limit(L"乙"), 250);
}

// Undo of several is whole or not at all: what others did since is not lost.
TEST_F(SavedChanges, SeveralAreNotTakenBackWhenOthersHaveChangedOne)
{
    const GUID a = AddWithRadius(L"甲", 7000).ID(), b = AddWithRadius(L"乙", 8000).ID();
    {
        const ExpectModal dialog(AddFive);
        Run(L"批量修改…", {a, b});
    }
    SpecificationFolder theirs(m_project.Path(L"规范"));
    theirs.Load();
    theirs.Find(L"乙")->BeelineLen.MaxLen = 25;
    ASSERT_TRUE(theirs.Save(*theirs.Find(L"乙")).done);
    const ExpectMessage message(L"没有撤销。\n\n“乙”已被别人修改或删除。请重新加载(F5)之后再试。");
    EXPECT_EQ(m_editor.Undo(), L"");
    Reload();
    EXPECT_EQ(Limit(L"甲"), 255);
    EXPECT_EQ(Limit(L"乙"), 255);
    EXPECT_EQ(Library().Item(L"乙")->BeelineLen.MaxLen, 25);
}

TEST_F(SavedChanges, AVersionThatWasBroughtBackGoesAgain)
{
    CDesignSpecification& one = AddWithRadius(L"甲", 7000);
    const GUID id = one.ID();
    Set(one, 9000);
    {
        const ExpectModal dialog([](QWidget* window) {
            Click(window, CHistoryDialog::kBringBack);
            PressKey(window, Qt::Key_Escape);
        });
        Run(L"历史…", {id});
    }
    EXPECT_EQ(Radius(L"甲"), 7000);
    EXPECT_EQ(m_editor.UndoText().substr(0, 10), L"已恢复: “甲” (");
    EXPECT_EQ(m_editor.Undo(), L"已撤销, “甲”恢复到编辑之前。");
    Reload();
    EXPECT_EQ(Radius(L"甲"), 9000);
}

TEST_F(SavedChanges, AVersionBroughtBackAsANewOneGoesToTheDeletedOnes)
{
    CDesignSpecification& one = AddWithRadius(L"甲", 7000);
    const GUID id = one.ID();
    Set(one, 9000);
    {
        const ExpectModal dialog([](QWidget* window) {
            Click(window, CHistoryDialog::kAsNew);
            PressKey(window, Qt::Key_Escape);
        });
        Run(L"历史…", {id});
    }
    EXPECT_EQ(Names(), L"甲 甲[副本]");
    EXPECT_EQ(m_editor.Undo(), L"已撤销, 新增的 1 个规范移到“已删除”。");
    Reload();
    EXPECT_EQ(Names(), L"甲");
    Problems problems;
    EXPECT_EQ(Library().Folder().Files().Deleted(problems).size(), 1U);
}

TEST_F(SavedChanges, AnImportIsTakenBackWhole)
{
    AddWithRadius(L"甲", 7000);
    SpecificationFolder others(L"");
    auto changed = std::make_unique<CDesignSpecification>(*Library().Item(L"甲"));
    changed->CircularCurveRad.MaxRad = 6000;
    others.Add(std::move(changed));
    auto added = std::make_unique<CDesignSpecification>();
    added->SetName(L"新");
    others.Add(std::move(added));
    ASSERT_TRUE(others.Export(m_project.Path(L"all.hds"), {}).done);

    m_editor.BeginUndo();
    EXPECT_TRUE(m_editor.Import(m_project.Path(L"all.hds"), {}, true).read);
    m_editor.EndUndo(L"已导入");
    EXPECT_EQ(Names(), L"甲 新");
    EXPECT_EQ(Radius(L"甲"), 6000);
    EXPECT_EQ(m_editor.UndoText(), L"已导入");
    EXPECT_EQ(m_editor.Undo(), L"已撤销, 1 个规范恢复到原来, 新增的 1 个规范移到“已删除”。");
    Reload();
    EXPECT_EQ(Names(), L"甲");
    EXPECT_EQ(Radius(L"甲"), 7000);
}

TEST_F(SavedChanges, AnImportThatChangesNothingCannotBeTakenBack)
{
    AddWithRadius(L"甲", 7000);
    ASSERT_TRUE(Library().Folder().Export(m_project.Path(L"all.hds"), {}).done);
    m_editor.BeginUndo();
    m_editor.Import(m_project.Path(L"all.hds"), {}, true);
    m_editor.EndUndo(L"已导入");
    EXPECT_EQ(m_editor.UndoText(), L"");
}

// What was saved twice goes back to what it was first.
TEST_F(SavedChanges, ALogKnowsEachOnce)
{
    CDesignSpecification& one = AddWithRadius(L"甲", 7000);
    const CDesignSpecification before = one;
    const ChangeLog log;
    Set(one, 8000);
    Set(one, 9000);
    ASSERT_EQ(log.Changes().size(), 1U);
    EXPECT_TRUE(*log.Changes()[0].before == before);
    EXPECT_EQ(log.Changes()[0].after.CircularCurveRad.MaxRad, 9000);
    EXPECT_TRUE(TakeBack(log.Changes(), &m_frame));
    EXPECT_TRUE(log.Changes().empty());
}

// Going back is not refused for what the pages would not take.
TEST_F(SavedChanges, AValueOutOfRangeComesBackToo)
{
    CDesignSpecification& one = AddWithRadius(L"甲", -5);
    ChangeLog log;
    Set(one, 8000);
    EXPECT_TRUE(TakeBack(log.Changes(), &m_frame));
    Reload();
    EXPECT_EQ(Radius(L"甲"), -5);
}
