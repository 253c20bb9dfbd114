#include "base/NoCase.h"

#include <cstdint>
#include <functional>
#include <iterator>

#include <utf8proc.h>

#include "base/CodePoint.h"

namespace designspec {

namespace {

// The scripts of East Asia, Chinese among them, have no case.
constexpr wchar_t kCaselessFirst = 0x2E80;
constexpr wchar_t kCaselessLast = 0xA4CF;

// Walks a text as its case-folded characters; one character may fold to several.
class FoldedReader {
public:
    explicit FoldedReader(std::wstring_view text) : m_rest(text) {}

    // The next folded character, or -1 at the end.
    std::int32_t Next()
    {
        while (m_used == m_count) {
            if (m_rest.empty()) return -1;
            Fold(static_cast<utf8proc_int32_t>(TakeCodePoint(m_rest)));
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

int CompareNoCase(std::wstring_view a, std::wstring_view b)
{
    size_t same = 0;
    while (same < a.size() && same < b.size() && a[same] == b[same])
        ++same;
    if (IsWithinPair(a, same) || IsWithinPair(b, same)) --same;
    a.remove_prefix(same);
    b.remove_prefix(same);
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
        AppendCodePoint(static_cast<char32_t>(c), m_folded);
    m_hash = std::hash<std::wstring>()(m_folded);
}

} // namespace designspec
