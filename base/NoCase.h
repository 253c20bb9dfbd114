// Texts compared ignoring case, which is folded as Unicode says, whatever the locale.
#pragma once

#include <string>
#include <string_view>

namespace designspec {

// Order of two texts: below 0, 0 or above 0.
int CompareNoCase(std::wstring_view a, std::wstring_view b);
bool EqualNoCase(std::wstring_view a, std::wstring_view b);

// A text made ready once to be compared with many others.
class NoCaseKey {
public:
    NoCaseKey() : NoCaseKey(std::wstring_view()) {}
    explicit NoCaseKey(std::wstring_view text);
    // What EqualNoCase says of the two texts.
    bool operator==(const NoCaseKey&) const = default;

    // The text with its case folded; a text that begins or ends it does so folded.
    const std::wstring& Folded() const { return m_folded; }
    struct Hash {
        size_t operator()(const NoCaseKey& key) const { return key.m_hash; }
    };

private:
    size_t m_hash; // compared first, and nearly always differs when the texts do
    std::wstring m_folded;
};

} // namespace designspec
