#include "pages/framework/MyReportPaintManager.h"

#include <gtest/gtest.h>

#include "pages/framework/XTPReportRecordItemHeard.h"
#include "platform/xtp/report/ReportColumn.h"
#include "platform/xtp/report/ReportRecord.h"
#include "tests/pages/framework/Picture.h"

namespace {

constexpr QSize kSize(100, 65);

template <class Manager> QImage Header(const CString& caption)
{
    return Picture(kSize, [&caption](QPainter& painter) {
        const CXTPReportColumn column(0, caption, 100);
        Manager().DrawColumnHeader(painter, QRect({}, kSize), &column);
    });
}

} // namespace

TEST(MyReportPaintManager, ARowIsAsHighAsItsHeaderSays)
{
    const CMyReportPaintManager manager;
    CXTPReportRecord record;
    record.AddItem(new CXTPReportRecordItemHeard(L"行", 57));
    EXPECT_EQ(manager.GetRowHeight(&record), 57);
}

TEST(MyReportPaintManager, OtherRowsHaveTheDefaultHeight)
{
    const CMyReportPaintManager manager;
    const int standard = CXTPReportPaintManager().GetRowHeight(nullptr);
    CXTPReportRecord none;
    EXPECT_EQ(manager.GetRowHeight(&none), standard);
    EXPECT_EQ(manager.GetRowHeight(nullptr), standard);
    CXTPReportRecord zero;
    zero.AddItem(new CXTPReportRecordItemHeard(L"行"));
    EXPECT_EQ(manager.GetRowHeight(&zero), standard);
    CXTPReportRecord other;
    other.AddItem(new CXTPReportRecordItem(L"行"));
    other.AddItem(new CXTPReportRecordItemHeard(L"行", 57));
    EXPECT_EQ(manager.GetRowHeight(&other), standard);
    EXPECT_GT(manager.GetTwoLineHeight(), standard);
}

TEST(MyReportPaintManager, ABackslashSplitsTheHeaderByADiagonal)
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

TEST(MyReportPaintManager, OtherCaptionsAreDrawnAsUsual)
{
    EXPECT_EQ(Header<CMyReportPaintManager>(L"80"), Header<CXTPReportPaintManager>(L"80"));
    EXPECT_NE(Header<CMyReportPaintManager>(L"80"), Header<CMyReportPaintManager>(L"60"));
}
