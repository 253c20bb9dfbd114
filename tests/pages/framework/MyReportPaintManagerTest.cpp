#include "pages/framework/MyReportPaintManager.h"

#include <gtest/gtest.h>

#include "pages/framework/XTPReportRecordItemHeard.h"
#include "platform/xtp/report/ReportControl.h"
#include "tests/gui/Picture.h"

namespace {

constexpr QSize kSize(100, 65);

template <class Manager> QImage Header(const CString& caption, int scale = 1)
{
    CXTPReportControl grid;
    grid.SetPaintManager(new Manager);
    const auto draw = [&](QPainter& painter) {
        const CXTPReportColumn column(0, caption, 100);
        grid.GetPaintManager()->DrawColumnHeader(painter, QRect({}, kSize), &column);
    };
    return Picture(kSize, draw, scale);
}

class MyReportPaintManager : public testing::Test {
protected:
    MyReportPaintManager() { m_grid.SetPaintManager(m_manager); }

    CXTPReportControl m_grid;
    CMyReportPaintManager* const m_manager = new CMyReportPaintManager; // the grid's
};

} // namespace

TEST_F(MyReportPaintManager, ARowIsAsHighAsItsHeaderSays)
{
    CXTPReportRecord record;
    record.AddItem(new CXTPReportRecordItemHeard(L"行", 57));
    EXPECT_EQ(m_manager->GetRowHeight(&record), 57);
}

TEST_F(MyReportPaintManager, OtherRowsHaveTheDefaultHeight)
{
    const int standard = m_manager->CXTPReportPaintManager::GetRowHeight(nullptr);
    CXTPReportRecord none;
    EXPECT_EQ(m_manager->GetRowHeight(&none), standard);
    EXPECT_EQ(m_manager->GetRowHeight(nullptr), standard);
    CXTPReportRecord zero;
    zero.AddItem(new CXTPReportRecordItemHeard(L"行"));
    EXPECT_EQ(m_manager->GetRowHeight(&zero), standard);
    CXTPReportRecord other;
    other.AddItem(new CXTPReportRecordItem(L"行"));
    other.AddItem(new CXTPReportRecordItemHeard(L"行", 57));
    EXPECT_EQ(m_manager->GetRowHeight(&other), standard);
    EXPECT_GT(m_manager->GetTwoLineHeight(), standard);
}

TEST_F(MyReportPaintManager, ABackslashSplitsTheHeaderByADiagonal)
{
    const QImage image = Header<CMyReportPaintManager>(L"HH\\HHHH");
    const QRect upper = DarkRect(image, QRect(60, 0, 40, 25));
    const QRect lower = DarkRect(image, QRect(0, 40, 45, 25));
    ASSERT_FALSE(upper.isNull());
    ASSERT_FALSE(lower.isNull());
    EXPECT_GE(upper.top(), 4);
    EXPECT_LE(upper.right(), 96);
    EXPECT_GE(upper.right(), 90);
    EXPECT_GE(lower.left(), 3);
    EXPECT_LE(lower.left(), 10);
    EXPECT_LE(lower.bottom(), 61);
    // The line goes through the middle.
    EXPECT_FALSE(DarkRect(image, QRect(45, 28, 8, 8)).isNull());
}

// The captions of widenings: both whole, and clear of the edges of the cell.
TEST_F(MyReportPaintManager, BothCornersHaveRoomAtAnyScale)
{
    const QFontMetrics font(m_manager->GetCaptionFont());
    const int line = font.height();
    const int upperWidth = font.horizontalAdvance(QStringLiteral("圆曲线半径"));
    EXPECT_LE(upperWidth, kSize.width() - 8);
    EXPECT_LE(2 * line, kSize.height() - 8);
    for (const int scale : {1, 2}) {
        const QImage image = Header<CMyReportPaintManager>(L"圆曲线半径\\加宽类别", scale);
        const QRect right = DarkRect(image, QRect(50 * scale, 0, 50 * scale, (4 + line) * scale));
        const QRect left = DarkRect(image, QRect(0, (61 - line) * scale, 50 * scale, line * scale));
        EXPECT_GE(right.top(), 4 * scale) << scale;
        EXPECT_LE(right.right(), 96 * scale) << scale;
        EXPECT_GE(left.left(), 4 * scale) << scale;
        EXPECT_LE(left.bottom(), 61 * scale) << scale;
    }
}

TEST_F(MyReportPaintManager, OtherCaptionsAreDrawnAsUsual)
{
    EXPECT_EQ(Header<CMyReportPaintManager>(L"80"), Header<CXTPReportPaintManager>(L"80"));
    EXPECT_NE(Header<CMyReportPaintManager>(L"80"), Header<CMyReportPaintManager>(L"60"));
}
