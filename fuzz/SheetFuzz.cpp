// A spreadsheet file of any bytes; and a workbook one part of which they are, so that the archive
// around it is none of the fuzzer's business.
#include "base/Text.h"
#include "base/XmlCheck.h"
#include "fuzz/StoredAndLoaded.h"
#include "model/Arrangement.h"
#include "sheets/OdsReading.h"
#include "sheets/PageReading.h"
#include "sheets/SpreadsheetReading.h"
#include "sheets/XlsxReading.h"

using namespace designspec;

namespace {

constexpr char kWorkbook[] = "<workbook><sheets><sheet name='a' id='1'/></sheets></workbook>";
constexpr char kRelations[] =
    "<Relationships><Relationship Id='1' Target='worksheets/1.xml'/></Relationships>";

// What was read without a problem is what files keep.
void RequireStorable(const CDesignSpecification& specification)
{
    Require(StoredAndLoaded(specification) == specification);
}

void ReadPages(const std::vector<SheetGrid>& sheets)
{
    for (const SheetGrid& sheet : sheets) {
        const auto page = PageReading::Of(sheet);
        if (!page) continue;
        CDesignSpecification specification;
        Problems problems;
        page->ApplyTo(specification, L"fuzz", problems);
        Arrange(specification);
        if (problems.empty()) RequireStorable(specification);
    }
}

void ReadAsPart(std::string_view bytes)
{
    std::size_t offset = 0;
    if (!IsUtf8(bytes, offset) || CheckXml(bytes)) return;
    const std::string part(bytes);
    try {
        ContentBudget budget(10000, 1 << 20);
        ReadPages(ReadOds({{"content.xml", part}}, budget));
        std::vector<ArchivePart> parts = {{"xl/workbook.xml", kWorkbook},
                                          {"xl/_rels/workbook.xml.rels", kRelations},
                                          {"xl/worksheets/1.xml", part},
                                          {"xl/sharedStrings.xml", part},
                                          {"xl/styles.xml", part}};
        ReadPages(ReadXlsx(parts, budget));
    } catch (const TooMuchContent&) { // as it should
    }
}

} // namespace

FUZZ(bytes)
{
    CDesignSpecification specification;
    SpreadsheetReading reading(bytes, L"fuzz");
    reading.ApplyTo(specification);
    if (!HasError(reading.Problems())) RequireStorable(specification);
    ReadAsPart(bytes);
    return 0;
}
