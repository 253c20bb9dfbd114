#include "app/HistoryDialog.h"

#include <QComboBox>
#include <QLabel>
#include <QTableView>

#include <gtest/gtest.h>

#include "app/DSEditor.h"
#include "compare/ControlIds.h"
#include "platform/mfc/QtText.h"
#include "tests/app/AppTest.h"

namespace {

using D = CHistoryDialog;
using S = CDesignSpecification;

class HistoryDialog : public AppTest {
protected:
    // 甲 was 20, then 25 and 30 times the speed long, and 乙 is new.
    HistoryDialog()
    {
        S& first = AddSaved(Make(L"甲", 20));
        m_id = first.ID();
        AddSaved(Make(L"乙", 40));
        for (const double mark : {25, 30}) {
            first.BeelineLen.MaxLen = mark;
            EXPECT_TRUE(Library().Save(&first));
        }
    }

    // What the style manager tells afterwards.
    CString Run(const ModalAction& action, const CArray<GUID>& selected)
    {
        CDSEditor editor;
        const ExpectModal modal(action);
        for (const EditorCommand& command : editor.OwnCommands())
            if (command.caption == CString(L"历史…")) return editor.RunOwn(command.id, selected);
        return L"no such command";
    }
    CString Run(const ModalAction& action) { return Run(action, {m_id}); }

    static QTreeWidget* Versions(QWidget* window)
    {
        return Control<QTreeWidget>(window, D::kVersions);
    }
    static CString Text(QWidget* window, int row, int column)
    {
        return FromQString(Versions(window)->topLevelItem(row)->text(column));
    }
    static void ClickVersion(QWidget* window, int row)
    {
        QTreeWidget* const list = Versions(window);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->topLevelItem(row)).center());
    }
    static int Differing(QWidget* window)
    {
        return Control<QTableView>(window, CompareId::Values)->model()->rowCount();
    }
    void DeleteFirst()
    {
        CDSEditor editor;
        Problems problems;
        ASSERT_TRUE(editor.Delete(Library().Item(m_id)));
        ASSERT_TRUE(Library().Files().SetAside(m_id, problems));
        Reload();
    }

    GUID m_id;
};

} // namespace

TEST_F(HistoryDialog, TellsWhatEachVersionChanged)
{
    EXPECT_EQ(Run([](QWidget* window) {
                  EXPECT_EQ(Control<QComboBox>(window, D::kSpecifications)->currentText(),
                            QStringLiteral("甲"));
                  ASSERT_EQ(Versions(window)->topLevelItemCount(), 3);
                  EXPECT_EQ(Text(window, 0, 0), L"现在");
                  EXPECT_EQ(Text(window, 0, 3),
                            L"最大直线长度: 25 倍设计速度(km/h) → 30 倍设计速度(km/h)");
                  EXPECT_EQ(Text(window, 1, 0), L"2");
                  EXPECT_EQ(Text(window, 1, 3),
                            L"最大直线长度: 20 倍设计速度(km/h) → 25 倍设计速度(km/h)");
                  EXPECT_EQ(Text(window, 2, 0), L"1");
                  EXPECT_TRUE(Text(window, 2, 1).ends_with(L" 以前"));
                  EXPECT_EQ(Text(window, 2, 3), L"");
                  EXPECT_NE(Text(window, 0, 2), L"");
                  EXPECT_EQ(Text(window, 0, 2), Text(window, 1, 2));
                  Click(window, IDCANCEL);
              }),
              L"");
}

TEST_F(HistoryDialog, HoldsAVersionBesideWhatThereIsNow)
{
    Run([](QWidget* window) {
        EXPECT_EQ(Versions(window)->currentItem()->text(0), QStringLiteral("2"));
        EXPECT_EQ(Differing(window), 1);
        EXPECT_FALSE(Control(window, CompareId::ToLeft)->isVisible()) << "nothing to take over";
        EXPECT_FALSE(Control(window, CompareId::ToRight)->isVisible());
        EXPECT_TRUE(Control(window, D::kBringBack)->isEnabled());
        ClickVersion(window, 0);
        EXPECT_FALSE(Control(window, D::kBringBack)->isEnabled());
        EXPECT_TRUE(Control(window, D::kAsNew)->isEnabled());
        EXPECT_EQ(Differing(window), 1) << "and the built-in limits";
        PressKey(window, Qt::Key_Escape);
    });
}

TEST_F(HistoryDialog, BringsBackWhatASpecificationWas)
{
    EXPECT_EQ(Run([](QWidget* window) {
                  ClickVersion(window, 2);
                  Click(window, D::kBringBack);
                  EXPECT_EQ(Versions(window)->topLevelItemCount(), 4);
                  EXPECT_EQ(Control<QLabel>(window, D::kNotice)->text(),
                            QStringLiteral("已恢复: “甲” (1)"));
                  Click(window, IDCANCEL);
              }),
              L"已恢复: “甲” (1)");
    Reload();
    EXPECT_EQ(MarkOf(L"甲"), 20);
    EXPECT_EQ(Library().Count(), 2);
}

TEST_F(HistoryDialog, BringsBackAVersionAsANewSpecification)
{
    EXPECT_EQ(Run([](QWidget* window) {
                  Click(window, D::kAsNew);
                  Click(window, IDCANCEL);
              }),
              L"已恢复为新规范: “甲[副本]”");
    Reload();
    EXPECT_EQ(MarkOf(L"甲"), 30);
    EXPECT_EQ(MarkOf(L"甲[副本]"), 25);
    EXPECT_FALSE(Library().Item(L"甲[副本]")->HasID(m_id));
}

TEST_F(HistoryDialog, BringsBackTheNameOfThenUnlessItIsTaken)
{
    S& first = *Library().Item(m_id);
    ASSERT_TRUE(Library().Folder().Rename(first, L"丙").done);
    Run([](QWidget* window) {
        Click(window, D::kBringBack);
        Click(window, IDCANCEL);
    });
    EXPECT_EQ(MarkOf(L"甲"), 30);
    ASSERT_TRUE(Library().Folder().Rename(*Library().Item(m_id), L"丙").done);
    AddSaved(Make(L"甲", 50));
    Run([](QWidget* window) {
        ClickVersion(window, Versions(window)->topLevelItemCount() - 1);
        Click(window, D::kBringBack);
        Click(window, IDCANCEL);
    });
    Reload();
    EXPECT_EQ(MarkOf(L"丙"), 20);
    EXPECT_EQ(MarkOf(L"甲"), 50);
}

TEST_F(HistoryDialog, ShowsAndBringsBackADeletedOne)
{
    DeleteFirst();
    EXPECT_EQ(Run([](QWidget* window) {
                  EXPECT_EQ(Control<QComboBox>(window, D::kSpecifications)->currentText(),
                            QStringLiteral("甲 (已删除)"));
                  ASSERT_EQ(Versions(window)->topLevelItemCount(), 3);
                  EXPECT_EQ(Text(window, 0, 0), L"删除前");
                  EXPECT_TRUE(Control(window, D::kBringBack)->isEnabled());
                  ClickVersion(window, 1);
                  Click(window, D::kBringBack);
                  EXPECT_EQ(Control<QComboBox>(window, D::kSpecifications)->currentText(),
                            QStringLiteral("甲"));
                  Click(window, IDCANCEL);
              }),
              L"已恢复: “甲” (2)");
    Reload();
    EXPECT_EQ(MarkOf(L"甲"), 25);
    EXPECT_TRUE(Library().Item(m_id));
}

TEST_F(HistoryDialog, WhatThePagesWouldRefuseIsNotBroughtBack)
{
    S& first = *Library().Item(m_id);
    first.LonGrad.MinGrad = -5;
    ASSERT_TRUE(Library().Save(&first));
    first.LonGrad.MinGrad = 0.3;
    ASSERT_TRUE(Library().Save(&first));
    EXPECT_EQ(Run([](QWidget* window) {
                  const ExpectModal box([](QWidget* shown) {
                      EXPECT_TRUE(ReadMessage(shown).text.starts_with(
                          L"“甲”没有保存, 编辑窗口不接受其中的值:\n"));
                      PressKey(shown, Qt::Key_Return);
                  });
                  Click(window, D::kBringBack);
                  Click(window, IDCANCEL);
              }),
              L"");
    EXPECT_EQ(Library().Item(m_id)->LonGrad.MinGrad, 0.3);
}

TEST_F(HistoryDialog, AnotherSpecificationIsChosenByKeys)
{
    Run(
        [](QWidget* window) {
            auto* const list = Control<QComboBox>(window, D::kSpecifications);
            EXPECT_EQ(list->count(), 2);
            list->setFocus();
            PressKey(window, list->currentIndex() == 0 ? Qt::Key_End : Qt::Key_Home);
            EXPECT_EQ(list->currentText(), QStringLiteral("乙"));
            EXPECT_EQ(Versions(window)->topLevelItemCount(), 1);
            list->setFocus();
            PressKey(window, Qt::Key_Escape);
        },
        {m_id});
}

TEST_F(HistoryDialog, AnEmptyLibraryHasNothingToShow)
{
    std::filesystem::remove_all(m_project.Native("规范"));
    Reload();
    EXPECT_EQ(Run(
                  [](QWidget* window) {
                      EXPECT_EQ(Versions(window)->topLevelItemCount(), 0);
                      EXPECT_FALSE(Control(window, D::kBringBack)->isEnabled());
                      EXPECT_FALSE(Control(window, D::kAsNew)->isEnabled());
                      Click(window, IDCANCEL);
                  },
                  {}),
              L"");
}

TEST_F(HistoryDialog, ListsFiftyVersionsInALargeLibrary)
{
    for (int i = 0; i < 500; ++i)
        Add(Make(L"规范" + std::to_wstring(i), i));
    S& first = *Library().Item(m_id);
    for (int i = 0; i < 50; ++i) {
        first.BeelineLen.MaxLen = 100 + i;
        ASSERT_TRUE(Library().Save(&first));
    }
    Run([](QWidget* window) {
        EXPECT_EQ(Versions(window)->topLevelItemCount(), 51);
        Click(window, IDCANCEL);
    });
}
