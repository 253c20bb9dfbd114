// The command of the style manager that takes values from a spreadsheet.
#include "app/ReadSheetDialog.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>

#include <gtest/gtest.h>

#include "app/DSEditor.h"
#include "compare/ControlIds.h"
#include "platform/mfc/QtText.h"
#include "sheets/WorkbookWriting.h"
#include "tests/app/AppTest.h"
#include "tests/support/ValidSpecification.h"

namespace {

using D = CReadSheetDialog;

class ReadSheetDialog : public AppTest {
protected:
    ReadSheetDialog()
    {
        AddSaved(Make(L"甲"));
        AddSaved(Make(L"乙"));
    }

    // With 甲 selected. What the style manager tells afterwards.
    CString Run(const char* file, const ModalAction& action)
    {
        CDSEditor editor;
        const ExpectModal asking(ChooseFile(m_folder.Path(ToWide(file))));
        const ExpectModal modal(action);
        return editor.RunOwn(editor.OwnCommands()[4].id, {Library().Item(L"甲")->ID()});
    }
    void WriteTable(const char* file, const char* value) const
    {
        m_folder.Write(file, std::string("圆曲线半径\n设计车速,80,60\n设超高最小半径,") + value +
                                 ",150\n");
    }
    static QString Target(QWidget* window)
    {
        return Control<QComboBox>(window, D::kTarget)->currentText();
    }
    static void ChooseNew(QWidget* window)
    {
        Control(window, D::kTarget)->setFocus();
        PressKey(window, Qt::Key_End);
        EXPECT_EQ(Target(window), QStringLiteral("(新建规范)"));
    }
    static CString Notice(QWidget* window)
    {
        return FromQString(Control<QLabel>(window, D::kNotice)->text());
    }
    static int Differing(QWidget* window)
    {
        return Control<QTableView>(window, CompareId::Values)->model()->rowCount();
    }
    static bool CanOk(QWidget* window) { return Control(window, IDOK)->isEnabled(); }
    static void Cancel(QWidget* window) { PressKey(window, Qt::Key_Escape); }

    // The radii at 80 and so on, as anybody would read them from the files.
    std::vector<int> Stored(const wchar_t* name)
    {
        SpecificationFolder folder(m_project.Path(L"规范"));
        EXPECT_TRUE(folder.Load().done);
        std::vector<int> radii;
        const CDesignSpecification* const found = folder.Find(name);
        if (found)
            for (const auto& entry : found->CircularCurveRad.SuperelevationMinRad)
                radii.push_back(entry.value);
        return radii;
    }

    const TemporaryFolder m_folder;
    const std::vector<int> m_before{250, 150, 100, 70, 40, 20};
};

} // namespace

TEST_F(ReadSheetDialog, ATableGoesIntoTheSelectedOneAfterItsDifferencesWereShown)
{
    WriteTable("a.csv", "270");
    EXPECT_EQ(Run("a.csv",
                  [this](QWidget* window) {
                      EXPECT_EQ(Target(window), QStringLiteral("甲"));
                      EXPECT_FALSE(Control(window, D::kProblems)->isVisible());
                      EXPECT_FALSE(Control(window, D::kName)->isVisible());
                      // 80 changes, what is not in the table goes, 60 stays.
                      EXPECT_EQ(Differing(window), static_cast<int>(m_before.size()) - 1);
                      EXPECT_EQ(Stored(L"甲"), m_before) << "nothing is written before 确定";
                      Click(window, IDOK);
                  }),
              L"已从“a.csv”导入到“甲”。");
    EXPECT_EQ(Stored(L"甲"), (std::vector{270, 150}));
    EXPECT_EQ(Stored(L"乙"), m_before);
}

TEST_F(ReadSheetDialog, EscWritesNothing)
{
    WriteTable("a.csv", "270");
    EXPECT_EQ(Run("a.csv", &Cancel), L"");
    EXPECT_EQ(Stored(L"甲"), m_before);
}

TEST_F(ReadSheetDialog, AWorkbookGoesWhereItCameFrom)
{
    CDesignSpecification changed = *Library().Item(L"乙");
    changed.CircularCurveRad.SuperelevationMinRad[0].value = 270;
    Problems problems;
    ASSERT_TRUE(WriteWorkbook(m_folder.Path(L"a.xlsx"), {&changed}, StampOf(L"test"), problems));
    Run("a.xlsx", [](QWidget* window) {
        EXPECT_EQ(Target(window), QStringLiteral("乙")) << "not the selected one";
        EXPECT_EQ(Differing(window), 1);
        EXPECT_EQ(Notice(window), L"a.xlsx (写自“乙”): 按确定改变 1 处。");
        Click(window, IDOK);
    });
    EXPECT_EQ(Stored(L"乙")[0], 270);
    EXPECT_EQ(Stored(L"甲"), m_before);
}

TEST_F(ReadSheetDialog, AnotherOneCanBeChosenForIt)
{
    WriteTable("a.csv", "270");
    Run("a.csv", [](QWidget* window) {
        Control(window, D::kTarget)->setFocus();
        PressKey(window, Qt::Key_Home); // by name: 甲 comes first, 乙 last
        PressKey(window, Qt::Key_Down);
        const bool isFirst = Target(window) == QStringLiteral("甲");
        if (isFirst) PressKey(window, Qt::Key_Up);
        ASSERT_EQ(Target(window), QStringLiteral("乙"));
        Click(window, IDOK);
    });
    EXPECT_EQ(Stored(L"乙")[0], 270);
    EXPECT_EQ(Stored(L"甲"), m_before);
}

TEST_F(ReadSheetDialog, ANewOneIsBuiltOnTheBuiltInLimitsAndSelected)
{
    WriteTable("园区.csv", "270");
    std::optional<GUID> wanted;
    const Connection select =
        CStyleEditor::SelectWanted().Connect([&](const GUID& id) { wanted = id; });
    EXPECT_EQ(Run("园区.csv",
                  [](QWidget* window) {
                      ChooseNew(window);
                      EXPECT_EQ(Control<QLineEdit>(window, D::kName)->text(),
                                QStringLiteral("园区"));
                      TypeInto(window, D::kName, L"乙");
                      const ExpectMessage box(L"和已有样式重名!");
                      Click(window, IDOK);
                      TypeInto(window, D::kName, L"园区道路");
                      Click(window, IDOK);
                  }),
              L"已从“园区.csv”导入到“园区道路”。");
    EXPECT_EQ(Stored(L"园区道路"), (std::vector{270, 150}));
    ASSERT_TRUE(wanted);
    EXPECT_EQ(Library().Item(*wanted)->Name(), L"园区道路");
}

TEST_F(ReadSheetDialog, WhatIsWrongIsListedByCellAndCanBeCopied)
{
    WriteTable("a.csv", "25o");
    QGuiApplication::clipboard()->clear();
    EXPECT_EQ(Run("a.csv",
                  [](QWidget* window) {
                      auto* const list = Control<QPlainTextEdit>(window, D::kProblems);
                      EXPECT_TRUE(list->isVisible());
                      EXPECT_NE(list->toPlainText().indexOf(QStringLiteral("B3")), -1)
                          << list->toPlainText().toStdString();
                      EXPECT_FALSE(Control(window, CompareId::Values)->isVisible());
                      EXPECT_EQ(Notice(window), L"a.csv: 无法读取, 什么也不会改变。");
                      EXPECT_FALSE(CanOk(window));
                      Click(window, D::kCopy);
                      EXPECT_EQ(QGuiApplication::clipboard()->text(), list->toPlainText());
                      ChooseNew(window);
                      EXPECT_FALSE(CanOk(window));
                      Cancel(window);
                  }),
              L"");
    EXPECT_EQ(Stored(L"甲"), m_before);
}

TEST_F(ReadSheetDialog, AFileThatIsNoSpreadsheetIsTold)
{
    m_folder.Write("a.xlsx", "PK nothing");
    Run("a.xlsx", [](QWidget* window) {
        EXPECT_FALSE(Control<QPlainTextEdit>(window, D::kProblems)->toPlainText().isEmpty());
        EXPECT_FALSE(CanOk(window));
        Cancel(window);
    });
}

TEST_F(ReadSheetDialog, WhatTheEditorRefusesIsToldAndNothingIsTaken)
{
    WriteTable("a.csv", "-250");
    Run("a.csv", [](QWidget* window) {
        EXPECT_FALSE(CanOk(window));
        EXPECT_EQ(Notice(window), L"a.csv: 有编辑窗口不接受的值, 不能导入。");
        const auto* const list = Control<QPlainTextEdit>(window, D::kProblems);
        EXPECT_TRUE(list->toPlainText().startsWith(QStringLiteral("编辑窗口不接受: ")));
        EXPECT_GT(Differing(window), 0) << "they stand beside what is refused";
        PressKey(window, Qt::Key_Return, Qt::ControlModifier);
        EXPECT_TRUE(window->isVisible());
        Cancel(window);
    });
    EXPECT_EQ(Stored(L"甲"), m_before);
}

TEST_F(ReadSheetDialog, RemarksStandBesideWhatChanges)
{
    m_folder.Write("a.csv", "圆曲线半径\n设计车速,80,60\n设超高最小半径,270,150\n备注\n");
    Run("a.csv", [](QWidget* window) {
        EXPECT_TRUE(Control(window, CompareId::Values)->isVisible());
        EXPECT_TRUE(CanOk(window));
        Click(window, IDOK);
    });
    EXPECT_EQ(Stored(L"甲"), (std::vector{270, 150}));
}
