// What is written as a workbook is read as it was.
#include <cstdlib>

#include "tests/sheets/SheetTest.h"
#include "tests/support/Process.h"
#include "tests/support/RandomSpecification.h"
#include "tests/support/ValidSpecification.h"

namespace {

class RoundTrip : public SheetTest {
protected:
    // As files keep it.
    static CDesignSpecification Random(unsigned seed)
    {
        CDesignSpecification made = RandomSpecification(seed).Make();
        Arrange(made);
        return made;
    }
    static bool HasCalc() { return std::filesystem::exists("/usr/bin/soffice"); }
    // Opens all files of the folder in the spreadsheet program and saves them in another format.
    void Convert(const std::string& ending, const std::string& from, const std::string& to) const
    {
        const std::string command =
            "soffice -env:UserInstallation=file://" + m_folder.Native("profile").string() +
            " --headless --convert-to " + ending + " --outdir " + m_folder.Native(to).string() +
            " " + m_folder.Native(from).string() + "/*";
        const ProcessResult result = RunProcess({"/bin/sh", "-c", command}, m_folder.Native());
        EXPECT_EQ(result.status, 0) << result.err;
    }
};

TEST_F(RoundTrip, ChangesNothingInAnyPlaceOfASpecification)
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        const CDesignSpecification one = Random(seed);
        Write("a.xlsx", {&one});
        ExpectSame(Read("a.xlsx"), one);
    }
}

TEST_F(RoundTrip, ChangesNothingThatTheEditorStores)
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        CDesignSpecification one = ValidSpecification(seed).Make(L"规范");
        Arrange(one);
        Write("a.xlsx", {&one});
        ExpectSame(Read("a.xlsx"), one);
    }
}

TEST_F(RoundTrip, KeepsNameAndIdentity)
{
    CDesignSpecification one;
    one.SetName(L"城市 <道路> & 规范");
    Write("a.xlsx", {&one});
    const SpreadsheetReading reading(m_folder.Read("a.xlsx"), L"a");
    EXPECT_EQ(reading.Name(), one.Name());
    EXPECT_EQ(reading.Identity()->size(), 36U);
}

TEST_F(RoundTrip, KeepsWhatIsEmpty)
{
    CDesignSpecification one;
    one.SuperElevation.definitions.RemoveAll();
    one.CurveWidening.ranges.RemoveAll();
    one.LonGradMaxLen.rows.RemoveAll();
    one.LonGradMinLen.MinLens.RemoveAll();
    for (auto& table : one.MaxResultantGrad.tables)
        table.RemoveAll();
    Write("a.xlsx", {&one});
    ExpectSame(Read("a.xlsx"), one);
    one.SuperElevation.definitions = {{6, {}}, {4, {{60, {}}}}};
    one.CurveWidening.ranges = {{100, 200, {}}};
    Write("a.xlsx", {&one});
    ExpectSame(Read("a.xlsx"), one);
}

// A spreadsheet program in between: opened and saved.
TEST_F(RoundTrip, ChangesNothingThroughASpreadsheetProgram)
{
    ASSERT_TRUE(HasCalc() || !std::getenv("DESIGNSPEC_CALC"));
    if (!HasCalc()) GTEST_SKIP() << "LibreOffice Calc is not installed";
    std::vector<CDesignSpecification> all;
    for (unsigned seed = 0; seed < 4; ++seed) {
        all.push_back(seed % 2 ? Random(seed) : ValidSpecification(seed).Make(L"规范"));
        Arrange(all.back());
    }
    std::filesystem::create_directory(m_folder.Native("written"));
    for (std::size_t i = 0; i < all.size(); ++i)
        Write("written/" + std::to_string(i) + ".xlsx", {&all[i]});
    Convert("ods", "written", "ods");
    Convert("xlsx", "ods", "xlsx");
    for (std::size_t i = 0; i < all.size(); ++i)
        for (const char* ending : {"ods", "xlsx"}) {
            SCOPED_TRACE(std::to_string(i) + ending);
            const std::string folder = ending;
            ExpectSame(Read(folder + "/" + std::to_string(i) + "." + ending), all[i]);
        }
}

} // namespace
