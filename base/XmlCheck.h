// A look at an XML text before a tree is made of it: the parser in use takes more than XML allows,
// and makes a tree of whatever size the text asks for.
#pragma once

#include <optional>
#include <string_view>

#include <string>

namespace designspec {

// True for a character that XML 1.0 has a place for.
bool IsXmlCharacter(char32_t c);
// True when every character can stand in an XML document. Storing a text puts U+FFFD in place of
// those that cannot: most control characters, lone surrogates.
bool IsXmlText(std::wstring_view text);

constexpr int kXmlDepthLimit = 64; // of nested elements; a library's files need eight or so

struct XmlFault {
    // Stands for the text as a whole.
    static constexpr size_t kWholeText = static_cast<size_t>(-1);

    size_t offset = 0; // in bytes
    std::wstring cause;
};

// The first fault of a text in UTF-8 among these: a character that XML forbids, bare or by
// reference; a reference to an entity; a document type declaration; elements nested deeper than
// kXmlDepthLimit; text outside the root element. Whatever else is wrong is left to the parser.
std::optional<XmlFault> CheckXml(std::string_view xml);

// False for a text in which CheckXml can find nothing but elements nested too deep and text
// outside the root: no character that XML forbids, no reference, nothing that begins with "<!".
// Ten times as fast, and so it is for nearly every file.
bool HasMarkupToCheck(std::string_view xml);

} // namespace designspec
