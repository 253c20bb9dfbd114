#include "base/Conversion.h"

#include <utf8proc.h>

#include "base/windows/Gb18030.h"

namespace designspec {

namespace {

bool IsSurrogate(char32_t code, char32_t first)
{
    return code >= first && code < first + 0x400;
}

char32_t UnitAt(std::string_view bytes, bool isLittle)
{
    const auto one = static_cast<unsigned char>(bytes[isLittle ? 1 : 0]);
    const auto other = static_cast<unsigned char>(bytes[isLittle ? 0 : 1]);
    return static_cast<char32_t>(one << 8 | other);
}

// How many bytes the first character has; 0 when there is none, or not the whole of it.
int TakeUtf16(std::string_view bytes, bool isLittle, char32_t& code)
{
    if (bytes.size() < 2) return 0;
    code = UnitAt(bytes, isLittle);
    if (IsSurrogate(code, 0xDC00)) return 0;
    if (!IsSurrogate(code, 0xD800)) return 2;
    const char32_t second = bytes.size() < 4 ? 0 : UnitAt(bytes.substr(2), isLittle);
    if (!IsSurrogate(second, 0xDC00)) return 0;
    code = 0x10000 + ((code - 0xD800) << 10) + (second - 0xDC00);
    return 4;
}

int Take(TextEncoding from, std::string_view bytes, char32_t& code)
{
    if (from == TextEncoding::Gb18030) return TakeGb18030(bytes, code);
    return TakeUtf16(bytes, from == TextEncoding::Utf16LE, code);
}

void AppendUnit(char32_t unit, bool isLittle, std::string& bytes)
{
    const auto high = static_cast<char>(unit >> 8);
    const auto low = static_cast<char>(unit & 0xFF);
    bytes.push_back(isLittle ? low : high);
    bytes.push_back(isLittle ? high : low);
}

void AppendUtf8(char32_t code, std::string& utf8)
{
    utf8proc_uint8_t bytes[4];
    const auto size = utf8proc_encode_char(static_cast<utf8proc_int32_t>(code), bytes);
    utf8.append(reinterpret_cast<const char*>(bytes), static_cast<size_t>(size));
}

bool Append(TextEncoding to, char32_t code, std::string& bytes)
{
    if (to == TextEncoding::Utf8) return AppendUtf8(code, bytes), true;
    if (to == TextEncoding::Gb18030) return AppendGb18030(code, bytes);
    const bool isLittle = to == TextEncoding::Utf16LE;
    if (code < 0x10000) return AppendUnit(code, isLittle, bytes), true;
    AppendUnit(0xD7C0 + (code >> 10), isLittle, bytes);
    AppendUnit(0xDC00 + (code & 0x3FF), isLittle, bytes);
    return true;
}

} // namespace

bool ConvertToUtf8(TextEncoding from, std::string_view bytes, std::string& utf8)
{
    while (!bytes.empty()) {
        char32_t code = 0;
        const int length = Take(from, bytes, code);
        if (length <= 0) return false;
        AppendUtf8(code, utf8);
        bytes.remove_prefix(static_cast<size_t>(length));
    }
    return true;
}

bool ConvertFromUtf8(TextEncoding to, std::string_view utf8, std::string& bytes)
{
    while (!utf8.empty()) {
        utf8proc_int32_t code = 0;
        const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(utf8.data()),
                                             static_cast<utf8proc_ssize_t>(utf8.size()), &code);
        if (length <= 0 || !Append(to, static_cast<char32_t>(code), bytes)) return false;
        utf8.remove_prefix(static_cast<size_t>(length));
    }
    return true;
}

} // namespace designspec
