// sheet_bench: what writing a specification as a workbook and reading it back costs, with speeds
// that double; beside the libraries alone, with as many bare cells.
#include <filesystem>

#include <pugixml.hpp>
#include <xlsxwriter.h>

#include "base/File.h"
#include "base/Text.h"
#include "bench/Bench.h"
#include "bench/Doubling.h"
#include "bench/MemoryFolder.h"
#include "model/PageLayout.h"
#include "sheets/Archive.h"
#include "sheets/SpreadsheetReading.h"
#include "sheets/WorkbookWriting.h"

using namespace designspec;

namespace {

namespace fs = std::filesystem;

constexpr int kFewest = 128, kMost = 2048;

// The built-in limits with so many speeds in each table of radii.
CDesignSpecification WithSpeeds(std::int64_t count)
{
    CDesignSpecification made;
    CDSCircularCurveRad& radii = made.CircularCurveRad;
    for (SpeedToIntValues* table : {&radii.SuperelevationMinRad, &radii.SuperelevationRecommendRad,
                                    &radii.noSuperelevationMinRad}) {
        table->RemoveAll();
        for (int speed = static_cast<int>(count); speed > 0; --speed)
            AddSpeed(*table, speed, 10 * speed);
    }
    return made;
}

class Workbooks {
public:
    explicit Workbooks(std::int64_t speeds) : m_specification(WithSpeeds(speeds)) {}
    ~Workbooks() { fs::remove_all(m_folder); }
    Workbooks(const Workbooks&) = delete;
    Workbooks& operator=(const Workbooks&) = delete;

    void Write() const
    {
        Problems problems;
        Require(WriteWorkbook(Path(), {&m_specification}, {L"2026-11-22", L"designspec"}, problems),
                "a workbook could not be written");
    }
    std::string Bytes() const
    {
        std::string bytes;
        Problems problems;
        Require(ReadWholeFile(Path(), bytes, problems), "a workbook could not be read");
        return bytes;
    }
    // As many numbers on as many sheets, without a format.
    void WriteBare() const
    {
        lxw_workbook* const book = workbook_new((m_folder / "bare.xlsx").c_str());
        for (const PageLayout& page : LayOut(m_specification)) {
            lxw_worksheet* const sheet = workbook_add_worksheet(book, nullptr);
            lxw_row_t row = 0;
            for (const TableLayout& table : page.tables)
                for (const TableLayout::Line& line : table.lines) {
                    for (lxw_col_t column = 0; column < line.cells.size(); ++column)
                        worksheet_write_number(sheet, row, column, column, nullptr);
                    ++row;
                }
        }
        Require(workbook_close(book) == LXW_NO_ERROR, "a bare workbook could not be written");
    }
    void Read(const std::string& bytes) const
    {
        CDesignSpecification read;
        SpreadsheetReading reading(bytes, L"a");
        reading.ApplyTo(read);
        Require(reading.Problems().empty(), "a workbook was not understood");
        Require(read.CircularCurveRad == m_specification.CircularCurveRad, "values were lost");
    }
    // Its parts unpacked and parsed, no more.
    static void Parse(const std::string& bytes)
    {
        const auto parts = ReadArchive(bytes, 1U << 30,
                                       [](std::string_view name) { return name.ends_with("xml"); });
        Require(parts.has_value(), "no archive");
        for (const ArchivePart& part : *parts) {
            pugi::xml_document document;
            Require(document.load_buffer(part.bytes.data(), part.bytes.size()), "no document");
        }
    }

private:
    CString Path() const { return ToWide((m_folder / "a.xlsx").string()); }

    fs::path m_folder = MakeMemoryFolder();
    CDesignSpecification m_specification;
};

void Write(benchmark::State& state)
{
    const Workbooks books(state.range(0));
    MeasureGrowth(state, "write", [&] { books.Write(); });
}

void WriteBare(benchmark::State& state)
{
    const Workbooks books(state.range(0));
    MeasureGrowth(state, "write bare", [&] { books.WriteBare(); });
}

void Read(benchmark::State& state)
{
    const Workbooks books(state.range(0));
    books.Write();
    MeasureGrowth(state, "read", [&, bytes = books.Bytes()] { books.Read(bytes); });
}

void Parse(benchmark::State& state)
{
    const Workbooks books(state.range(0));
    books.Write();
    MeasureGrowth(state, "parse", [bytes = books.Bytes()] { Workbooks::Parse(bytes); });
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    RegisterGrowth("Sheets/written, so many speeds", kFewest, kMost, Write);
    RegisterGrowth("Sheets/as many bare cells written", kFewest, kMost, WriteBare);
    RegisterGrowth("Sheets/read, so many speeds", kFewest, kMost, Read);
    RegisterGrowth("Sheets/unpacked and parsed alone", kFewest, kMost, Parse);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
