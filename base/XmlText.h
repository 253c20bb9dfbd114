// From a file's bytes to the tree of its XML.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/XmlCheck.h"

namespace pugi {
class xml_document;
}

namespace designspec {

// Makes the tree of a text in whatever encoding it comes: by its byte-order mark, else by its
// declaration, else UTF-8. `source` is the text in UTF-8, which the fault's offset is in; up to
// where it is no text in that encoding. With a fault, the tree is not to be looked into.
std::optional<XmlFault> ReadXmlText(std::string_view bytes, std::string& source,
                                    pugi::xml_document& tree);

} // namespace designspec
