#include "base/NoCase.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <type_traits>

#include <utf8proc.h>

#include "base/CodePoint.h"

namespace designspec {

namespace {

// The scripts of East Asia, Chinese among them, have no case.
constexpr std::uint32_t kCaselessFirst = 0x2E80;
constexpr std::uint32_t kCaselessLast = 0xA4CF;

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
        if (static_cast<std::uint32_t>(c) - kCaselessFirst <= kCaselessLast - kCaselessFirst)
            return;
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

bool EndsInNoCase(std::wstring_view text, std::wstring_view ending)
{
    return text.size() >= ending.size() &&
           EqualNoCase(text.substr(text.size() - ending.size()), ending);
}

namespace {

// Folds a text of ASCII and of scripts without case, character by character; false for one that
// holds any other. No branch: the processor then takes several characters at a step.
bool FoldPlain(std::wstring_view text, wchar_t* folded)
{
    bool isPlain = true;
    for (size_t i = 0; i < text.size(); ++i) {
        const std::uint32_t c = std::bit_cast<std::make_unsigned_t<wchar_t>>(text[i]);
        isPlain &= (c < 0x80) | (c - kCaselessFirst <= kCaselessLast - kCaselessFirst);
        folded[i] = static_cast<wchar_t>(c | (std::uint32_t{c - L'A' <= L'Z' - L'A'} << 5));
    }
    return isPlain;
}

std::wstring FoldAny(std::wstring_view text)
{
    std::wstring folded;
    folded.reserve(text.size());
    FoldedReader reader(text);
    for (std::int32_t c = reader.Next(); c >= 0; c = reader.Next())
        AppendCodePoint(static_cast<char32_t>(c), folded);
    return folded;
}

} // namespace

// Two sums side by side, as each step of one waits for the one before.
size_t HashOfFolded(std::wstring_view folded)
{
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
    std::uint64_t sums[2] = {folded.size(), 0};
    std::uint64_t words[2];
    constexpr size_t kStep = sizeof words / (sizeof(wchar_t));
    for (; folded.size() >= kStep; folded.remove_prefix(kStep)) {
        std::memcpy(words, folded.data(), sizeof words);
        for (int i = 0; i < 2; ++i)
            sums[i] = std::rotl((sums[i] ^ words[i]) * kFactor, 29);
    }
    for (const wchar_t c : folded)
        sums[0] = std::rotl((sums[0] ^ static_cast<std::uint64_t>(c)) * kFactor, 29);
    return static_cast<size_t>((sums[0] ^ std::rotl(sums[1], 32)) * kFactor >> 7);
}

NoCaseText::NoCaseText(std::wstring_view text)
{
    if (text.size() <= std::size(m_room) && FoldPlain(text, m_room)) {
        m_folded = std::wstring_view(m_room, text.size());
    } else {
        m_more = FoldAny(text);
        m_folded = m_more;
    }
    m_hash = HashOfFolded(m_folded);
}

} // namespace designspec
