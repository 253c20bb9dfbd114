#include "cli/Language.h"

#include <array>
#include <cstdlib>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/Process.h"

namespace {

constexpr std::array<const char*, 3> kVariables = {"LC_ALL", "LC_MESSAGES", "LANG"};

// Puts the environment back that other tests run in.
class HelpLanguageTest : public testing::Test {
protected:
    HelpLanguageTest()
    {
        for (size_t i = 0; i < kVariables.size(); ++i)
            if (const char* value = std::getenv(kVariables[i])) m_before[i] = value;
    }
    ~HelpLanguageTest() override
    {
        for (size_t i = 0; i < kVariables.size(); ++i)
            SetVariable(kVariables[i], m_before[i] ? m_before[i]->c_str() : nullptr);
    }
    static Language With(const char* all, const char* messages, const char* lang)
    {
        SetVariable("LC_ALL", all);
        SetVariable("LC_MESSAGES", messages);
        SetVariable("LANG", lang);
        return HelpLanguage();
    }

private:
    std::array<std::optional<std::string>, 3> m_before;
};

TEST_F(HelpLanguageTest, IsChineseWhereTheLocaleIsChineseOrOpen)
{
    for (const char* lang : {"zh_CN.UTF-8", "zh_TW", "zh", "C", "C.UTF-8", "POSIX"})
        EXPECT_EQ(With(nullptr, nullptr, lang), Language::Chinese) << lang;
}

TEST_F(HelpLanguageTest, IsChineseWhereNoVariableTells)
{
    for (const char* lang : {"", static_cast<const char*>(nullptr)})
        EXPECT_EQ(With(nullptr, nullptr, lang), Language::Chinese);
}

TEST_F(HelpLanguageTest, IsEnglishElsewhere)
{
    for (const char* lang : {"en_US.UTF-8", "en", "en_GB@euro", "de_DE.UTF-8", "zha"})
        EXPECT_EQ(With(nullptr, nullptr, lang), Language::English) << lang;
}

TEST_F(HelpLanguageTest, AsksTheVariablesInTheirOrder)
{
    EXPECT_EQ(With("en_US", "zh_CN", "zh_CN"), Language::English);
    EXPECT_EQ(With("", "zh_CN", "en_US"), Language::Chinese);
    EXPECT_EQ(With(nullptr, "en_US", "zh_CN"), Language::English);
    EXPECT_EQ(With("C", "en_US", "en_US"), Language::Chinese);
}

} // namespace
