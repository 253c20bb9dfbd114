#include "app/ChangeManyDialog.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

#include "app/DSEditor.h"
#include "tests/app/AppTest.h"

namespace {

using D = CChangeManyDialog;
using S = CDesignSpecification;
using Lines = std::vector<std::string>;

class ChangeManyDialog : public AppTest {
protected:
    ChangeManyDialog()
    {
        AddSaved(Make(L"甲"));
        S other = Make(L"乙");
        other.CircularCurveRad.SuperelevationMinRad[0].value = 270;
        AddSaved(other);
        AddSaved(Make(L"丙"));
    }

    // Of 甲 and 乙; gives what the style manager tells afterwards.
    CString Run(const ModalAction& action)
    {
        CDSEditor editor;
        const ExpectModal modal(action);
        return editor.RunOwn(editor.OwnCommands()[1].id,
                             {Library().Item(L"甲")->ID(), Library().Item(L"乙")->ID()});
    }
    static void Choose(QWidget* window, int list, const char* text)
    {
        auto* const box = Control<QComboBox>(window, list);
        const int index = box->findText(QString::fromUtf8(text));
        ASSERT_GE(index, 0) << text;
        box->setFocus();
        PressKey(window, Qt::Key_Home);
        while (box->currentIndex() < index)
            PressKey(window, Qt::Key_Down);
    }
    static void ChooseRadius(QWidget* window)
    {
        Choose(window, D::kPage, "圆曲线半径");
        Choose(window, D::kLimit, "设超高最小半径");
    }
    static Lines Preview(QWidget* window)
    {
        Lines lines;
        const auto* const tree = Control<QTreeWidget>(window, D::kPreview);
        for (int i = 0; i < tree->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* const item = tree->topLevelItem(i);
            lines.push_back(item->text(0).toStdString());
            for (int j = 0; j < item->childCount(); ++j)
                lines.push_back(" " + item->child(j)->text(0).toStdString() + "|" +
                                item->child(j)->text(1).toStdString() + "|" +
                                item->child(j)->text(2).toStdString());
        }
        return lines;
    }
    static bool CanOk(QWidget* window) { return Control(window, IDOK)->isEnabled(); }
    // The radius of the highest speed, as anybody would read it from the files.
    int Stored(const wchar_t* name)
    {
        SpecificationFolder folder(m_project.Path(L"规范"));
        EXPECT_TRUE(folder.Load().done);
        return folder.Find(name)->CircularCurveRad.SuperelevationMinRad[0].value;
    }
};

} // namespace

TEST_F(ChangeManyDialog, SetsOneValueInAllOfThem)
{
    EXPECT_EQ(Run([this](QWidget* window) {
                  EXPECT_FALSE(CanOk(window)) << "there is no number yet";
                  ChooseRadius(window);
                  Choose(window, D::kSpeed, "80");
                  TypeInto(window, D::kOperand, L"300");
                  EXPECT_EQ(Preview(window), (Lines{"甲", " 车速 80 km/h|250 m|300 m", "乙",
                                                    " 车速 80 km/h|270 m|300 m"}));
                  EXPECT_EQ(Control<QLabel>(window, D::kNotice)->text(),
                            QStringLiteral("选中 2 个规范, 修改其中 2 个。"));
                  EXPECT_EQ(Stored(L"甲"), 250) << "nothing is written before 确定";
                  Click(window, IDOK);
              }),
              L"已修改 2 个规范。");
    EXPECT_EQ(Stored(L"甲"), 300);
    EXPECT_EQ(Stored(L"乙"), 300);
    EXPECT_EQ(Stored(L"丙"), 250) << "it was not selected";
}

TEST_F(ChangeManyDialog, ScalesATableAtAllSpeeds)
{
    Run([](QWidget* window) {
        ChooseRadius(window);
        Choose(window, D::kKind, "乘以");
        TypeInto(window, D::kOperand, L"2");
        EXPECT_EQ(Preview(window).size(), 14U);
        EXPECT_EQ(Preview(window)[1], " 车速 80 km/h|250 m|500 m");
        Click(window, IDOK);
    });
    EXPECT_EQ(Stored(L"甲"), 500);
    EXPECT_EQ(Stored(L"乙"), 540);
}

TEST_F(ChangeManyDialog, ASpeedThatIsNotThereCanBeTyped)
{
    Run([](QWidget* window) {
        ChooseRadius(window);
        auto* const speed = Control<QComboBox>(window, D::kSpeed);
        speed->setFocus();
        speed->lineEdit()->selectAll();
        Type(window, L"120");
        TypeInto(window, D::kOperand, L"650");
        EXPECT_EQ(Preview(window)[1], " 车速 120 km/h|—|650 m");
        Click(window, IDOK);
    });
    EXPECT_EQ(Stored(L"乙"), 650);
}

TEST_F(ChangeManyDialog, WhatOneCannotTakeIsDoneInNone)
{
    Run([](QWidget* window) {
        ChooseRadius(window);
        Choose(window, D::kSpeed, "80");
        Choose(window, D::kKind, "加上 (负数为减)");
        TypeInto(window, D::kOperand, L"-260");
        EXPECT_EQ(Preview(window).size(), 3U);
        EXPECT_TRUE(Preview(window)[0].starts_with("甲: ")) << Preview(window)[0];
        EXPECT_EQ(Preview(window)[2], " 车速 80 km/h|270 m|10 m");
        EXPECT_FALSE(CanOk(window));
        EXPECT_EQ(Control<QLabel>(window, D::kNotice)->text(),
                  QStringLiteral("有规范不能这样修改, 一个也不会修改。"));
        TypeInto(window, D::kOperand, L"x");
        EXPECT_FALSE(CanOk(window));
        Click(window, IDCANCEL);
    });
    EXPECT_EQ(Stored(L"乙"), 270);
}

TEST_F(ChangeManyDialog, WhatIsSoAlreadyIsNoChange)
{
    Run([](QWidget* window) {
        ChooseRadius(window);
        Choose(window, D::kSpeed, "80");
        TypeInto(window, D::kOperand, L"270");
        EXPECT_EQ(Preview(window), (Lines{"甲", " 车速 80 km/h|250 m|270 m", "乙: 不变"}));
        Click(window, IDOK);
    });
    EXPECT_EQ(Stored(L"甲"), 270);
}

TEST_F(ChangeManyDialog, WhatOthersChangedMeanwhileStopsAll)
{
    Run([this](QWidget* window) {
        ChooseRadius(window);
        TypeInto(window, D::kOperand, L"300");
        SpecificationFolder folder(m_project.Path(L"规范"));
        folder.Load();
        folder.Find(L"乙")->BeelineLen.MaxLen = 33;
        ASSERT_TRUE(folder.Save(*folder.Find(L"乙")).done);
        {
            const ExpectMessage box(L"一个规范也没有修改。\n\n“乙”已被别人修改或删除。"
                                    L"请重新加载(F5)之后再试。");
            Click(window, IDOK);
        }
        EXPECT_TRUE(window->isVisible());
        Click(window, IDCANCEL);
    });
    EXPECT_EQ(Stored(L"甲"), 250);
    EXPECT_EQ(MarkOf(L"甲"), 20);
    EXPECT_EQ(Library().Item(L"甲")->CircularCurveRad.SuperelevationMinRad[0].value, 250);
}

TEST_F(ChangeManyDialog, OneFileThatResistsTakesTheOthersBack)
{
    Run([this](QWidget* window) {
        ChooseRadius(window);
        TypeInto(window, D::kOperand, L"300");
        // A folder stands where the second file is to be written.
        const S& second = *Library().Item(L"乙");
        const std::filesystem::path file =
            m_project.Native("规范") / ToUtf8(Library().Folder().FileOf(second));
        std::filesystem::remove(file);
        std::filesystem::create_directories(file / "x");
        {
            const ExpectModal box([](QWidget* shown) {
                EXPECT_TRUE(ReadMessage(shown).text.starts_with(L"一个规范也没有修改。"));
                PressKey(shown, Qt::Key_Return);
            });
            Click(window, IDOK);
        }
        std::filesystem::remove_all(file);
        Click(window, IDCANCEL);
    });
    EXPECT_EQ(Stored(L"甲"), 250);
}
