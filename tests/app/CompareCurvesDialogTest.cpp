// The editor is open; its curves are compared with another specification.
#include "app/CompareCurvesDialog.h"

#include <optional>

#include <QComboBox>
#include <QContextMenuEvent>

#include <gtest/gtest.h>

#include "app/DSMainDialog.h"
#include "pages/framework/CurveView.h"
#include "tests/app/AppTest.h"

namespace {

class CompareCurvesDialog : public AppTest {
protected:
    CompareCurvesDialog()
    {
        AddSaved(Make(L"甲"));
        CDesignSpecification other = Make(L"乙", 30);
        other.CircularCurveRad.SuperelevationMinRad[0].value = 270;
        other.LonGradMinLen.MinLens[0].value = 310;
        AddSaved(other);
    }
    static QList<CurveView*> Views(QWidget* editor) { return editor->findChildren<CurveView*>(); }
    static int Compared(QWidget* editor)
    {
        int count = 0;
        for (const CurveView* view : Views(editor))
            count += view->Content().compared.empty() ? 0 : 1;
        return count;
    }
    // `asked` answers the dialog that the item opens.
    static void ChooseFromMenu(QWidget* editor, const wchar_t* item, const ModalAction& asked = {})
    {
        CurveView* const view = Views(editor).front();
        const ExpectModal menu([item](QWidget* window) { ChooseMenuItem(window, item); });
        std::optional<ExpectModal> dialog;
        if (asked) dialog.emplace(asked);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(view, &event);
    }
    void Edit(const ModalAction& action)
    {
        CDSMainDialog dialog(L"甲", false, nullptr, &m_frame);
        const ExpectModal modal([&](QWidget* window) {
            ClickItem(window, "圆曲线半径");
            action(window);
            Click(window, IDCANCEL);
        });
        dialog.DoModal();
    }
};

TEST_F(CompareCurvesDialog, DrawsTheChosenOneOnAllPages)
{
    Edit([](QWidget* editor) {
        ChooseFromMenu(editor, L"与其他规范比较…", [](QWidget* window) {
            EXPECT_EQ(window->windowTitle().toStdString(), "与其他规范比较");
            const auto* const list = Control<QComboBox>(window, CCompareCurvesDialog::kSource);
            EXPECT_EQ(list->itemText(0).toStdString(), "乙"); // not the one that is edited
            EXPECT_EQ(list->itemText(1).toStdString(), "内置限值");
            Click(window, IDOK);
        });
        EXPECT_EQ(Compared(editor), Views(editor).size());
        const CurveContent& content = Views(editor).front()->Content();
        EXPECT_EQ(content.comparedName, L"乙");
        EXPECT_EQ(content.compared[0].curves[2].points.back().value, 270);
        EXPECT_EQ(content.charts[0].curves[2].points.back().value, 250);
        ChooseFromMenu(editor, L"不再比较");
        EXPECT_EQ(Compared(editor), 0);
    });
}

TEST_F(CompareCurvesDialog, ChangesNothingWhenItIsCancelled)
{
    Edit([](QWidget* editor) {
        ChooseFromMenu(editor, L"与其他规范比较…",
                       [](QWidget* window) { Click(window, IDCANCEL); });
        EXPECT_EQ(Compared(editor), 0);
    });
}

} // namespace
