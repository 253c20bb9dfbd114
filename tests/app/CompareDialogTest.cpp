#include "app/CompareDialog.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>

#include <gtest/gtest.h>

#include "app/DSEditor.h"
#include "app/OthersChangeDialog.h"
#include "compare/ControlIds.h"
#include "platform/mfc/QtText.h"
#include "tests/app/AppTest.h"

namespace {

using D = CCompareDialog;
using S = CDesignSpecification;

class CompareDialog : public AppTest {
protected:
    CompareDialog() : m_first(AddSaved(Make(L"甲", 20))), m_second(AddSaved(Make(L"乙", 30))) {}

    // What the style manager tells afterwards.
    CString Run(const ModalAction& action, const CArray<GUID>& selected)
    {
        CDSEditor editor;
        const ExpectModal modal(action);
        return editor.RunOwn(editor.OwnCommands()[0].id, selected);
    }
    CString RunBoth(const ModalAction& action)
    {
        return Run(action, {m_first.ID(), m_second.ID()});
    }
    static QString Chosen(QWidget* window, int id)
    {
        return Control<QComboBox>(window, id)->currentText();
    }
    static int Differing(QWidget* window)
    {
        return Control<QTableView>(window, CompareId::Values)->model()->rowCount();
    }
    // Keys of a window are for the active one alone.
    static void Activate(QWidget* window)
    {
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    static void TakeAll(QWidget* window, int arrow)
    {
        QTreeWidget* const tree = Control<QTreeWidget>(window, CompareId::Tree);
        tree->setFocus();
        PressKey(window, Qt::Key_Home);
        Click(window, arrow);
    }
    // The longest straight of that name, as anybody would read it from the files.
    double Stored(const wchar_t* name)
    {
        SpecificationFolder folder(m_project.Path(L"规范"));
        EXPECT_TRUE(folder.Load().done);
        const S* const found = folder.Find(name);
        return found ? found->BeelineLen.MaxLen : -1;
    }
    // From the menu beside a list.
    static void ChooseSource(QWidget* window, int button, const CString& item, const CString& path)
    {
        const ExpectModal menu([item](QWidget* shown) { ChooseMenuItem(shown, item); });
        const ExpectModal dialog(ChooseFile(path));
        Click(window, button);
    }

    const S m_first;
    const S m_second;
};

} // namespace

TEST_F(CompareDialog, OpensWithTheSelectedOnesSideBySide)
{
    EXPECT_EQ(RunBoth([](QWidget* window) {
                  EXPECT_EQ(Chosen(window, D::kLeft), QStringLiteral("甲"));
                  EXPECT_EQ(Chosen(window, D::kRight), QStringLiteral("乙"));
                  EXPECT_EQ(Differing(window), 1);
                  Click(window, IDOK);
              }),
              L"");
    EXPECT_EQ(Stored(L"甲"), 20);
}

TEST_F(CompareDialog, ASingleOneStandsBesideTheDefaultOneOrTheBuiltInLimits)
{
    const auto right = [this](const CArray<GUID>& selected) {
        QString text;
        Run(
            [&text](QWidget* window) {
                text = Chosen(window, D::kRight);
                EXPECT_EQ(Chosen(window, D::kLeft), QStringLiteral("甲"));
                PressKey(window, Qt::Key_Escape);
            },
            selected);
        return text;
    };
    EXPECT_EQ(right({m_first.ID()}), QStringLiteral("内置限值"));
    Library().SetDefaultItem(1);
    EXPECT_EQ(right({m_first.ID()}), QStringLiteral("乙"));
    Library().SetDefaultItem(0);
    EXPECT_EQ(right({}), QStringLiteral("内置限值"));
}

TEST_F(CompareDialog, WhatIsTakenIsSavedWithOkAlone)
{
    EXPECT_EQ(RunBoth([this](QWidget* window) {
                  TakeAll(window, CompareId::ToLeft);
                  EXPECT_EQ(Control<QLabel>(window, D::kNotice)->text(),
                            QStringLiteral("按确定保存: “甲”"));
                  EXPECT_EQ(Stored(L"甲"), 20) << "nothing is written before 确定";
                  EXPECT_EQ(MarkOf(L"甲"), 20);
                  Click(window, IDOK);
              }),
              L"已保存: “甲”");
    EXPECT_EQ(Stored(L"甲"), 30);
    EXPECT_EQ(Stored(L"乙"), 30);
    EXPECT_EQ(MarkOf(L"甲"), 30);
    EXPECT_TRUE(Reload().Item(L"甲")->HasID(m_first.ID()));
}

TEST_F(CompareDialog, ValuesGoEitherWayAtOnce)
{
    S& first = *Library().Item(L"甲");
    first.CircularCurveRad.MaxRad = 8000;
    ASSERT_TRUE(Library().Save(&first));
    EXPECT_EQ(RunBoth([](QWidget* window) {
                  Activate(window);
                  auto* const table = Control<QTableView>(window, CompareId::Values);
                  table->setFocus();
                  table->selectRow(0);
                  PressKey(window, Qt::Key_Left, Qt::AltModifier);
                  table->selectRow(1);
                  PressKey(window, Qt::Key_Right, Qt::AltModifier);
                  Click(window, IDOK);
              }),
              L"已保存: “甲”, “乙”");
    EXPECT_EQ(Stored(L"甲"), 30);
    EXPECT_EQ(Reload().Item(L"乙")->CircularCurveRad.MaxRad, 8000);
}

TEST_F(CompareDialog, EscAsksBeforeItGivesUpWhatWasTaken)
{
    RunBoth([](QWidget* window) {
        TakeAll(window, CompareId::ToLeft);
        {
            const ExpectMessage box(L"取过来的值还没有保存。要放弃吗?", L"提示", MB_ICONQUESTION,
                                    IDNO);
            PressKey(window, Qt::Key_Escape);
        }
        EXPECT_TRUE(window->isVisible());
        const ExpectMessage box(L"取过来的值还没有保存。要放弃吗?", L"提示", MB_ICONQUESTION,
                                IDYES);
        PressKey(window, Qt::Key_Escape);
    });
    EXPECT_EQ(Stored(L"甲"), 20);
}

TEST_F(CompareDialog, AnotherSideIsShownOnlyWhenNothingIsLost)
{
    RunBoth([](QWidget* window) {
        TakeAll(window, CompareId::ToLeft);
        auto* const right = Control<QComboBox>(window, D::kRight);
        {
            const ExpectMessage box(L"取过来的值还没有保存。要放弃吗?", L"提示", MB_ICONQUESTION,
                                    IDNO);
            right->setFocus();
            PressKey(window, Qt::Key_End);
        }
        EXPECT_EQ(right->currentText(), QStringLiteral("乙"));
        Activate(window);
        Control(window, CompareId::Tree)->setFocus();
        PressKey(window, Qt::Key_Z, Qt::ControlModifier);
        right->setFocus();
        PressKey(window, Qt::Key_End);
        EXPECT_EQ(right->currentText(), QStringLiteral("内置限值"));
        EXPECT_FALSE(Control(window, CompareId::ToRight)->isVisible())
            << "the built-in limits can only be read";
        Click(window, IDCANCEL);
    });
}

TEST_F(CompareDialog, AFileIsReadForOneSide)
{
    SpecificationFolder folder(L"");
    folder.Add(std::make_unique<S>(Make(L"别的", 50)));
    S theirs = m_first;
    theirs.BeelineLen.MaxLen = 44;
    folder.Add(std::make_unique<S>(theirs));
    const CString file = m_project.Path(L"all.hds");
    ASSERT_TRUE(folder.Export(file, {}).done);
    Run(
        [&](QWidget* window) {
            ChooseSource(window, D::kRight + 1, L"文件…", file);
            EXPECT_EQ(Chosen(window, D::kRight), QStringLiteral("甲 (all.hds)"))
                << "the same specification, in another version";
            EXPECT_FALSE(Control(window, CompareId::ToRight)->isVisible());
            TakeAll(window, CompareId::ToLeft);
            Click(window, IDOK);
        },
        {m_first.ID()});
    EXPECT_EQ(Stored(L"甲"), 44);
}

TEST_F(CompareDialog, AnotherProjectIsReadForOneSide)
{
    SpecificationFolder other(m_project.Path(L"another/规范"));
    std::filesystem::create_directories(m_project.Native("another/规范"));
    ASSERT_TRUE(other.Save(other.Add(std::make_unique<S>(Make(L"邻居", 60)))).done);
    Run(
        [&](QWidget* window) {
            ChooseSource(window, D::kRight + 1, L"其他项目…", m_project.Path(L"another"));
            EXPECT_EQ(Chosen(window, D::kRight), QStringLiteral("邻居 (another)"));
            TakeAll(window, CompareId::ToLeft);
            Click(window, IDOK);
        },
        {m_first.ID()});
    EXPECT_EQ(Stored(L"甲"), 60);
}

TEST_F(CompareDialog, AnEarlierVersionIsReadForOneSide)
{
    S& first = *Library().Item(L"甲");
    first.BeelineLen.MaxLen = 25;
    ASSERT_TRUE(Library().Save(&first));
    Run(
        [](QWidget* window) {
            {
                const ExpectModal menu([](QWidget* shown) {
                    const ShownMenuItem history = ReadMenu(shown).back();
                    EXPECT_EQ(history.text, L"“甲”的历史");
                    ASSERT_EQ(history.subMenu.size(), 1U);
                    ChooseMenuItem(shown, history.subMenu[0].text);
                });
                Click(window, D::kRight + 1);
            }
            EXPECT_TRUE(Chosen(window, D::kRight).startsWith(QStringLiteral("甲 (")))
                << Chosen(window, D::kRight).toStdString();
            EXPECT_FALSE(Control(window, CompareId::ToRight)->isVisible());
            EXPECT_EQ(Differing(window), 1);
            TakeAll(window, CompareId::ToLeft);
            Click(window, IDOK);
        },
        {m_first.ID()});
    EXPECT_EQ(Stored(L"甲"), 20);
}

TEST_F(CompareDialog, WithoutVersionsThereIsNoHistoryToChooseFrom)
{
    Run(
        [](QWidget* window) {
            {
                const ExpectModal menu([](QWidget* shown) {
                    EXPECT_FALSE(ReadMenu(shown).back().enabled);
                    PressKey(shown, Qt::Key_Escape);
                });
                Click(window, D::kRight + 1);
            }
            Click(window, IDCANCEL);
        },
        {m_first.ID()});
}

TEST_F(CompareDialog, AFileThatCannotBeReadSaysWhy)
{
    m_project.Write("broken.hds", "<StyleLibrary><Group>");
    Run(
        [&](QWidget* window) {
            {
                const ExpectModal menu([](QWidget* shown) { ChooseMenuItem(shown, L"文件…"); });
                const ExpectModal dialog(ChooseFile(m_project.Path(L"broken.hds")));
                const ExpectModal box([](QWidget* shown) {
                    const CString text = ReadMessage(shown).text;
                    EXPECT_TRUE(text.starts_with(L"无法从这里读取规范:\n")) << ToUtf8(text);
                    EXPECT_NE(text.find(L"broken.hds"), CString::npos);
                    PressKey(shown, Qt::Key_Return);
                });
                Click(window, D::kRight + 1);
            }
            EXPECT_EQ(Chosen(window, D::kRight), QStringLiteral("内置限值"));
            Click(window, IDCANCEL);
        },
        {m_first.ID()});
}

TEST_F(CompareDialog, WhatThePagesWouldRefuseIsNotSaved)
{
    S& second = *Library().Item(L"乙");
    second.LonGrad.MinGrad = -5;
    ASSERT_TRUE(Library().Save(&second));
    RunBoth([](QWidget* window) {
        TakeAll(window, CompareId::ToLeft);
        {
            const ExpectModal box([](QWidget* shown) {
                const CString text = ReadMessage(shown).text;
                EXPECT_TRUE(text.starts_with(L"“甲”没有保存, 编辑窗口不接受其中的值:\n"))
                    << ToUtf8(text);
                PressKey(shown, Qt::Key_Return);
            });
            Click(window, IDOK);
        }
        EXPECT_TRUE(window->isVisible());
        Click(window, IDCANCEL);
    });
    EXPECT_EQ(Stored(L"甲"), 20);
    EXPECT_EQ(MarkOf(L"甲"), 20);
}

TEST_F(CompareDialog, WhatOthersChangedMeanwhileIsSettled)
{
    RunBoth([this](QWidget* window) {
        TakeAll(window, CompareId::ToLeft);
        SpecificationFolder folder(m_project.Path(L"规范"));
        folder.Load();
        S& theirs = *folder.Find(L"甲");
        theirs.CircularCurveRad.MaxRad = 8000;
        ASSERT_TRUE(folder.Save(theirs).done);
        const ExpectModal settle(
            [](QWidget* shown) { Click(shown, COthersChangeDialog::kAsChosen); });
        Click(window, IDOK);
    });
    EXPECT_EQ(Stored(L"甲"), 30);
    EXPECT_EQ(Reload().Item(L"甲")->CircularCurveRad.MaxRad, 8000);
}

TEST_F(CompareDialog, AFileThatResistsIsToldAndNothingIsChanged)
{
    RunBoth([this](QWidget* window) {
        TakeAll(window, CompareId::ToLeft);
        const std::filesystem::path folder = m_project.Native("规范");
        std::filesystem::rename(folder, m_project.Native("weg"));
        {
            // The project's folder is gone: what was taken can be saved elsewhere.
            const ExpectModal box([](QWidget* shown) { PressKey(shown, Qt::Key_Escape); });
            Click(window, IDOK);
        }
        EXPECT_TRUE(window->isVisible());
        std::filesystem::rename(m_project.Native("weg"), folder);
        Click(window, IDOK);
    });
    EXPECT_EQ(Stored(L"甲"), 30);
}

TEST_F(CompareDialog, OffersFiveHundredSpecifications)
{
    for (int i = 0; i < 500; ++i)
        Add(Make(L"规范" + std::to_wstring(i), i));
    RunBoth([](QWidget* window) {
        EXPECT_EQ(Control<QComboBox>(window, D::kLeft)->count(), 503);
        Click(window, IDCANCEL);
    });
}
