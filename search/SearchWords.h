// What somebody looks for, and whether a text has it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace designspec {

// A text made ready to be searched: case and width folded, blanks only between words of letters and
// digits.
std::wstring SearchText(std::wstring_view text);

// The words of a query. A word stands anywhere in a text; one that begins with a digit only where a
// number begins, so that 25 finds 250 and 1/25 but not 125. A letter also stands for a Chinese
// character that begins with it when it is spoken: cgzx is in 设超高最小半径.
class SearchWords {
public:
    // One bit for each word.
    using Set = std::uint32_t;

    SearchWords() = default;
    explicit SearchWords(std::wstring_view query);

    bool IsEmpty() const { return m_words.empty(); }
    std::size_t Count() const { return m_words.size(); }
    Set All() const { return static_cast<Set>((std::uint64_t{1} << m_words.size()) - 1); }
    // Those that are in the text, which SearchText has made.
    Set In(std::wstring_view text) const;
    // The same for a value, which is looked for by words that begin with a digit.
    bool HasNumber() const;
    Set InValue(std::wstring_view text) const;

    bool operator==(const SearchWords&) const = default;

private:
    std::vector<std::wstring> m_words; // as SearchText makes them; as many as Set has bits
};

} // namespace designspec
