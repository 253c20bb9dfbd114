#include <gtest/gtest.h>

#include "TreePaths.h"
#include "base/File.h"
#include "base/Text.h"
#include "model/Criteria.h"

using namespace designspec;

namespace {

// Each name that the fields have in a file.
void ExpectNames(const std::string& section, std::span<const Field> fields)
{
    const auto expect = [&](const CString& name) {
        const std::string utf8 = ToUtf8(name);
        EXPECT_TRUE(name.empty() || section.find("`" + utf8 + "`") != std::string::npos ||
                    section.find("<" + utf8) != std::string::npos ||
                    section.find(" " + utf8 + "=\"") != std::string::npos)
            << utf8 << " in " << section.substr(0, section.find('\n'));
    };
    for (const Field& field : fields) {
        expect(field.HasRows() ? field.element : field.key);
        if (field.kind != FieldKind::Rows) continue;
        expect(field.rowElement);
        ExpectNames(section, field.RowFields());
    }
}

} // namespace

TEST(FileFormat, DescribesEveryCriterionAndField)
{
    std::string text;
    Problems problems;
    ASSERT_TRUE(ReadWholeFile(ToWide(SOURCE_DIR "/docs/file-format.md"), text, 1 << 20, problems));
    for (const CriterionInfo& criterion : Criteria()) {
        const size_t begin = text.find("### " + ToUtf8(criterion.name) + ":");
        ASSERT_NE(begin, std::string::npos) << ToUtf8(criterion.name);
        ExpectNames(text.substr(begin, text.find("\n##", begin) - begin), criterion.fields);
    }
}
