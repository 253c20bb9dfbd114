#include "cli/Suggestion.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

// What other programs call our commands and options.
constexpr std::pair<const char*, const char*> kOtherNames[] = {
    {"delete", "remove"},
    {"del", "remove"},
    {"rm", "remove"},
    {"erase", "remove"},
    {"unset", "set"},
    {"ls", "list"},
    {"dir", "list"},
    {"mv", "rename"},
    {"move", "rename"},
    {"add", "new"},
    {"create", "new"},
    {"copy", "new"},
    {"cp", "new"},
    {"get", "query"},
    {"ask", "query"},
    {"find", "query"},
    {"cat", "show"},
    {"print", "show"},
    {"view", "show"},
    {"edit", "set"},
    {"change", "set"},
    {"put", "set"},
    {"undelete", "restore"},
    {"recover", "restore"},
    {"bring-back", "restore"},
    {"load", "import"},
    {"save", "export"},
    {"validate", "check"},
    {"verify", "check"},
    {"lint", "check"},
    {"help", "--help"},
    {"version", "--version"},
};

// Letters to add, drop or change; two neighbours the other way round count as one.
size_t Distance(const std::string& a, const std::string& b)
{
    std::vector<size_t> twoBefore;
    std::vector<size_t> before;
    std::vector<size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (size_t i = 1; i <= a.size(); ++i) {
        twoBefore = std::exchange(before, row);
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            row[j] =
                std::min({before[j] + 1, row[j - 1] + 1, before[j - 1] + (a[i - 1] != b[j - 1])});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], twoBefore[j - 2] + 1);
        }
    }
    return row.back();
}

} // namespace

std::string SuggestionFor(const std::string& word, const std::vector<std::string>& known)
{
    constexpr size_t kLongestWord = 40; // beyond it is no slip of the keys
    if (word.size() > kLongestWord) return {};
    for (const auto& [other, ours] : kOtherNames)
        if (word == other && std::find(known.begin(), known.end(), ours) != known.end())
            return ours;
    std::string nearest;
    size_t least = word.size() / 3 + 1;
    for (const std::string& one : known)
        if (const size_t distance = Distance(word, one);
            distance <= least && distance < one.size()) {
            if (nearest.empty() || distance < least) nearest = one;
            least = distance;
        }
    return nearest;
}
