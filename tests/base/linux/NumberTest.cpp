#include "base/Number.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <locale>

#include <gtest/gtest.h>

#include "base/Format.h"
#include "tests/support/TemporaryFolder.h"

using namespace designspec;

namespace {

// The C++ locale and the C one with a decimal comma, for one test. The C one is compiled by the
// machine's localedef, for few machines have it installed.
class CommaLocale {
public:
    CommaLocale() : m_cpp(std::locale::global(std::locale(std::locale(), new Comma)))
    {
        const std::string compile = "localedef -i de_DE -f UTF-8 '" +
                                    m_folder.Native("de_DE.UTF-8").string() + "' 2>/dev/null";
        m_compiled = std::system(compile.c_str()) == 0;
        setenv("LOCPATH", m_folder.Native().c_str(), 1);
        std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    }
    ~CommaLocale()
    {
        unsetenv("LOCPATH");
        std::locale::global(m_cpp);
        std::setlocale(LC_NUMERIC, "C");
    }

    bool IsCompiled() const { return m_compiled; }

private:
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    TemporaryFolder m_folder;
    std::locale m_cpp;
    bool m_compiled = false;
};

} // namespace

TEST(Number, NoLocaleChangesAReading)
{
    const CommaLocale comma;
    if (comma.IsCompiled()) {
        char text[8];
        std::snprintf(text, sizeof text, "%.1f", 2.5);
        ASSERT_STREQ(text, "2,5"); // the locale does hold sway
    }
    EXPECT_EQ(DoubleToText(12345.5), "12345.5");
    double value = 99;
    EXPECT_TRUE(ParseDouble("12345.5", value));
    EXPECT_EQ(value, 12345.5);
    EXPECT_FALSE(ParseDouble("2,5", value));
    EXPECT_EQ(Wtof(L"2.5"), 2.5);
    EXPECT_EQ(Wtof(L"2,5"), 2);
    EXPECT_EQ(Wtoi(L"12.345"), 12);
    EXPECT_EQ(Format(L"%.1f", 12345.5), L"12345.5");
}
