#include <filesystem>
#include <regex>

#include <gtest/gtest.h>

#include "TreePaths.h"
#include "base/File.h"
#include "base/Text.h"
#include "model/Criteria.h"

using namespace designspec;

namespace {

const std::filesystem::path kSource = SOURCE_DIR;
const std::filesystem::path kGuide = kSource / "docs/user-guide.zh-CN.md";

std::string Read(const std::filesystem::path& path)
{
    std::string text;
    designspec::Problems problems;
    EXPECT_TRUE(ReadWholeFile(ToWide(path.string()), text, 1 << 20, problems)) << path;
    return text;
}

// What the first group of the expression matches, each time it is found.
std::vector<std::string> FindAll(const std::string& text, const char* expression)
{
    const std::regex regex(expression);
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match)
        found.push_back((*match)[1]);
    return found;
}

bool Contains(const std::vector<std::string>& all, const std::string& one)
{
    return std::find(all.begin(), all.end(), one) != all.end();
}

void Replace(std::string& text, const std::string& from, const std::string& to)
{
    for (size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
}

// The wide string literals of a source, neighbours joined.
std::vector<std::string> Literals(std::string source)
{
    source = std::regex_replace(source, std::regex("\"\\s+L\""), "");
    return FindAll(source, "L\"((?:[^\"\\\\]|\\\\.)*)\"");
}

// The sources that tell a user what is wrong with what was entered.
std::vector<std::filesystem::path> SpeakingSources()
{
    std::vector<std::filesystem::path> sources{
        kSource / "library/StyleName.cpp", kSource / "model/Rules.h", kSource / "model/Rules.cpp"};
    for (const char* folder : {"pages", "pages/framework", "app", "app/input"})
        for (const auto& entry : std::filesystem::directory_iterator(kSource / folder))
            if (entry.path().extension() == ".cpp") sources.push_back(entry.path());
    return sources;
}

bool IsMessage(const std::string& literal)
{
    return literal.ends_with('!') || literal.find("必须") != std::string::npos ||
           literal.find("不允许") != std::string::npos;
}

// A message as the guide would show it: in code quotes, with some value in each place for one.
std::regex ShownMessage(const std::string& literal)
{
    std::string shown = std::regex_replace(literal, std::regex("[.*+?^(){}|\\[\\]]"), "\\$&");
    Replace(shown, "\\n", "`<br>`");
    Replace(shown, "%d", "[0-9]+");
    Replace(shown, "%s", "[^`\n]+");
    Replace(shown, "%%", "%");
    return std::regex("`" + shown);
}

// Some sources put their messages together from a name and an ending. The names are the last texts
// of the lines of a table, or one constant.
std::vector<std::string> NamesIn(const std::string& source)
{
    std::vector<std::string> names = FindAll(source, "L\"([^\"]+)\"\\},");
    for (const std::string& constant : FindAll(source, "kSnow\\[\\] = L\"([^\"]+)\";"))
        names.push_back(constant);
    return names;
}

// What the pages call the numbers that they ask for.
std::vector<std::string> NumberNames()
{
    std::vector<std::string> names;
    for (const auto& path : SpeakingSources())
        for (const std::string& name :
             FindAll(Read(path), "CInputIntValueDialog dialog\\(L\"([^\"]+)\""))
            names.push_back(name);
    return names;
}

// What a rule's text calls the decimals that stand by themselves: factors of straight lines, or
// gradients.
std::vector<std::string> DecimalNames(bool factors)
{
    std::vector<std::string> names;
    for (const CriterionInfo& criterion : Criteria())
        for (const Field& field : criterion.fields)
            if (field.kind == FieldKind::Double &&
                (criterion.name == CString(L"BeelineLen")) == factors)
                names.push_back(ToUtf8(field.label));
    return names;
}

// The messages of one source, put together as it does.
std::vector<std::string> MessagesOf(const std::filesystem::path& path)
{
    const std::string source = Read(path);
    const bool isInput = path.filename() == "InputIntValueDialog.cpp";
    std::vector<std::string> names = isInput ? NumberNames() : NamesIn(source);
    const auto ends = FindAll(source, "(?:ame|kSnow\\)) \\+ L\"([^\"]+)\"");
    std::vector<std::string> messages;
    for (std::string literal : Literals(source)) {
        if (!IsMessage(literal)) continue;
        if (!Contains(ends, literal)) {
            messages.push_back(literal);
            continue;
        }
        if (path.filename() == "Rules.cpp") names = DecimalNames(literal.starts_with("必须是正数"));
        const auto before = FindAll(source, "L\"([^\"]+)\" \\+ m_name \\+ L\"已经存在!\"");
        const std::string begin = literal == "已经存在!" && !before.empty() ? before[0] : "";
        for (const std::string& name : names)
            messages.push_back(begin + name + literal);
        EXPECT_FALSE(names.empty()) << path << ' ' << literal;
    }
    return messages;
}

// The target that a heading is to links within the page.
std::string Anchor(std::string heading)
{
    for (const char* dropped : {"、", "，", "“", "”"})
        Replace(heading, dropped, "");
    Replace(heading, " ", "-");
    return heading;
}

} // namespace

TEST(UserGuide, HasASectionForEachPageByItsTreeLabel)
{
    const std::string guide = Read(kGuide);
    const std::string table = Read(kSource / "pages/PageTable.cpp");
    const auto groups = FindAll(table, "\\{L\"([^\"]+)\", L\"[^\"]+\", ");
    const auto labels = FindAll(table, "\\{L\"[^\"]+\", L\"([^\"]+)\", ");
    ASSERT_EQ(labels.size(), Criteria().size());
    for (size_t i = 0; i < labels.size(); ++i) {
        const size_t group = guide.find("\n## " + groups[i] + "\n");
        const size_t page = guide.find("\n### " + labels[i] + "\n");
        ASSERT_NE(group, std::string::npos) << groups[i];
        ASSERT_NE(page, std::string::npos) << labels[i];
        EXPECT_LT(group, page);
        const std::string picture = "](pictures/" + groups[i] + "-" + labels[i] + ".png)";
        EXPECT_NE(guide.find(picture, page), std::string::npos) << picture;
    }
}

// By its label, in the section of its page. What a source belongs to is told once for all.
TEST(UserGuide, NamesEachField)
{
    const std::string guide = Read(kGuide);
    for (const CriterionInfo& criterion : Criteria()) {
        const size_t begin = guide.find("\n### " + ToUtf8(criterion.label) + "\n");
        ASSERT_NE(begin, std::string::npos) << ToUtf8(criterion.label);
        const std::string section = guide.substr(begin, guide.find("\n##", begin + 1) - begin);
        for (const Field& field : criterion.fields) {
            const bool isSource = CString(field.label).ends_with(L"数据来源");
            EXPECT_TRUE(isSource || section.find(ToUtf8(field.label)) != std::string::npos)
                << ToUtf8(criterion.name) << ": " << ToUtf8(field.label);
        }
    }
}

TEST(UserGuide, LinksPicturesFilesAndSectionsThatAreThere)
{
    const std::string guide = Read(kGuide);
    std::vector<std::string> anchors;
    for (const std::string& heading : FindAll(guide, "\n##+ ([^\n]+)"))
        anchors.push_back(Anchor(heading));
    const auto links = FindAll(guide, "\\]\\(([^)]+)\\)");
    EXPECT_GT(links.size(), 60U);
    for (const std::string& link : links) {
        const std::string file = link.substr(0, link.find('#'));
        if (file.empty())
            EXPECT_TRUE(Contains(anchors, link.substr(1))) << link;
        else
            EXPECT_TRUE(std::filesystem::is_regular_file(kGuide.parent_path() / file)) << link;
    }
}

// F1 opens the guide there.
TEST(UserGuide, HasTheSectionOfEachWindow)
{
    const auto headings = FindAll(Read(kGuide), "\n##+ ([^\n]+)");
    size_t windows = 0;
    for (const char* folder : {"app", "app/input", "host", "pages", "roadcheck"})
        for (const auto& entry : std::filesystem::directory_iterator(kSource / folder)) {
            if (entry.path().extension() != ".cpp") continue;
            for (const std::string& section :
                 FindAll(Read(entry.path()), "SetGuideSection\\([^;\"]*L\"([^\"]+)\"\\);")) {
                EXPECT_TRUE(Contains(headings, section)) << entry.path() << ' ' << section;
                ++windows;
            }
        }
    EXPECT_GT(windows, 12U);
}

TEST(UserGuide, ShowsEachPictureThatIsKept)
{
    const std::string guide = Read(kGuide);
    for (const auto& entry : std::filesystem::directory_iterator(kSource / "docs/pictures"))
        EXPECT_NE(guide.find("](pictures/" + entry.path().filename().string() + ")"),
                  std::string::npos)
            << entry.path();
}

TEST(UserGuide, HoldsEachMessageWordForWord)
{
    const std::string guide = Read(kGuide);
    size_t messages = 0;
    for (const auto& path : SpeakingSources())
        for (const std::string& message : MessagesOf(path)) {
            ++messages;
            EXPECT_TRUE(std::regex_search(guide, ShownMessage(message)))
                << path.filename() << ": " << message;
        }
    EXPECT_GT(messages, 30U);
    EXPECT_NE(guide.find("`样式名中不允许出现如下字符: <>/\\\":;=|,*?'`"), std::string::npos);
}
