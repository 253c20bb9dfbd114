#include "base/Encoding.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <iconv.h>
#include <utility>

#include "base/NoCase.h"
#include "base/Text.h"

namespace designspec {

namespace {

const char* IconvName(TextEncoding encoding)
{
    switch (encoding) {
    case TextEncoding::Utf8:
        return "UTF-8";
    case TextEncoding::Utf16LE:
        return "UTF-16LE";
    case TextEncoding::Utf16BE:
        return "UTF-16BE";
    case TextEncoding::Gb18030:
        return "GB18030";
    }
    return "UTF-8";
}

// Appends `in` to `out`, converted; false at the first byte that cannot be.
bool Convert(const char* to, const char* from, std::string_view in, std::string& out)
{
    const iconv_t converter = iconv_open(to, from);
    // iconv's own way to say no. NOLINTNEXTLINE(performance-no-int-to-ptr)
    if (converter == reinterpret_cast<iconv_t>(-1)) return false;
    char* source = const_cast<char*>(in.data()); // iconv only reads it
    size_t left = in.size();
    bool done = false;
    for (;;) {
        std::array<char, 4096> buffer;
        char* target = buffer.data();
        size_t room = buffer.size();
        const size_t result = iconv(converter, &source, &left, &target, &room);
        out.append(buffer.data(), buffer.size() - room);
        if (result != static_cast<size_t>(-1)) {
            done = left == 0;
            break;
        }
        if (errno != E2BIG) break;
    }
    iconv_close(converter);
    return done;
}

} // namespace

TextEncoding EncodingByMark(std::string_view bytes, size_t& markSize)
{
    using namespace std::string_view_literals;
    static constexpr std::pair<std::string_view, TextEncoding> kMarks[] = {
        {"\xEF\xBB\xBF"sv, TextEncoding::Utf8},
        {"\xFF\xFE"sv, TextEncoding::Utf16LE},
        {"\xFE\xFF"sv, TextEncoding::Utf16BE},
    };
    for (const auto& [mark, encoding] : kMarks) {
        if (bytes.starts_with(mark)) {
            markSize = mark.size();
            return encoding;
        }
    }
    markSize = 0;
    return TextEncoding::Utf8;
}

bool EncodingByName(std::string_view name, TextEncoding& encoding)
{
    static constexpr std::pair<std::wstring_view, TextEncoding> kNames[] = {
        {L"UTF-8", TextEncoding::Utf8},       {L"US-ASCII", TextEncoding::Utf8},
        {L"UTF-16", TextEncoding::Utf16LE},   {L"UTF-16LE", TextEncoding::Utf16LE},
        {L"UTF-16BE", TextEncoding::Utf16BE}, {L"GB2312", TextEncoding::Gb18030},
        {L"GBK", TextEncoding::Gb18030},      {L"GB18030", TextEncoding::Gb18030},
    };
    const std::wstring wanted = ToWide(name);
    for (const auto& [known, value] : kNames) {
        if (EqualNoCase(known, wanted)) {
            encoding = value;
            return true;
        }
    }
    return false;
}

bool DecodeText(std::string_view bytes, TextEncoding encoding, std::string& utf8)
{
    if (encoding != TextEncoding::Utf8) return Convert("UTF-8", IconvName(encoding), bytes, utf8);
    size_t wrong = bytes.size();
    const bool valid = IsUtf8(bytes, wrong);
    utf8.append(bytes.substr(0, wrong));
    return valid;
}

bool EncodeText(std::string_view utf8, TextEncoding encoding, std::string& bytes)
{
    bytes.clear();
    return Convert(IconvName(encoding), "UTF-8", utf8, bytes);
}

} // namespace designspec
