#include "search/SearchWords.h"

#include <algorithm>
#include <limits>

#include "base/CaptionIndex.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "search/PinyinInitials.h"

namespace designspec {

namespace {

bool IsDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

bool IsLetterOrDigit(wchar_t c)
{
    return IsDigit(c) || (c >= L'a' && c <= L'z');
}

bool IsFor(wchar_t sought, wchar_t c)
{
    if (sought == c) return true;
    return sought >= L'a' && sought <= L'z' && (PinyinInitials(c) >> (sought - L'a') & 1) != 0;
}

bool StandsAt(std::wstring_view text, std::size_t at, std::wstring_view word)
{
    for (std::size_t i = 0; i < word.size(); ++i)
        if (!IsFor(word[i], text[at + i])) return false;
    return true;
}

bool IsWithinNumber(std::wstring_view text, std::size_t at)
{
    return at > 0 && (IsDigit(text[at - 1]) || text[at - 1] == L'.');
}

bool IsIn(std::wstring_view text, std::wstring_view word)
{
    const bool isNumber = IsDigit(word.front());
    for (std::size_t at = 0; at + word.size() <= text.size(); ++at)
        if (StandsAt(text, at, word) && !(isNumber && IsWithinNumber(text, at))) return true;
    return false;
}

} // namespace

std::wstring SearchText(std::wstring_view text)
{
    const std::wstring folded = NoCaseKey(PlainText(text)).Folded();
    std::wstring made;
    bool blank = false;
    for (const wchar_t c : folded) {
        if (c == L' ' || c == L'\n' || c == L'\r' || c == L'\t') {
            blank = true;
            continue;
        }
        if (blank && !made.empty() && IsLetterOrDigit(made.back()) && IsLetterOrDigit(c))
            made += L' ';
        blank = false;
        made += c;
    }
    return made;
}

SearchWords::SearchWords(std::wstring_view query)
{
    for (const std::wstring& part : SplitText(PlainText(query), L" \t\r\n"))
        if (m_words.size() < std::numeric_limits<Set>::digits) m_words.push_back(SearchText(part));
}

SearchWords::Set SearchWords::In(std::wstring_view text) const
{
    Set found = 0;
    for (std::size_t i = 0; i < m_words.size(); ++i)
        if (IsIn(text, m_words[i])) found |= Set{1} << i;
    return found;
}

bool SearchWords::HasNumber() const
{
    return std::any_of(m_words.begin(), m_words.end(),
                       [](const std::wstring& word) { return IsDigit(word.front()); });
}

SearchWords::Set SearchWords::InValue(std::wstring_view text) const
{
    Set found = 0;
    for (std::size_t i = 0; i < m_words.size(); ++i)
        if (IsDigit(m_words[i].front()) && IsIn(text, m_words[i])) found |= Set{1} << i;
    return found;
}

} // namespace designspec
