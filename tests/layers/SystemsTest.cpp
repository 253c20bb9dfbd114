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

// What stands in one of these runs on Linux alone so far.
const char* const kDesktop[] = {"app",   "compare",   "host",   "pages", "platform/arx",
                                "print", "roadcheck", "search", "sheets"};

constexpr char kSystemHeader[] =
    "#include <(sys/.*|linux/.*|unistd|fcntl|dirent|dlfcn|link|pwd|poll|pthread|iconv|uuid/uuid|"
    "windows|io|shellapi)\\.h>";

// One of them by its system, or half of the platform that is not built there.
bool IsOfOneSystem(const fs::path& file)
{
    static const std::set<std::string> folders = {"linux", "windows", "arx", "VMRDPrj"};
    for (const fs::path& part : file.parent_path())
        if (folders.contains(part.string())) return file.string().find("platform/windows") != 0;
    return false;
}

// The sources below those folders in which a line has what is looked for.
template <class Folders> Files SourcesBelow(const Folders& folders, const std::regex& wanted)
{
    Files found;
    const fs::path source = SOURCE_DIR;
    for (const char* top : folders)
        for (const auto& entry : fs::recursive_directory_iterator(source / top)) {
            const fs::path file = fs::relative(entry.path(), source);
            const std::string ending = file.extension().string();
            if (ending != ".h" && ending != ".cpp") continue;
            std::ifstream stream(entry.path());
            for (std::string line; std::getline(stream, line);)
                if (std::regex_search(line, wanted)) found.insert(file.generic_string());
        }
    return found;
}

// Those for all systems.
Files SourcesWith(const std::regex& wanted)
{
    Files found = SourcesBelow(kOnBoth, wanted);
    std::erase_if(found, IsOfOneSystem);
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
    const std::regex header(kSystemHeader);
    EXPECT_EQ(SourcesWith(header), Files());
    EXPECT_FALSE(SourcesWith(std::regex("#include <utf8proc\\.h>")).empty()) << "nothing is found";
    EXPECT_EQ(SourcesWith(std::regex("/proc/")), Files());
}

// In MinGW's, threads that take it first at the same time are both let in, or wait for ever.
TEST(Systems, ShareNoSharedMutex)
{
    EXPECT_EQ(SourcesBelow(kOnBoth, std::regex("\\bshared_(timed_)?mutex\\b")), Files());
}

// What Windows does not have in the sources of the desktop is what the page tells.
TEST(Systems, AreNamedWhereTheDesktopCallsOne)
{
    std::ifstream stream(SOURCE_DIR "/docs/windows.md");
    const std::string page(std::istreambuf_iterator<char>(stream), {});
    const Files found =
        SourcesBelow(kDesktop, std::regex(std::string(kSystemHeader) + "|/proc/|\\bSIG[A-Z]+\\b"));
    EXPECT_FALSE(found.empty());
    for (const std::string& file : found)
        EXPECT_NE(page.find('`' + file + '`'), std::string::npos) << file;
    EXPECT_TRUE(
        SourcesBelow(kDesktop, std::regex("_WIN32|_WIN64|__MINGW|__linux|__unix|Q_OS_")).empty());
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
