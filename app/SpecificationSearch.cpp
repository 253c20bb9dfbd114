#include "app/SpecificationSearch.h"

#include "base/Text.h"

namespace designspec {

namespace {

// The words, parted by blanks, that are not in the text.
CString Missing(const CString& words, const std::wstring& text)
{
    CString missing;
    std::size_t end = 0;
    for (std::size_t begin = 0; begin < words.size(); begin = end + 1) {
        end = std::min(words.find(L' ', begin), words.size());
        const CString word = words.substr(begin, end - begin);
        const SearchWords one(word);
        if (one.In(text) != one.All()) missing += L' ' + word;
    }
    return missing;
}

} // namespace

std::optional<CString> SpecificationSearch::Find(const CDesignSpecification& specification,
                                                 const CString& told, const CString& words)
{
    const CString missing = Missing(words, SearchText(told));
    if (missing.empty()) return CString();
    const auto hit = m_indexes.First(specification, SearchWords(missing));
    if (!hit) return std::nullopt;
    CString where = hit->page->label;
    if (const CString place = hit->Place(); !place.empty()) where += L" · " + place;
    return hit->text.empty() ? where : where + L": " + hit->text;
}

} // namespace designspec
