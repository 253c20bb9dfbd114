// Captions of a table's rows or columns, to be found by what somebody else wrote for them.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace designspec {

// A text without full-width forms and without blanks around it: "１，５００ｍ" is "1,500m".
std::wstring PlainText(std::wstring_view text);

// What a caption or a value consists of. "坡度3%" has the number 3 and the word 坡度; of "250 m",
// "≥100", "80km/h" and "200~300" all but the numbers is unit or sign, and no word.
struct CaptionParts {
    explicit CaptionParts(std::wstring_view text);

    std::wstring numbers; // in their order, each ended by a semicolon
    std::wstring word;    // in lower case, without blanks

    bool IsNumber() const { return !numbers.empty() && word.empty(); }
    // The number of a caption that has just one, and no word but such a part of `words`.
    std::optional<double> OnlyNumber(std::wstring_view words) const;
};

// Each search takes the same time, however many captions there are.
class CaptionIndex {
public:
    explicit CaptionIndex(const std::vector<std::wstring>& captions);

    // The caption that `heading` means: the same but for blanks, line breaks, case, width and a
    // unit in brackets; or the only one with the same numbers whose word has that of the heading
    // in it ("3%" for 坡度3%, "80 km/h" for 80). -1 when there is none.
    int Find(std::wstring_view heading) const;

private:
    struct Numbered {
        int place;
        std::wstring word;
    };
    std::unordered_map<std::wstring, int> m_whole;
    std::unordered_map<std::wstring, int> m_withoutUnit;
    std::unordered_map<std::wstring, std::vector<Numbered>> m_byNumbers;
};

} // namespace designspec
