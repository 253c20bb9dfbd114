// The property exchange: one pass over an object's fields that stores them into a section of an
// XML document or loads them from it, as the exchange was opened.
//
// A section is one element. A value is an attribute of the section (compact mode on) or the text
// of a child element (compact mode off). Sections are light handles; the document lives as long
// as one of them does.
#pragma once

#include <memory>
#include <vector>

#include "base/Export.h"
#include "base/Problem.h"
#include "platform/mfc/String.h"

namespace pugi {
struct xml_node_struct;
}

class CXTPPropExchangeEnumerator;
namespace designspec {
class XmlDocument;
}

class AFX_EXT_CLASS CXTPPropExchange {
public:
    CXTPPropExchange() = default;

    bool IsStoring() const { return m_storing; }
    bool IsLoading() const { return !IsStoring(); }
    // False for a section that was asked for while loading and is not in the document. Values
    // exchanged with it stay as they are.
    bool IsSectionExists() const { return m_node != nullptr; }

    void EnableCompactMode(bool enable) { m_compact = enable; }
    bool IsCompactMode() const { return m_compact; }

    // The section at a path of steps joined by "/": NAME or NAME[@ATTRIBUTE="VALUE"], where VALUE
    // is any text without "] in it. What is missing is made when storing. The new section is in
    // the same mode as this one.
    CXTPPropExchange GetSection(const wchar_t* path) const;
    // The same, but nothing is ever made.
    CXTPPropExchange FindSection(const wchar_t* path) const;
    // A new child element, behind the others. Storing only.
    CXTPPropExchange AppendSection(const wchar_t* name) const;
    // A new, empty child element in place of all of that name. Storing only.
    CXTPPropExchange ReplaceSection(const wchar_t* name) const;
    // Takes the section out of its document.
    void RemoveSection();

    // Goes on to the next section of the same name beside this one; at the end it does not exist.
    void MoveToNext();
    // How many of them there are, this one included; 0 for one that does not exist.
    int CountFromHere() const;
    // All sections that stand at a path, in document order: where several are called as a step
    // says, the way leads through each of them.
    CXTPPropExchangeEnumerator GetEnumerator(const wchar_t* path) const;

    // Each returns false when loading and there is no such value, or no more than blanks where a
    // number should be; `value` then stays as it is. The text of a value is all of its text,
    // whatever comments stand in it.
    // A value that is there but cannot be read leaves `value` too, returns false, and is kept
    // among the document's problems.
    bool ExchangeText(std::wstring_view key, CString& value) const;
    bool ExchangeInt(std::wstring_view key, int& value) const;
    bool ExchangeDouble(std::wstring_view key, double& value) const;
    bool ExchangeBool(std::wstring_view key, int& value) const;

    // An attribute's text, whichever way the exchange goes; empty when it is missing.
    CString Attribute(const wchar_t* key) const;

    // The section's element name.
    CString Name() const;
    // 1-based line of the section in its file; 0 when it is not from a file.
    int Line() const;
    // How many sections and values of the document were found so far, and how many elements and
    // attributes at most this section holds, its own attributes included: when the one grew by the
    // other, nothing in it is unknown to whoever read it.
    size_t FoundCount() const;
    size_t NameCount() const;
    // The element itself; null when the section does not exist.
    pugi::xml_node_struct* Node() const { return m_node; }

    // The problems met so far with reading and writing the document, taken out of it: the first
    // thousand, and one that says so when there were more.
    designspec::Problems TakeProblems() const;

protected:
    friend class CXTPPropExchangeEnumerator;
    std::shared_ptr<designspec::XmlDocument> m_document;
    pugi::xml_node_struct* m_node = nullptr;
    bool m_storing = false;
    bool m_compact = false;

private:
    // That element of the same document, in the same mode.
    CXTPPropExchange Section(pugi::xml_node_struct* node) const
    {
        CXTPPropExchange section = *this;
        section.m_node = node;
        return section;
    }
    AFX_EXT_PRIVATE void WriteValue(std::wstring_view key, const std::string& text) const;
    template <class T>
    bool ReadNumber(std::wstring_view key, T& value, bool (*parse)(std::string_view, T&),
                    const wchar_t* kind) const;
    // Keeps a value that cannot be read among the problems, by its name and text; false.
    AFX_EXT_PRIVATE bool Refuse(std::wstring_view key, const char* text, const char* name,
                                const wchar_t* kind) const;
};

class AFX_EXT_CLASS CXTPPropExchangeEnumerator {
public:
    bool HasNext() const { return m_at < m_found.size(); }
    // The next section; one that does not exist at the end.
    CXTPPropExchange GetNext();

private:
    friend class CXTPPropExchange;
    CXTPPropExchange m_start; // the sections belong to its document and are in its mode
    std::vector<pugi::xml_node_struct*> m_found;
    size_t m_at = 0;
};

// The exchange of one value, as DoPropExchange writes it. The forms with a default give that to
// `value` when loading and the value is missing.
inline void PX_String(CXTPPropExchange* pPX, std::wstring_view key, CString& value)
{
    pPX->ExchangeText(key, value);
}
inline void PX_Int(CXTPPropExchange* pPX, std::wstring_view key, int& value)
{
    pPX->ExchangeInt(key, value);
}
inline void PX_Int(CXTPPropExchange* pPX, std::wstring_view key, int& value, int missing)
{
    if (!pPX->ExchangeInt(key, value)) value = missing;
}
inline void PX_Double(CXTPPropExchange* pPX, std::wstring_view key, double& value)
{
    pPX->ExchangeDouble(key, value);
}
inline void PX_Double(CXTPPropExchange* pPX, std::wstring_view key, double& value, double missing)
{
    if (!pPX->ExchangeDouble(key, value)) value = missing;
}
inline void PX_Bool(CXTPPropExchange* pPX, std::wstring_view key, int& value)
{
    pPX->ExchangeBool(key, value);
}
