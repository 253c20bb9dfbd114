// Characters of wide text. Where wchar_t has 16 bits, one beyond U+FFFF is two of them: a pair of
// surrogates. A surrogate alone counts as a character.
#pragma once

#include <string>
#include <string_view>

namespace designspec {

// Takes the first character off the text, which is not empty.
template <class Unit> char32_t TakeCodePoint(std::basic_string_view<Unit>& text)
{
    const auto first = static_cast<char32_t>(text.front());
    text.remove_prefix(1);
    if constexpr (sizeof(Unit) == 2) {
        const bool isHigh = first >= 0xD800 && first <= 0xDBFF;
        if (!isHigh || text.empty()) return first;
        const auto second = static_cast<char32_t>(text.front());
        if (second < 0xDC00 || second > 0xDFFF) return first;
        text.remove_prefix(1);
        return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
    }
    return first;
}

template <class Unit> void AppendCodePoint(char32_t code, std::basic_string<Unit>& text)
{
    if constexpr (sizeof(Unit) == 2) {
        if (code >= 0x10000) {
            text.push_back(static_cast<Unit>(0xD7C0 + (code >> 10)));
            text.push_back(static_cast<Unit>(0xDC00 + (code & 0x3FF)));
            return;
        }
    }
    text.push_back(static_cast<Unit>(code));
}

// True where the text cannot be parted before that place: within a pair.
template <class Unit> bool IsWithinPair(std::basic_string_view<Unit> text, size_t at)
{
    if constexpr (sizeof(Unit) == 2)
        return at > 0 && at < text.size() && text[at - 1] >= 0xD800 && text[at - 1] <= 0xDBFF &&
               text[at] >= 0xDC00 && text[at] <= 0xDFFF;
    return false;
}

// As many characters from the beginning, or all.
template <class Unit>
std::basic_string_view<Unit> FirstCharacters(std::basic_string_view<Unit> text, size_t count)
{
    std::basic_string_view<Unit> rest = text;
    while (count-- > 0 && !rest.empty())
        TakeCodePoint(rest);
    return text.substr(0, text.size() - rest.size());
}

} // namespace designspec
