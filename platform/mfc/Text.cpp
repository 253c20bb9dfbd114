#include "platform/mfc/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>

#include <utf8proc.h>

namespace {

constexpr wchar_t kEscapeFirst = 0xDC80;
constexpr wchar_t kEscapeLast = 0xDCFF;
constexpr wchar_t kReplacement = 0xFFFD;

// The scripts of East Asia, Chinese among them, have no case.
constexpr wchar_t kCaselessFirst = 0x2E80;
constexpr wchar_t kCaselessLast = 0xA4CF;

// Length of the ASCII run at the start of `text`, eight bytes at a step.
size_t AsciiRun(std::string_view text)
{
    size_t i = 0;
    for (; i + 8 <= text.size(); i += 8) {
        std::uint64_t word;
        std::memcpy(&word, text.data() + i, sizeof word);
        if (word & 0x8080808080808080U) break;
    }
    while (i < text.size() && static_cast<signed char>(text[i]) >= 0)
        ++i;
    return i;
}

// Decodes one character; 0 when the bytes at the start of `text` are not UTF-8.
size_t DecodeOne(std::string_view text, utf8proc_int32_t& code)
{
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

// Walks a text as its case-folded characters; one character may fold to several.
class FoldedReader {
public:
    explicit FoldedReader(std::wstring_view text) : m_rest(text) {}

    // The next folded character, or -1 at the end.
    std::int32_t Next()
    {
        while (m_used == m_count) {
            if (m_rest.empty()) return -1;
            Fold(m_rest.front());
            m_rest.remove_prefix(1);
        }
        return m_folded[m_used++];
    }

private:
    void Fold(utf8proc_int32_t c)
    {
        m_used = 0;
        m_count = 1;
        m_folded[0] = c;
        if (c < 0x80) {
            if (c >= L'A' && c <= L'Z') m_folded[0] = c - L'A' + L'a';
            return;
        }
        if (c >= kCaselessFirst && c <= kCaselessLast) return;
        int boundary = 0;
        const auto length = utf8proc_decompose_char(c, m_folded, std::ssize(m_folded),
                                                    UTF8PROC_CASEFOLD, &boundary);
        if (length >= 0 && length <= std::ssize(m_folded)) m_count = static_cast<size_t>(length);
    }

    std::wstring_view m_rest;
    utf8proc_int32_t m_folded[8] = {};
    size_t m_used = 0;
    size_t m_count = 0;
};

} // namespace

CString ToWide(std::string_view utf8)
{
    CString text;
    // Each character but has one first byte; Chinese text would else take three times its room.
    text.reserve(static_cast<size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; })));
    while (!utf8.empty()) {
        const size_t run = AsciiRun(utf8);
        text.append(utf8.begin(), utf8.begin() + static_cast<std::ptrdiff_t>(run));
        utf8.remove_prefix(run);
        if (utf8.empty()) break;
        utf8proc_int32_t code = 0;
        size_t length = DecodeOne(utf8, code);
        if (length == 0) {
            code = kEscapeFirst + (static_cast<unsigned char>(utf8.front()) - 0x80);
            length = 1;
        }
        text.push_back(static_cast<wchar_t>(code));
        utf8.remove_prefix(length);
    }
    return text;
}

std::string ToUtf8(std::wstring_view text)
{
    std::string utf8;
    utf8.reserve(text.size() * 3);
    for (wchar_t c : text) {
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

CString TrimLeft(std::wstring_view text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    return CString(text);
}

CString TrimRight(std::wstring_view text)
{
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return CString(text);
}

CString Trim(std::wstring_view text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    return TrimRight(text);
}

CString TrimRight(std::wstring_view text, std::wstring_view set)
{
    while (!text.empty() && set.find(text.back()) != std::wstring_view::npos)
        text.remove_suffix(1);
    return CString(text);
}

int CompareNoCase(std::wstring_view a, std::wstring_view b)
{
    while (!a.empty() && !b.empty() && a.front() == b.front()) {
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    FoldedReader left(a);
    FoldedReader right(b);
    for (;;) {
        const auto l = left.Next();
        const auto r = right.Next();
        if (l != r) return l < r ? -1 : 1;
        if (l < 0) return 0;
    }
}

bool EqualNoCase(std::wstring_view a, std::wstring_view b)
{
    return CompareNoCase(a, b) == 0;
}

NoCaseKey::NoCaseKey(std::wstring_view text)
{
    m_folded.reserve(text.size());
    FoldedReader reader(text);
    for (std::int32_t c = reader.Next(); c >= 0; c = reader.Next())
        m_folded.push_back(static_cast<wchar_t>(c));
    m_hash = std::hash<CString>()(m_folded);
}
