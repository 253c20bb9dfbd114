#include "base/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include <utf8proc.h>

#include "base/CodePoint.h"

namespace designspec {

namespace {

constexpr utf8proc_int32_t kEscapeFirst = 0xDC80;
constexpr utf8proc_int32_t kEscapeLast = 0xDCFF;
constexpr utf8proc_int32_t kReplacement = 0xFFFD;

// Length of the ASCII run at the start of `text`, 32 bytes at a step.
size_t AsciiRun(std::string_view text)
{
    size_t i = 0;
    for (std::uint64_t words[4]; i + sizeof words <= text.size(); i += sizeof words) {
        std::memcpy(words, text.data() + i, sizeof words);
        if ((words[0] | words[1] | words[2] | words[3]) & 0x8080808080808080U) break;
    }
    while (i < text.size() && static_cast<signed char>(text[i]) >= 0)
        ++i;
    return i;
}

bool IsContinuation(char c)
{
    return (c & 0xC0) == 0x80;
}

// Decodes one character; 0 when the bytes at the start of `text` are not UTF-8.
size_t DecodeOne(std::string_view text, utf8proc_int32_t& code)
{
    // Chinese, nearly always: three bytes that can be nothing else.
    const int first = static_cast<unsigned char>(text.front());
    if (first > 0xE0 && first < 0xED && text.size() >= 3 && IsContinuation(text[1]) &&
        IsContinuation(text[2])) {
        code = (first & 0x0F) << 12 | (text[1] & 0x3F) << 6 | (text[2] & 0x3F);
        return 3;
    }
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                         static_cast<utf8proc_ssize_t>(text.size()), &code);
    return length > 0 ? static_cast<size_t>(length) : 0;
}

bool IsSpace(wchar_t c)
{
    if (c == L' ' || (c >= L'\t' && c <= L'\r')) return true;
    if (c < 0x80) return false;
    const auto category = utf8proc_category(c);
    return category == UTF8PROC_CATEGORY_ZS || category == UTF8PROC_CATEGORY_ZL ||
           category == UTF8PROC_CATEGORY_ZP || c == 0x85;
}

} // namespace

std::wstring ToWide(std::string_view utf8)
{
    std::wstring text;
    // Each character but has one first byte; Chinese text would else take three times its room.
    text.reserve(static_cast<size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return !IsContinuation(c); })));
    while (!utf8.empty()) {
        const size_t run = AsciiRun(utf8);
        for (const char c : utf8.substr(0, run))
            text.push_back(static_cast<wchar_t>(c));
        utf8.remove_prefix(run);
        if (utf8.empty()) break;
        utf8proc_int32_t code = 0;
        size_t length = DecodeOne(utf8, code);
        if (length == 0) {
            code = kEscapeFirst + (static_cast<unsigned char>(utf8.front()) - 0x80);
            length = 1;
        }
        AppendCodePoint(static_cast<char32_t>(code), text);
        utf8.remove_prefix(length);
    }
    return text;
}

std::string ToUtf8(std::wstring_view text)
{
    std::string utf8;
    utf8.reserve(text.size() * 3);
    while (!text.empty()) {
        const auto c = static_cast<utf8proc_int32_t>(TakeCodePoint(text));
        if (c >= 0 && c < 0x80) {
            utf8.push_back(static_cast<char>(c));
        } else if (c >= kEscapeFirst && c <= kEscapeLast) {
            utf8.push_back(static_cast<char>(c - kEscapeFirst + 0x80));
        } else {
            utf8proc_uint8_t bytes[4];
            const bool valid = utf8proc_codepoint_valid(c) != 0;
            const auto length = utf8proc_encode_char(valid ? c : kReplacement, bytes);
            utf8.append(reinterpret_cast<const char*>(bytes), static_cast<size_t>(length));
        }
    }
    return utf8;
}

bool IsUtf8(std::string_view bytes, size_t& offset)
{
    const size_t size = bytes.size();
    while (!bytes.empty()) {
        bytes.remove_prefix(AsciiRun(bytes));
        if (bytes.empty()) break;
        utf8proc_int32_t code = 0;
        const size_t length = DecodeOne(bytes, code);
        if (length == 0) {
            offset = size - bytes.size();
            return false;
        }
        bytes.remove_prefix(length);
    }
    return true;
}

std::wstring TrimRight(std::wstring_view text)
{
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return std::wstring(text);
}

std::wstring Trim(std::wstring_view text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    return TrimRight(text);
}

std::wstring TrimRight(std::wstring_view text, std::wstring_view set)
{
    while (!text.empty() && set.find(text.back()) != std::wstring_view::npos)
        text.remove_suffix(1);
    return std::wstring(text);
}

bool IsActing(wchar_t c)
{
    return static_cast<char32_t>(c) < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x061C || c == 0x200E ||
           c == 0x200F || (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

std::wstring Printable(std::wstring_view text)
{
    static constexpr wchar_t kHex[] = L"0123456789ABCDEF";
    std::wstring shown;
    shown.reserve(text.size());
    for (const wchar_t c : text) {
        if (!IsActing(c)) {
            shown.push_back(c);
        } else if (c == L'\n' || c == L'\r' || c == L'\t') {
            shown.push_back(L'\\');
            shown.push_back(c == L'\n' ? L'n' : c == L'\r' ? L'r' : L't');
        } else {
            shown += c < 0x100 ? L"\\x" : L"\\u";
            for (int shift = c < 0x100 ? 4 : 12; shift >= 0; shift -= 4)
                shown.push_back(kHex[(c >> shift) & 0xF]);
        }
    }
    return shown;
}

int DisplayWidth(std::wstring_view text)
{
    int width = 0;
    while (!text.empty())
        width += utf8proc_charwidth(static_cast<utf8proc_int32_t>(TakeCodePoint(text)));
    return width;
}

std::vector<std::wstring> SplitText(std::wstring_view text, std::wstring_view separators)
{
    std::vector<std::wstring> parts;
    size_t start = 0;
    while (start < text.size()) {
        const size_t end = std::min(text.find_first_of(separators, start), text.size());
        if (end > start) parts.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

} // namespace designspec
