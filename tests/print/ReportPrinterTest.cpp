#include "print/ReportPrinter.h"

#include <gtest/gtest.h>

#include "platform/mfc/QtText.h"
#include "tests/print/PdfReading.h"

using namespace designspec;

namespace {

class ReportPrinterTest : public ::testing::Test {
protected:
    ReportPrinterTest()
    {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(ToQString(folder.Path(L"printed.pdf")));
        printer.setPageSize(QPageSize(QPageSize::A4));
        one.SetName(L"公路二级");
    }
    // What comes out of the printer.
    std::vector<std::wstring> Print()
    {
        const PaperReport report(ContentsOf({&one}, {}), PaperOf(printer));
        count = report.CountSheets();
        EXPECT_TRUE(PrintSheets(printer, report, SheetsAskedFor(printer, count)));
        return PdfPages(folder.Read("printed.pdf"));
    }

    TemporaryFolder folder;
    QPrinter printer{QPrinter::HighResolution};
    CDesignSpecification one;
    int count = 0;
};

} // namespace

TEST_F(ReportPrinterTest, PrintsEachSheetOnItsPaper)
{
    const auto pages = Print();
    EXPECT_EQ(static_cast<int>(pages.size()), count);
    EXPECT_GT(count, 2);
    EXPECT_NE(pages[1].find(L"GUID"), std::wstring::npos);
    const std::string info = AskPdf(folder.Read("printed.pdf"), "pdfinfo", {});
    EXPECT_NE(info.find("(A4)"), std::string::npos) << info;
}

TEST_F(ReportPrinterTest, PrintsTheSheetsThatAreAskedFor)
{
    EXPECT_EQ(SheetsAskedFor(printer, 3), (std::vector<int>{0, 1, 2}));
    printer.setFromTo(2, 3);
    EXPECT_EQ(SheetsAskedFor(printer, 5), (std::vector<int>{1, 2}));
    EXPECT_EQ(SheetsAskedFor(printer, 2), std::vector<int>{1});
    EXPECT_EQ(Print().size(), 2U);
}

// A wider sheet has room for more columns, and fewer are needed.
TEST_F(ReportPrinterTest, LiesOnThePaperOfThePrinter)
{
    for (int speed = 130; speed < 190; ++speed)
        one.LonGradMinLen.MinLens.Add({speed, 1000 + speed});
    const auto upright = Print();
    printer.setPageOrientation(QPageLayout::Landscape);
    EXPECT_GT(PaperOf(printer).width(), PaperOf(printer).height());
    const auto across = Print();
    // The text of a printer has other characters of the same look.
    const auto parts = [](const std::vector<std::wstring>& pages) {
        int found = 0;
        for (const std::wstring& page : pages)
            for (const std::wstring& line : SplitText(page, L"\n"))
                found += WithoutSpace(line).starts_with(L"最") ? 1 : 0;
        return found;
    };
    EXPECT_GT(parts(upright), parts(across));
    EXPECT_GT(parts(across), 1);
}
