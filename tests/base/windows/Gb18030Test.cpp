#include "base/windows/Gb18030.h"

#include <gtest/gtest.h>

#include "base/CodePoint.h"
#include "base/Encoding.h"
#include "base/Text.h"

using namespace designspec;

namespace {

// As the system encodes it: on Linux by its iconv.
std::string Encoded(char32_t code)
{
    std::wstring text;
    AppendCodePoint(code, text);
    std::string bytes;
    return EncodeText(ToUtf8(text), TextEncoding::Gb18030, bytes) ? bytes : std::string();
}

} // namespace

TEST(Gb18030, HasTheBytesThatTheStandardGives)
{
    const std::pair<char32_t, std::string> known[] = {{U'a', "a"},
                                                      {U'规', "\xB9\xE6"},
                                                      {U'€', "\xA2\xE3"},
                                                      {0x80, "\x81\x30\x81\x30"},
                                                      {0x20BB7, "\x95\x34\xB2\x35"},
                                                      {0x10FFFF, "\xE3\x32\x9A\x35"}};
    for (const auto& [code, bytes] : known) {
        std::string encoded;
        char32_t decoded = 0;
        EXPECT_TRUE(AppendGb18030(code, encoded));
        EXPECT_EQ(encoded, bytes);
        EXPECT_EQ(TakeGb18030(bytes, decoded), static_cast<int>(bytes.size()));
        EXPECT_EQ(decoded, code);
    }
}

TEST(Gb18030, IsThatOfTheSystemForEveryCharacter)
{
    for (char32_t code = 0; code <= 0x10FFFF; code += code < 0x10000 ? 1 : 97) {
        if (code >= 0xD800 && code < 0xE000) continue;
        std::string bytes;
        const bool isOne = AppendGb18030(code, bytes);
        ASSERT_EQ(bytes, Encoded(code)) << std::hex << static_cast<unsigned>(code);
        if (!isOne) continue;
        char32_t decoded = 0;
        ASSERT_EQ(TakeGb18030(bytes, decoded), static_cast<int>(bytes.size()));
        ASSERT_EQ(decoded, code);
    }
}

TEST(Gb18030, TellsWhatIsNoneFromWhatIsNotWhole)
{
    char32_t code = 0;
    for (const char* bytes : {"\x80", "\xFF", "\xB9\x20", "\xB9\xFF", "\x81\x30\x20",
                              "\x81\x30\x81\x20", "\xFE\x39\xFE\x39", "\x84\x31\xA5\x30"})
        EXPECT_EQ(TakeGb18030(bytes, code), 0) << testing::PrintToString(std::string(bytes));
    for (const char* bytes : {"", "\xB9", "\x81\x30", "\x81\x30\x81"})
        EXPECT_EQ(TakeGb18030(bytes, code), -1) << testing::PrintToString(std::string(bytes));
    std::string none;
    EXPECT_FALSE(AppendGb18030(0xD800, none));
    EXPECT_FALSE(AppendGb18030(0x110000, none));
    EXPECT_EQ(none, "");
}
