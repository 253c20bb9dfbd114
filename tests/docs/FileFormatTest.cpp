#include <gtest/gtest.h>

#include "base/File.h"
#include "base/Text.h"
#include "model/Criteria.h"

using namespace designspec;

TEST(FileFormat, DescribesEveryCriterionAndField)
{
    std::string text;
    ASSERT_TRUE(ReadWholeFile(ToWide(SOURCE_DIR "/docs/file-format.md"), text, 1 << 20));
    for (const CriterionInfo& criterion : Criteria()) {
        const size_t begin = text.find("### " + ToUtf8(criterion.name) + ":");
        ASSERT_NE(begin, std::string::npos) << ToUtf8(criterion.name);
        const std::string section = text.substr(begin, text.find("\n##", begin) - begin);
        for (const Field& field : criterion.fields)
            EXPECT_NE(section.find("`" + ToUtf8(field.key) + "`"), std::string::npos)
                << ToUtf8(criterion.name) << '.' << ToUtf8(field.key);
    }
}
