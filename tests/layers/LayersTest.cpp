// What the core library is linked with, and what it offers.
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "TreePaths.h"
#include <gtest/gtest.h>

namespace {

// What a command prints; empty when it fails.
std::string Output(const std::string& command)
{
    struct Close {
        void operator()(FILE* stream) const { pclose(stream); }
    };
    const std::unique_ptr<FILE, Close> pipe(popen(command.c_str(), "r"));
    std::string output;
    std::array<char, 4096> buffer;
    while (pipe) {
        const size_t size = fread(buffer.data(), 1, buffer.size(), pipe.get());
        if (size == 0) break;
        output.append(buffer.data(), size);
    }
    return output;
}

// The libraries of graphical interfaces that a list of dependencies names.
std::vector<std::string> GuiLibraries(const std::string& dependencies)
{
    std::vector<std::string> found;
    for (const char* name : {"libQt", "libX11", "libxcb", "libwayland", "libgtk", "libgdk", "libGL",
                             "libEGL", "libOpenGL", "libwx", "libSDL", "libcairo", "libpango"})
        if (dependencies.find(name) != std::string::npos) found.emplace_back(name);
    return found;
}

// The entries of a program's or library's search paths that depend on the current folder, as
// `readelf -d` tells the paths.
std::vector<std::string> EntriesOfTheCurrentFolder(const std::string& dynamic)
{
    std::vector<std::string> found;
    std::istringstream lines(dynamic);
    for (std::string line; std::getline(lines, line);) {
        if (line.find("(RUNPATH)") == std::string::npos &&
            line.find("(RPATH)") == std::string::npos)
            continue;
        const size_t begin = line.find('[') + 1;
        // Behind the last separator there is an entry as well.
        std::istringstream path(line.substr(begin, line.rfind(']') - begin) + ':');
        for (std::string entry; std::getline(path, entry, ':');)
            if (!entry.starts_with('/') && entry != "$ORIGIN" && !entry.starts_with("$ORIGIN/"))
                found.push_back('"' + entry + '"');
    }
    return found;
}

bool IsProgramOrLibrary(const std::filesystem::path& file)
{
    char magic[4] = {};
    return std::filesystem::is_regular_file(file) && std::ifstream(file).read(magic, 4) &&
           std::string_view(magic, 4) == "\x7F"
                                         "ELF";
}

} // namespace

TEST(Layers, TheCheckFindsEntriesOfTheCurrentFolder)
{
    const auto entries = [](const std::string& path) {
        return EntriesOfTheCurrentFolder(" 0x1d (RUNPATH)  Library runpath: [" + path + "]\n")
            .size();
    };
    EXPECT_EQ(entries("/usr/lib:$ORIGIN/../lib:$ORIGIN"), 0U);
    EXPECT_EQ(entries("/usr/lib:"), 1U);
    EXPECT_EQ(entries("::"), 3U);
    EXPECT_EQ(entries(""), 1U);
    EXPECT_EQ(entries("lib:./lib:$ORIGINAL"), 3U);
    EXPECT_EQ(EntriesOfTheCurrentFolder(" 0x0f (RPATH)  Library rpath: [:/a]\n").size(), 1U);
    EXPECT_TRUE(EntriesOfTheCurrentFolder(" 0x01 (NEEDED)  Shared library: [libc.so.6]\n").empty());
}

// What lies in a project's folder must not become a part of the program that is started there.
TEST(Layers, NothingIsLoadedFromTheCurrentFolder)
{
    std::set<std::string> seen;
    for (const auto& file : std::filesystem::directory_iterator(BIN_FOLDER)) {
        if (!IsProgramOrLibrary(file.path())) continue;
        const std::string dynamic = Output("readelf -d '" + file.path().string() + "'");
        EXPECT_EQ(EntriesOfTheCurrentFolder(dynamic), std::vector<std::string>()) << file.path();
        seen.insert(file.path().filename());
    }
    EXPECT_TRUE(seen.contains("designspec"));
    EXPECT_TRUE(seen.contains(std::filesystem::path(CORE_LIBRARY).filename()));
#ifdef HAS_GUI
    for (const char* name : {"roadhost", "DesignSpecification.arx", "VMRDPrj.arx"})
        EXPECT_TRUE(seen.contains(name)) << name;
#endif
}

TEST(Layers, TheCheckFindsAGuiLibraryInAList)
{
    EXPECT_EQ(GuiLibraries("libfmt.so.9 libQt6Core.so.6"), std::vector<std::string>{"libQt"});
    EXPECT_TRUE(GuiLibraries("libfmt.so.9 libc.so.6").empty());
}

TEST(Layers, TheCoreLibraryNeedsNoGui)
{
    const std::string direct = Output("readelf -d '" CORE_LIBRARY "'");
    ASSERT_NE(direct.find("libpugixml"), std::string::npos) << direct;
    EXPECT_TRUE(GuiLibraries(direct).empty()) << direct;
    const std::string all = Output("ldd '" CORE_LIBRARY "'");
    ASSERT_NE(all.find("libc.so"), std::string::npos) << all;
    EXPECT_TRUE(GuiLibraries(all).empty()) << all;
}

// Each function and variable that the library offers stands in the list; whoever offers another one
// promises it to other modules.
TEST(Layers, TheCoreLibraryOffersWhatIsListed)
{
    const std::string symbols = Output("nm -D --defined-only -C '" CORE_LIBRARY "'");
    std::set<std::string> offered;
    std::istringstream lines(symbols);
    for (std::string line; std::getline(lines, line);) {
        const size_t kind = line.find(' ') + 1;
        const std::string name = line.substr(kind + 2);
        EXPECT_FALSE(name.starts_with("std::") || name.find(" std::") < name.find('(')) << name;
        const bool isOwn = line[kind] == 'T' || line[kind] == 'D' || line[kind] == 'B';
        if (isOwn && !name.starts_with("__")) offered.insert(name);
    }
    std::set<std::string> listed;
    std::ifstream list(SOURCE_DIR "/tests/layers/exports.txt");
    for (std::string line; std::getline(list, line);)
        listed.insert(line);
    EXPECT_GT(listed.size(), 200U);
    for (const std::string& name : offered)
        EXPECT_TRUE(listed.contains(name)) << "not listed: " << name;
    for (const std::string& name : listed)
        EXPECT_TRUE(offered.contains(name)) << "not offered: " << name;
}

TEST(Layers, TheCoreLibraryOffersTheQueriesAndClasses)
{
    const std::string symbols = Output("nm -D --defined-only -C '" CORE_LIBRARY "'");
    for (const char* name : {"QueryValue::QueryIntValBySpeed(",
                             "QueryValue::QueryDoubleValBySpeed(",
                             "CDSLonGradMaxLen::QueryVal(",
                             "CDSSuperElevation::QuerySuperElevation(",
                             "CDSCurveWidening::QueryWidening(",
                             "CDSMaxResultantGrad::Item(",
                             "CDesignSpecification::DoPropExchange(",
                             "CDesignSpecification::CDesignSpecification(",
                             "CDesignSpecifications::GetInstance(",
                             "CDesignSpecifications::Destroy(",
                             "CDesignSpecifications::Add(",
                             "CDesignSpecifications::Remove(",
                             "CDesignSpecifications::Rename(",
                             "CDesignSpecifications::Save(",
                             "CDesignSpecifications::SaveAsTemplate(",
                             "CDesignSpecifications::SetDefaultItem(",
                             "CDesignSpecifications::StyleNames(",
                             "CDesignSpecifications::Update(",
                             "CDesignSpecifications::Item(",
                             "CDesignSpecifications::Count(",
                             "CDesignSpecifications::Import(",
                             "CDesignSpecifications::Export(",
                             "CDesignSpecifications::Name[abi:cxx11]("})
        EXPECT_NE(symbols.find(name), std::string::npos) << name;
    for (const char* name :
         {"CDSBeelineLen", "CDSCircularCurveRad", "CDSCurveMinLen", "CSmallAngleCurveMinLen",
          "CTransitionCurveMinLen", "CDSLonGrad", "CDSMaxResultantGrad", "CDSLonGradMaxLen",
          "CDSLonGradMinLen", "CDSVerticalCurveMinRadAndLen", "CDSMaxSuperElevation",
          "CDSSuperElevation", "CDSCurveWidening"}) {
        const std::string type = name;
        for (const std::string& function :
             std::vector<std::string>{"::DoPropExchange(CXTPPropExchange*)", "::" + type + "()",
                                      "::" + type + "(" + type + " const&)",
                                      "::operator=(" + type + " const&)", "::~" + type + "()"})
            EXPECT_NE(symbols.find("T " + type + function), std::string::npos) << type << function;
    }
}
