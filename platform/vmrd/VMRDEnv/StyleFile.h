// Files of styles: StyleLibrary / Group (one for each level of the group's name) / Styles / Style.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "platform/mfc/String.h"
#include "platform/windows/Guid.h"
#include "platform/xtp/PropExchangeXMLNode.h"

namespace designspec {

// The root element of every file of styles.
inline constexpr wchar_t kStyleLibraryRoot[] = L"StyleLibrary";
// How the names of a library's files end.
inline constexpr wchar_t kStyleFileEnding[] = L".hds";

// Path of a group's section from the root: Group[@Name="…"] for each level of the name, which is
// split at "/" and "\", joined by "/".
AFX_EXT_API CString GroupPath(const CString& groupName);
// Path of the section that holds the styles of the library of that name, whose group is called the
// same.
AFX_EXT_API CString StylesPath(const CString& library);

// Opens the file at `path`, or begins a new document when there is none or `path` is empty, and
// finds or makes the way down to the library's styles. False when a file is there and cannot be
// read: the cause is among the problems of `root`.
AFX_EXT_API bool CreateStylesNode(const CString& path, const CString& groupName,
                                  const CString& library, CXTPPropExchangeXMLNode& root,
                                  CXTPPropExchange& styles);

// True when the document holds something beside the way down to the library's styles and these:
// what other programs keep there.
AFX_EXT_API bool HoldsMore(const CXTPPropExchange& root, const CString& library);

// True when the style's section bears that identity, in whatever form it is written.
AFX_EXT_API bool HasID(const CXTPPropExchange& style, const GUID& id);

// True when one of the library's styles bears that identity. A document that holds but one style is
// taken to hold that one.
AFX_EXT_API bool HoldsStyle(const CXTPPropExchange& root, const CString& library, const GUID& id);

// Leaves of the library's styles in the document those that are, or are not, of that identity.
void Reduce(const CXTPPropExchange& root, const CString& library, const GUID& id, bool keepIt);

// A style of a file; one without a readable identity has another one each time it is asked for.
struct StyleEntry {
    CString name;
    GUID id;
};

// The styles of a library that a document holds, in its order.
AFX_EXT_API std::vector<StyleEntry> StyleEntries(const CXTPPropExchange& root,
                                                 const CString& library);
// The same of the file at `path`. Nothing, with its problems, when it cannot be read.
std::optional<std::vector<StyleEntry>> EntriesOf(const CString& path, const CString& library,
                                                 Problems& problems);

// How many of them bear that identity.
std::ptrdiff_t CountOf(const GUID& id, const std::vector<StyleEntry>& entries);

// Adds an error of the file at `path`; false.
bool Refuse(const CString& path, const CString& why, Problems& problems);

} // namespace designspec
