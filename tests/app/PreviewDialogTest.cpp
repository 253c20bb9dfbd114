#include "app/PreviewDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <gtest/gtest.h>

#include "app/ReportCommands.h"
#include "platform/mfc/QtText.h"
#include "tests/app/AppTest.h"

using namespace designspec;

namespace {

using D = CPreviewDialog;

class PreviewDialog : public AppTest {
protected:
    PreviewDialog()
    {
        Add(Make(L"甲"));
        CDesignSpecification other = Make(L"乙");
        other.LonGrad.MinGrad = 0.7;
        Add(other);
    }
    // Of 甲.
    CString Run(const ModalAction& action)
    {
        const ExpectModal dialog(action);
        return PreviewReport({*Library().Item(L"甲")}, &m_frame);
    }
    static std::string Number(QWidget* window)
    {
        return Control<QLabel>(window, D::kNumber)->text().toStdString();
    }
    // What the preview shows, after it was drawn.
    static QImage Shown(QWidget* window)
    {
        QTest::qWait(20);
        return Control(window, D::kSheets)->grab().toImage();
    }
};

} // namespace

TEST_F(PreviewDialog, GoesFromPageToPageByKeys)
{
    Run([](QWidget* window) {
        EXPECT_EQ(window->windowTitle(), QStringLiteral("打印预览"));
        const int pages = Control<QPrintPreviewWidget>(window, D::kSheets)->pageCount();
        const std::string of = " / " + std::to_string(pages);
        ASSERT_GT(pages, 2);
        EXPECT_EQ(Number(window), "1" + of);
        PressKey(window, Qt::Key_PageDown);
        EXPECT_EQ(Number(window), "2" + of);
        PressKey(window, Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(Number(window), std::to_string(pages) + of);
        PressKey(window, Qt::Key_PageDown);
        EXPECT_EQ(Number(window), std::to_string(pages) + of);
        PressKey(window, Qt::Key_PageUp);
        EXPECT_EQ(Number(window), std::to_string(pages - 1) + of);
        PressKey(window, Qt::Key_Home, Qt::ControlModifier);
        EXPECT_EQ(Number(window), "1" + of);
        Click(window, D::kNext);
        EXPECT_EQ(Number(window), "2" + of);
        Click(window, D::kBack);
        EXPECT_EQ(Number(window), "1" + of);
        PressKey(window, Qt::Key_Escape);
    });
}

TEST_F(PreviewDialog, IsLargerAndSmallerOnDemand)
{
    Run([](QWidget* window) {
        auto* const sheets = Control<QPrintPreviewWidget>(window, D::kSheets);
        const double before = sheets->zoomFactor();
        PressKey(window, Qt::Key_Plus, Qt::ControlModifier);
        EXPECT_GT(sheets->zoomFactor(), before);
        Click(window, D::kSmaller);
        EXPECT_NEAR(sheets->zoomFactor(), before, 0.01);
        Click(window, D::kWhole);
        EXPECT_LT(sheets->zoomFactor(), before);
        Click(window, D::kWide);
        EXPECT_NEAR(sheets->zoomFactor(), before, before / 10);
        PressKey(window, Qt::Key_Escape);
    });
}

// The marks are amber.
TEST_F(PreviewDialog, MarksWhatDiffersFromAnotherOne)
{
    const auto amber = [](const QImage& image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QColor c = image.pixelColor(x, y);
                count += c.red() > 240 && c.green() > 210 && c.blue() < 170 ? 1 : 0;
            }
        return count;
    };
    Run([amber](QWidget* window) {
        auto* const sheets = Control<QPrintPreviewWidget>(window, D::kSheets);
        sheets->setAllPagesViewMode();
        EXPECT_FALSE(Control(window, D::kOther)->isEnabled());
        EXPECT_EQ(amber(Shown(window)), 0);
        Click(window, D::kCompare);
        auto* const others = Control<QComboBox>(window, D::kOther);
        EXPECT_TRUE(others->isEnabled());
        others->setCurrentIndex(others->findText(QStringLiteral("乙")));
        EXPECT_GT(amber(Shown(window)), 10);
        Click(window, D::kCompare);
        EXPECT_EQ(amber(Shown(window)), 0);
        PressKey(window, Qt::Key_Escape);
    });
}

TEST_F(PreviewDialog, WritesTheReportThatIsShown)
{
    const CString told = Run([this](QWidget* window) {
        Click(window, D::kCompare);
        auto* const others = Control<QComboBox>(window, D::kOther);
        others->setCurrentIndex(others->findText(QStringLiteral("乙")));
        const ExpectModal choice(ChooseFile(m_project.Path(L"a.html")));
        Click(window, D::kExport);
        PressKey(window, Qt::Key_Escape);
    });
    EXPECT_EQ(told, L"已导出: " + m_project.Path(L"a.html"));
    EXPECT_NE(m_project.Read("a.html").find("0.3 <small>[0.7]</small>"), std::string::npos);
}

TEST_F(PreviewDialog, StaysWhenNothingWasPrinted)
{
    EXPECT_EQ(Run([](QWidget* window) {
                  {
                      const ExpectModal printing(
                          [](QWidget* asking) { PressKey(asking, Qt::Key_Escape); });
                      Click(window, IDOK);
                  }
                  EXPECT_TRUE(window->isVisible());
                  Click(window, IDCANCEL);
              }),
              L"");
}
