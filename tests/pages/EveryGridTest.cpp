// What all grids of all pages have in common.
#include <gtest/gtest.h>

#include "base/Text.h"
#include "pages/PageTable.h"
#include "tests/pages/CellKeys.h"

using namespace designspec;

namespace {

// The page of each entry alone in a window, with the built-in limits.
void ForEachPage(const std::function<void(CDSPage& page)>& look)
{
    std::unique_ptr<CDSPage> before;
    for (const PageEntry& entry : PageTable()) {
        SCOPED_TRACE(ToUtf8(entry.label));
        QWidget frame;
        frame.resize(760, 420);
        std::unique_ptr<CDSPage> page = entry.make(before.get());
        ASSERT_TRUE(page->Create(&frame));
        page->resize(740, 400);
        frame.show();
        page->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
        look(*page);
        page->setParent(nullptr); // the next one may ask it
        before = std::move(page);
    }
}

std::vector<CXTPReportControl*> GridsOf(const CDSPage& page)
{
    const auto found = page.findChildren<CXTPReportControl*>();
    return {found.begin(), found.end()};
}

int ShownColumns(const CXTPReportControl* grid)
{
    int columns = 0;
    while (grid->ShownColumn(columns))
        ++columns;
    return columns;
}

int WidestLine(const CXTPReportControl* grid, const CString& caption)
{
    int widest = 0;
    for (const QString& line : ToQString(caption).split(u'\n'))
        widest = std::max(widest, grid->fontMetrics().horizontalAdvance(line));
    return widest;
}

} // namespace

TEST(EveryGrid, HasTheKeysAndTheClipboard)
{
    int tried = 0;
    ForEachPage([&tried](const CDSPage& page) {
        for (CXTPReportControl* grid : GridsOf(page)) {
            if (!grid->isEnabled() || ShownColumns(grid) < 3) continue;
            ++tried;
            CellKeys keys(grid);
            keys.ExpectF2OffersTheText();
            keys.ExpectCopied();
            keys.ExpectCopiedFromEditorToEditor();
            keys.ExpectCutAndDeleted();
            if (testing::Test::HasFailure()) return;
        }
    });
    EXPECT_EQ(tried, 12); // all but the superelevations: their built-in table has one speed
}

TEST(EveryGrid, ItsCaptionsFitTheirColumns)
{
    constexpr int kFrame = 8;               // left and right of a row header's text
    constexpr double kNarrowestText = 0.85; // that a row header is drawn with
    int captions = 0;
    ForEachPage([&captions](const CDSPage& page) {
        for (const CXTPReportControl* grid : GridsOf(page)) {
            for (int column = 0; column < ShownColumns(grid); ++column, ++captions) {
                const CXTPReportColumn& shown = *grid->ShownColumn(column);
                if (shown.GetCaption().find(L'\\') != CString::npos) continue; // two corners
                EXPECT_LE(WidestLine(grid, shown.GetCaption()), shown.GetWidth())
                    << ToUtf8(shown.GetCaption());
            }
            for (int row = 0; row < grid->GetRecords().GetCount(); ++row, ++captions) {
                const CString caption = CellText(grid, row, 0);
                EXPECT_LE(WidestLine(grid, caption) * kNarrowestText,
                          grid->ShownColumn(0)->GetWidth() - kFrame)
                    << ToUtf8(caption);
            }
        }
    });
    EXPECT_GT(captions, 100);
}

TEST(EveryGrid, ItsValuesFitTheirCells)
{
    int values = 0;
    ForEachPage([&values](const CDSPage& page) {
        for (const CXTPReportControl* grid : GridsOf(page))
            for (int row = 0; row < grid->GetRecords().GetCount(); ++row)
                for (int column = 1; column < ShownColumns(grid); ++column, ++values) {
                    const CString text = CellText(grid, row, column);
                    EXPECT_LE(WidestLine(grid, text), grid->ShownColumn(column)->GetWidth() - 4)
                        << ToUtf8(text);
                }
    });
    EXPECT_GT(values, 150);
}
