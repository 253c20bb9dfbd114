// A look at an XML text before a tree is made of it: the parser in use takes more than XML allows,
// and makes a tree of whatever size the text asks for.
#pragma once

#include <optional>
#include <string_view>

#include "platform/mfc/Text.h"

// True for a character that XML 1.0 has a place for.
bool IsXmlCharacter(char32_t c);

struct XmlFault {
    size_t offset = 0; // in bytes
    CString cause;
};

// The first fault of a text in UTF-8 among these: a character that XML forbids, bare or by
// reference; a reference to an entity; a document type declaration; elements nested deeper than
// 64; text outside the root element. Whatever else is wrong is left to the parser.
std::optional<XmlFault> CheckXml(std::string_view xml);
