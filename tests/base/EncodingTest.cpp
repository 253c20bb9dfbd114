#include "base/Encoding.h"

#include <gtest/gtest.h>

using namespace designspec;

using namespace std::string_view_literals;

namespace {

struct Decoded {
    bool whole;
    std::string text;
    bool operator==(const Decoded&) const = default;
};

Decoded Decode(std::string_view bytes, TextEncoding encoding)
{
    Decoded decoded{};
    decoded.whole = DecodeText(bytes, encoding, decoded.text);
    return decoded;
}

} // namespace

TEST(Encoding, IsToldByTheByteOrderMark)
{
    const std::tuple<std::string_view, TextEncoding, size_t> marks[] = {
        {"\xEF\xBB\xBF<a/>"sv, TextEncoding::Utf8, 3},
        {"\xFF\xFE<\0"sv, TextEncoding::Utf16LE, 2},
        {"\xFE\xFF\0<"sv, TextEncoding::Utf16BE, 2},
        {"\xFF\xFE"sv, TextEncoding::Utf16LE, 2},
        {"\xEF\xBB"sv, TextEncoding::Utf8, 0},
        {"<a/>"sv, TextEncoding::Utf8, 0},
        {""sv, TextEncoding::Utf8, 0},
    };
    for (const auto& [bytes, encoding, size] : marks) {
        size_t markSize = 99;
        EXPECT_EQ(EncodingByMark(bytes, markSize), encoding) << bytes;
        EXPECT_EQ(markSize, size) << bytes;
    }
}

TEST(Encoding, IsFoundByItsNameInAnyCase)
{
    const std::pair<std::string_view, TextEncoding> names[] = {
        {"utf-8", TextEncoding::Utf8},       {"US-ascii", TextEncoding::Utf8},
        {"UTF-16", TextEncoding::Utf16LE},   {"Utf-16LE", TextEncoding::Utf16LE},
        {"utf-16be", TextEncoding::Utf16BE}, {"gb2312", TextEncoding::Gb18030},
        {"GBK", TextEncoding::Gb18030},      {"gb18030", TextEncoding::Gb18030},
    };
    for (const auto& [name, expected] : names) {
        auto encoding = static_cast<TextEncoding>(99);
        EXPECT_TRUE(EncodingByName(name, encoding)) << name;
        EXPECT_EQ(encoding, expected) << name;
    }
}

TEST(Encoding, HasNoOtherNames)
{
    for (const std::string_view name :
         {""sv, "latin1"sv, "Big5"sv, "UTF8"sv, " UTF-8"sv, "UTF-8 "sv, "UTF-8\0x"sv, "UTF-7"sv}) {
        TextEncoding encoding = TextEncoding::Utf16BE;
        EXPECT_FALSE(EncodingByName(name, encoding)) << name;
        EXPECT_EQ(encoding, TextEncoding::Utf16BE) << name;
    }
}

TEST(Encoding, DecodesEachOfThem)
{
    EXPECT_EQ(Decode("规范 α \xF0\x9D\x84\x9E", TextEncoding::Utf8),
              (Decoded{true, "规范 α \xF0\x9D\x84\x9E"}));
    EXPECT_EQ(Decode("\x34\xD8\x1E\xDD\xC4\x89"sv, TextEncoding::Utf16LE),
              (Decoded{true, "\xF0\x9D\x84\x9E规"}));
    EXPECT_EQ(Decode("\x89\xC4\0A"sv, TextEncoding::Utf16BE), (Decoded{true, "规A"}));
    EXPECT_EQ(Decode("\xB9\xE6\xB7\xB6", TextEncoding::Gb18030), (Decoded{true, "规范"}));
    EXPECT_EQ(Decode("", TextEncoding::Gb18030), (Decoded{true, ""}));
}

TEST(Encoding, DecodesTheFourByteFormsOfGb18030)
{
    // U+20000, beyond two bytes in any of the older Chinese sets; U+00E4 likewise.
    EXPECT_EQ(Decode("\x95\x32\x82\x36\x81\x30\x8A\x31"sv, TextEncoding::Gb18030),
              (Decoded{true, "\xF0\xA0\x80\x80ä"}));
}

TEST(Encoding, StopsAtTheFirstWrongByteAndKeepsWhatStandsBeforeIt)
{
    EXPECT_EQ(Decode("规\xFF范", TextEncoding::Utf8), (Decoded{false, "规"}));
    EXPECT_EQ(Decode("a\xE8\xA7", TextEncoding::Utf8), (Decoded{false, "a"}));
    EXPECT_EQ(Decode("\xED\xA0\x80", TextEncoding::Utf8), (Decoded{false, ""}));
    EXPECT_EQ(Decode("\xB9\xE6\xFF\xFF", TextEncoding::Gb18030), (Decoded{false, "规"}));
    EXPECT_EQ(Decode("ab\xB9", TextEncoding::Gb18030), (Decoded{false, "ab"}));
    EXPECT_EQ(Decode("\x95\x32\x82", TextEncoding::Gb18030), (Decoded{false, ""}));
}

TEST(Encoding, Utf16OfOddLengthOrWithALoneSurrogateIsBroken)
{
    EXPECT_EQ(Decode("a\0b"sv, TextEncoding::Utf16LE), (Decoded{false, "a"}));
    EXPECT_EQ(Decode("a\0\x34\xD8"sv, TextEncoding::Utf16LE), (Decoded{false, "a"}));
    EXPECT_EQ(Decode("a\0\x34\xD8z\0"sv, TextEncoding::Utf16LE), (Decoded{false, "a"}));
    EXPECT_EQ(Decode("\0a\xDD\x1E\0z"sv, TextEncoding::Utf16BE), (Decoded{false, "a"}));
}

TEST(Encoding, DecodesTextLongerThanItsBuffers)
{
    std::string wide;
    std::string expected;
    for (int i = 0; i < 20000; ++i) {
        wide += "\xC4\x89"sv;
        expected += "规";
    }
    EXPECT_EQ(Decode(wide, TextEncoding::Utf16LE), (Decoded{true, expected}));
}

TEST(Encoding, AppendsWhatItDecodes)
{
    std::string text = "前";
    EXPECT_TRUE(DecodeText("A\0"sv, TextEncoding::Utf16LE, text));
    EXPECT_TRUE(DecodeText("B", TextEncoding::Utf8, text));
    EXPECT_EQ(text, "前AB");
}

TEST(Encoding, EncodesBackToTheSameBytes)
{
    const std::string text = "规范 α ä \xF0\xA0\x80\x80 \xF0\x9D\x84\x9E\r\n";
    for (const auto encoding : {TextEncoding::Utf8, TextEncoding::Utf16LE, TextEncoding::Utf16BE,
                                TextEncoding::Gb18030}) {
        std::string bytes = "old";
        EXPECT_TRUE(EncodeText(text, encoding, bytes));
        EXPECT_EQ(Decode(bytes, encoding), (Decoded{true, text}));
    }
    std::string bytes;
    EXPECT_TRUE(EncodeText("规", TextEncoding::Utf16LE, bytes));
    EXPECT_EQ(bytes, "\xC4\x89");
}

TEST(Encoding, EncodesNothingThatIsNoText)
{
    std::string bytes;
    for (const auto encoding : {TextEncoding::Utf8, TextEncoding::Utf16LE, TextEncoding::Gb18030})
        EXPECT_FALSE(EncodeText("a\xFF", encoding, bytes));
}
