// Texts compared ignoring case, which is folded as Unicode says, whatever the locale.
#pragma once

#include <string>
#include <string_view>

namespace designspec {

// Order of two texts: below 0, 0 or above 0.
int CompareNoCase(std::wstring_view a, std::wstring_view b);
bool EqualNoCase(std::wstring_view a, std::wstring_view b);
bool EndsInNoCase(std::wstring_view text, std::wstring_view ending);

// A text to be looked for among keys, folded; nearly always without memory of its own. The text
// outlives it.
class NoCaseText {
public:
    explicit NoCaseText(std::wstring_view text);
    NoCaseText(const NoCaseText&) = delete;
    NoCaseText& operator=(const NoCaseText&) = delete;

    std::wstring_view Folded() const { return m_folded; }
    size_t HashCode() const { return m_hash; }

private:
    bool FoldIntoRoom(std::wstring_view text);

    wchar_t m_room[64]; // for as many characters, each of which folds to one
    std::wstring m_more;
    std::wstring_view m_folded; // in one of them, or the text itself
    size_t m_hash;
};

// That of a text which is folded already.
size_t HashOfFolded(std::wstring_view folded);

// A text made ready once to be compared with many others.
class NoCaseKey {
public:
    NoCaseKey() : NoCaseKey(std::wstring_view()) {}
    explicit NoCaseKey(std::wstring_view text) : NoCaseKey(NoCaseText(text)) {}
    explicit NoCaseKey(const NoCaseText& text) : m_hash(text.HashCode()), m_folded(text.Folded()) {}
    // What EqualNoCase says of the two texts.
    bool operator==(const NoCaseKey&) const = default;

    // The text with its case folded; a text that begins or ends it does so folded.
    const std::wstring& Folded() const { return m_folded; }
    size_t HashCode() const { return m_hash; }

    struct Hash {
        size_t operator()(const NoCaseKey& key) const { return key.m_hash; }
    };

private:
    size_t m_hash; // compared first, and nearly always differs when the texts do
    std::wstring m_folded;
};

} // namespace designspec
