// designspec and designspec-full: what the first does without, and how it becomes the second.
#include <cstdlib>
#include <filesystem>

#include "tests/cli/CommandTest.h"

namespace {

namespace fs = std::filesystem;
using testing::Not;

const fs::path kProgram = DESIGNSPEC_PROGRAM;
constexpr char kFull[] = "designspec-full";

class FullProgram : public CommandTest {
protected:
    // The program in `bin` of a folder of its own, with the libraries of the build.
    FullProgram()
    {
        fs::create_directories(m_bin);
        fs::copy(kProgram, m_bin / "designspec");
    }

    ProcessResult CallCopy(const Words& words) const
    {
        Words all = {(m_bin / "designspec").string()};
        all.insert(all.end(), words.begin(), words.end());
        return RunProcess(all, m_folder.Native(),
                          [] { setenv("LD_LIBRARY_PATH", kProgram.parent_path().c_str(), 1); });
    }

    const fs::path m_prefix = fs::path(m_folder.Native()) / "前缀";
    const fs::path m_bin = m_prefix / "bin";
    const fs::path m_libexec = m_prefix / LIBEXEC_FOLDER / "designspec";
};

} // namespace

TEST_F(FullProgram, TheFirstOneLoadsNothingForRoadsOrSpreadsheets)
{
    const auto libraries = [](const fs::path& program) {
        return RunProcess({program.string()}, ".",
                          [] { setenv("LD_TRACE_LOADED_OBJECTS", "1", 1); })
            .out;
    };
    const std::string first = libraries(kProgram);
    const std::string full = libraries(kProgram.parent_path() / kFull);
    EXPECT_THAT(first, HasSubstr("libdesignspec.so"));
    for (const char* library : {"libroadcheck.so", "libxml2.so", "libxlsxwriter.so",
                                "liborcus-parser", "libzip.so", "libcrypto.so", "libicudata.so"}) {
        EXPECT_THAT(first, Not(HasSubstr(library)));
        EXPECT_THAT(full, HasSubstr(library));
    }
}

TEST_F(FullProgram, IsFoundBesideAndInLibexec)
{
    for (const fs::path& folder : {m_bin, m_libexec}) {
        fs::create_directories(folder);
        fs::copy(kProgram.parent_path() / kFull, folder);
        const ProcessResult help = CallCopy({"verify", "--help"});
        EXPECT_EQ(help.status, 0) << help.err;
        EXPECT_THAT(help.out, HasSubstr("规则:")) << folder;
        fs::remove(folder / kFull);
    }
}

TEST_F(FullProgram, IsNamedWhereItIsMissingAndTheRestGoesOn)
{
    const std::string cause =
        "designspec: 程序“" + (m_libexec / kFull).string() + "”无法运行: 不存在\n";
    for (const Words& words :
         {Words{"verify", "路.xml"}, Words{"verify", "--help"}, Words{"sheet", "read", "表.xlsx"},
          Words{"sheet", "write", "表.xlsx"}}) {
        const ProcessResult result = CallCopy(words);
        EXPECT_EQ(result.status, 3) << testing::PrintToString(words);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, cause);
    }
    EXPECT_EQ(CallCopy({"new", "公路"}).status, 0);
    EXPECT_THAT(CallCopy({"list"}).out, HasSubstr("公路"));
}
