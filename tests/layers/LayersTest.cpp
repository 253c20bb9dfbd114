// What the core library is linked with, and what it offers.
#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

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
