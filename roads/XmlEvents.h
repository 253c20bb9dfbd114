// Reads an XML file of any size from its beginning to its end and hands over what it meets. Nothing
// of the file is kept. No document type, no entity of the file's own is taken.
#pragma once

#include <atomic>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Problem.h"

namespace roadcheck {

// Names without prefix; values as UTF-8.
class XmlAttributes {
public:
    void Clear() { m_values.clear(); }
    void Add(std::string_view name, std::string_view value) { m_values.emplace_back(name, value); }
    // Null when there is none of that name.
    const std::string* Find(std::string_view name) const;

private:
    std::vector<std::pair<std::string, std::string>> m_values;
};

class XmlHandler {
public:
    virtual ~XmlHandler() = default;

    // Whether the element's attributes and content are wanted. What is below one that is not, is
    // passed over. `name` is without prefix.
    virtual bool Wants(std::string_view name) = 0;
    // The begin of a wanted element.
    virtual void Start(std::string_view name, const XmlAttributes& attributes, int line) = 0;
    // Its end, with the text that stands in it itself, cut off at kMostText bytes.
    virtual void End(std::string_view name, std::string_view text) = 0;

    static constexpr size_t kMostText = 4096;
};

// False when the file could not be read to its end: not to be opened, not well-formed, too deep
// (256 elements), with a document type; a problem that is an error says what and in which line. An
// exception of the handler goes on to the caller. Ends early, with a problem, once `cancel` is
// true.
bool ReadXmlEvents(const std::wstring& path, XmlHandler& handler, designspec::Problems& problems,
                   const std::atomic<bool>* cancel = nullptr);

} // namespace roadcheck
