// What the core library is linked with, and what it offers.
#include <array>
#include <cstdio>
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

} // namespace

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
          "CDSSuperElevation", "CDSCurveWidening"})
        EXPECT_NE(symbols.find(std::string(name) + "::DoPropExchange("), std::string::npos) << name;
}
