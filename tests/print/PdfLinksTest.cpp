#include "print/PdfLinks.h"

#include <gtest/gtest.h>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFOutlineDocumentHelper.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>

#include "base/Text.h"
#include "model/Criteria.h"
#include "print/ReportFile.h"

using namespace designspec;

namespace {

CDesignSpecification Named(const wchar_t* name)
{
    CDesignSpecification one;
    one.SetName(name);
    return one;
}

class PdfLinksTest : public ::testing::Test {
protected:
    void Read(const std::vector<const CDesignSpecification*>& specifications)
    {
        const ReportContents contents = ContentsOf(specifications, {});
        report.emplace(contents, QSizeF(595, 842));
        bytes = PdfOf(*report, QStringLiteral("标题"));
        pdf.processMemoryFile("report", bytes.data(), bytes.size());
        pages = QPDFPageDocumentHelper(pdf).getAllPages();
    }
    int PageOf(QPDFObjectHandle destination)
    {
        for (std::size_t i = 0; i < pages.size(); ++i)
            if (pages[i].getObjectHandle().isSameObjectAs(destination.getArrayItem(0)))
                return static_cast<int>(i);
        return -1;
    }

    const CDesignSpecification one = Named(L"公路二级"), two = Named(L"城市(主干路)");
    std::optional<PaperReport> report;
    std::string bytes; // which the document reads from
    QPDF pdf;
    std::vector<QPDFPageObjectHelper> pages;
};

} // namespace

TEST_F(PdfLinksTest, EachEntryOfTheContentsLeadsToItsPlace)
{
    Read({&one, &two});
    std::vector<std::pair<int, double>> wanted, found;
    for (const PaperTarget& target : report->Targets())
        wanted.emplace_back(target.sheet, 842 - target.top / kUnitsPerPoint);
    double above = 842;
    for (auto& page : pages)
        for (auto& link : page.getAnnotations("/Link")) {
            QPDFObjectHandle place = link.getObjectHandle().getKey("/Dest");
            found.emplace_back(PageOf(place), place.getArrayItem(3).getNumericValue());
            const auto box = link.getRect();
            EXPECT_LT(box.ury, above + 0.01); // from top to bottom
            EXPECT_GT(box.urx - box.llx, 400);
            above = box.lly;
        }
    ASSERT_EQ(found.size(), 28U);
    ASSERT_EQ(found.size(), wanted.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_EQ(found[i].first, wanted[i].first);
        EXPECT_NEAR(found[i].second, wanted[i].second, 0.01);
    }
}

TEST_F(PdfLinksTest, TheOutlineHasSpecificationsWithTheirPages)
{
    Read({&one, &two});
    auto chapters = QPDFOutlineDocumentHelper(pdf).getTopLevelOutlines();
    ASSERT_EQ(chapters.size(), 2U);
    EXPECT_EQ(chapters[0].getTitle(), "公路二级");
    EXPECT_EQ(chapters[1].getTitle(), "城市(主干路)");
    for (auto chapter : chapters) {
        auto kids = chapter.getKids();
        ASSERT_EQ(kids.size(), Criteria().size());
        EXPECT_EQ(chapter.getCount(), -13);
        for (std::size_t i = 0; i < kids.size(); ++i)
            EXPECT_EQ(kids[i].getTitle(), ToUtf8(Criteria()[i].label));
    }
}

TEST_F(PdfLinksTest, ATargetBeyondTheLastPageIsRefused)
{
    Read({&one});
    EXPECT_THROW(AddLinks(pdf, {{QStringLiteral("不在"), 0, 99, 0, {}}}), std::exception);
}
