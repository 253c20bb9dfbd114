// What depends on the operating system stands in folders of its own.
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

#include "TreePaths.h"
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using Files = std::set<std::string>;

// The folders that are also built for Windows.
const char* const kOnBoth[] = {"base",  "c",        "cli",    "library",
                               "model", "platform", "report", "roads"};

// One of them by its system, or half of the platform that is not built there.
bool IsOfOneSystem(const fs::path& file)
{
    static const std::set<std::string> folders = {"linux", "windows", "arx", "VMRDPrj"};
    for (const fs::path& part : file.parent_path())
        if (folders.contains(part.string())) return file.string().find("platform/windows") != 0;
    return false;
}

// The sources for all systems in which a line has what is looked for.
Files SourcesWith(const std::regex& wanted)
{
    Files found;
    const fs::path source = SOURCE_DIR;
    for (const char* top : kOnBoth)
        for (const auto& entry : fs::recursive_directory_iterator(source / top)) {
            const fs::path file = fs::relative(entry.path(), source);
            const std::string ending = file.extension().string();
            if ((ending != ".h" && ending != ".cpp") || IsOfOneSystem(file)) continue;
            std::ifstream stream(entry.path());
            for (std::string line; std::getline(stream, line);)
                if (std::regex_search(line, wanted)) found.insert(file.generic_string());
        }
    return found;
}

} // namespace

// What a library offers is marked in each system's own way.
TEST(Systems, AreToldApartByTheBuildAlone)
{
    const std::regex macro("_WIN32|_WIN64|__MINGW|__linux|__unix|WIN32_");
    EXPECT_EQ(SourcesWith(macro), Files{"c/designspec.h"});
}

TEST(Systems, AreCalledInTheirOwnFoldersOnly)
{
    const std::regex header("#include <(sys/.*|linux/.*|unistd|fcntl|dirent|dlfcn|pwd|poll|pthread|"
                            "iconv|uuid/uuid|windows|io|shellapi)\\.h>");
    EXPECT_EQ(SourcesWith(header), Files());
    EXPECT_FALSE(SourcesWith(std::regex("#include <utf8proc\\.h>")).empty()) << "nothing is found";
    EXPECT_EQ(SourcesWith(std::regex("/proc/")), Files());
}

// Each header of what both have is there for both.
TEST(Systems, HaveTheSameSources)
{
    for (const std::string top : {"base", "c", "cli", "roads"}) {
        std::map<std::string, Files> sources;
        for (const std::string system : {"linux", "windows"})
            for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / top / system)) {
                const fs::path name = entry.path().filename();
                if (name.extension() == ".cpp" &&
                    fs::exists(fs::path(SOURCE_DIR) / top / (name.stem().string() + ".h")))
                    sources[system].insert(name.string());
            }
        EXPECT_EQ(sources["linux"], sources["windows"]) << top;
        EXPECT_FALSE(sources["linux"].empty()) << top;
    }
}
