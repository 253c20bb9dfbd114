#include <regex>
#include <set>

#include <gmock/gmock.h>

#include "TreePaths.h"
#include "base/File.h"
#include "base/Text.h"
#include "roads/Rules.h"

using namespace designspec;

namespace roadcheck {

namespace {

constexpr const char* kSeverities[] = {"error", "warning", "note"};

// "RULE severity" of each row; a row with several rules has one severity, or one for each.
std::set<std::string> DocumentedRules(const std::string& text)
{
    std::set<std::string> rules;
    const std::regex row("\n\\| (`.*`) \\| ([a-z, ]+) \\| .*\\|"), word("[a-z-]+");
    using Rows = std::sregex_iterator;
    for (Rows each(text.begin(), text.end(), row); each != Rows(); ++each) {
        const std::string ids = (*each)[1], severities = (*each)[2];
        Rows severity(severities.begin(), severities.end(), word);
        for (Rows id(ids.begin(), ids.end(), word); id != Rows(); ++id) {
            rules.insert(id->str() + " " + severity->str());
            if (std::next(severity) != Rows()) ++severity;
        }
    }
    return rules;
}

} // namespace

TEST(RoadRules, AreAllDescribedWithTheirSeverity)
{
    std::string text;
    Problems problems;
    ASSERT_TRUE(ReadWholeFile(ToWide(SOURCE_DIR "/docs/roads.md"), text, 1 << 20, problems));
    std::set<std::string> rules;
    for (const Rule& rule : Rules())
        rules.insert(ToUtf8(rule.id) + " " + kSeverities[static_cast<size_t>(rule.severity)]);
    EXPECT_EQ(DocumentedRules(text), rules);
}

} // namespace roadcheck
