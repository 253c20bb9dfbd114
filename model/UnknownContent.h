// What a specification's element in a file holds that this program does not know: elements and
// attributes of a newer one, at any depth. They are kept, so that its limits survive an older
// program.
#pragma once

#include <string>

class CXTPPropExchange;

namespace designspec {

// The unknown content of an element that was loaded, as an XML document that has it in its places;
// rows are told by their keys. Empty when there is none. A name that is known in its place and
// could not be read there - a second element of one name, an attribute for an element - is not
// unknown.
std::string UnknownContent(const CXTPPropExchange& style);

// Puts unknown content into the element that was stored, in place of what stood there by the same
// names. What belongs to a table or a row that is no more is dropped.
void AddUnknownContent(const std::string& unknown, const CXTPPropExchange& style);

} // namespace designspec
