#include "base/NoCase.h"

#include <algorithm>
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

// Texts are folded and summed up in blocks, of which the last one may overlap the one before: no
// step is for a single character.
constexpr size_t kBlock = 16 / sizeof(wchar_t);

template <class Take> void ForEachBlock(std::wstring_view text, const Take& take)
{
    if (text.size() < kBlock) {
        wchar_t filled[kBlock] = {};
        std::copy(text.begin(), text.end(), filled);
        return take(filled, 0);
    }
    const size_t last = text.size() - kBlock;
    for (size_t at = 0; at < last; at += kBlock)
        take(text.data() + at, at);
    take(text.data() + last, last);
}

// Two sums side by side, as each step of one waits for the one before.
class Sums {
public:
    explicit Sums(size_t size) : m_sums{size, 0} {}

    void Take(const wchar_t* block)
    {
        std::uint64_t words[2];
        std::memcpy(words, block, sizeof words);
        for (int i = 0; i < 2; ++i)
            m_sums[i] = std::rotl((m_sums[i] ^ words[i]) * kFactor, 29);
    }
    size_t Hash() const
    {
        return static_cast<size_t>((m_sums[0] ^ std::rotl(m_sums[1], 32)) * kFactor >> 7);
    }

private:
    static constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
    std::uint64_t m_sums[2];
};

// What is in a text; 0 where there is none.
struct Met {
    std::uint32_t others = 0; // neither ASCII nor of a script without case
    std::uint32_t capitals = 0;
};

// Folds a block of ASCII and of scripts without case, character by character; others stay as they
// are. No branch: the processor then takes several characters at a step.
Met FoldPlain(const wchar_t* block, wchar_t* folded)
{
    using Character = std::make_unsigned_t<wchar_t>;
    Character characters[kBlock]; // a copy: the two blocks could overlap
    std::memcpy(characters, block, sizeof characters);
    std::uint32_t others[kBlock];
    std::uint32_t capitals[kBlock];
    for (size_t i = 0; i < kBlock; ++i) {
        const std::uint32_t c = characters[i];
        others[i] = std::uint32_t{c >= 0x80} &
                    std::uint32_t{c - kCaselessFirst > kCaselessLast - kCaselessFirst};
        capitals[i] = std::uint32_t{c - L'A' <= L'Z' - L'A'} << 5;
        characters[i] = static_cast<Character>(c | capitals[i]);
    }
    std::memcpy(folded, characters, sizeof characters);
    Met met;
    for (size_t i = 0; i < kBlock; ++i) {
        met.others |= others[i];
        met.capitals |= capitals[i];
    }
    return met;
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

size_t HashOfFolded(std::wstring_view folded)
{
    Sums sums(folded.size());
    ForEachBlock(folded, [&](const wchar_t* block, size_t) { sums.Take(block); });
    return sums.Hash();
}

NoCaseText::NoCaseText(std::wstring_view text)
{
    if (text.size() <= std::size(m_room) && FoldIntoRoom(text)) return;
    m_more = FoldAny(text);
    m_folded = m_more;
    m_hash = HashOfFolded(m_folded);
}

bool NoCaseText::FoldIntoRoom(std::wstring_view text)
{
    Sums sums(text.size());
    Met met;
    ForEachBlock(text, [&](const wchar_t* block, size_t at) {
        const Met inBlock = FoldPlain(block, m_room + at);
        met.others |= inBlock.others;
        met.capitals |= inBlock.capitals;
        sums.Take(m_room + at);
    });
    // What was just written is slow to read: a text that stays as it is, is read where it stands.
    m_folded = met.capitals == 0 ? text : std::wstring_view(m_room, text.size());
    m_hash = sums.Hash();
    return met.others == 0;
}

} // namespace designspec
