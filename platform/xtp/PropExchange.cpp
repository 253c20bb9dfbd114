#include "platform/xtp/PropExchange.h"

#include <cstring>
#include <utility>

#include <pugixml.hpp>

#include "base/CodePoint.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "base/XmlCheck.h"
#include "base/XmlPath.h"
#include "platform/xtp/XmlDocument.h"

using namespace designspec;

namespace {

constexpr size_t kQuoteLimit = 60; // characters of a wrong value that a problem quotes

// The start of a value, as a problem quotes it.
CString Quotable(const char* utf8)
{
    const CString text = ToWide(std::string_view(utf8).substr(0, kQuoteLimit * 4 + 4));
    const CString start(FirstCharacters<wchar_t>(text, kQuoteLimit));
    return start.size() == text.size() ? text : start + L"…";
}

// XML 1.0 has no place for most control characters, nor for what is no character at all.
std::string WithoutForbidden(std::wstring_view text)
{
    CString allowed;
    allowed.reserve(text.size());
    while (!text.empty()) {
        const char32_t c = TakeCodePoint(text);
        AppendCodePoint(IsXmlCharacter(c) ? c : U'\xFFFD', allowed);
    }
    return ToUtf8(allowed);
}

// Names are nearly always ASCII; those are compared without making a string.
inline bool SameName(const char* name, std::wstring_view key)
{
    size_t same = 0; // characters; a byte that is not ASCII is below 0, and no character is that
    while (same < key.size() && static_cast<signed char>(name[same]) == key[same])
        ++same;
    if (same == key.size()) return name[same] == 0;
    return key[same] >= 0x80 && ToUtf8(key) == name;
}

pugi::xml_node NextOfName(pugi::xml_node node)
{
    const char* const name = node.name();
    do
        node = node.next_sibling();
    while (node && std::strcmp(node.name(), name) != 0);
    return node;
}

// Behind the last child there is one without a name, as a text has none.
pugi::xml_node FindChild(pugi::xml_node parent, std::wstring_view key)
{
    for (pugi::xml_node child = parent.first_child();; child = child.next_sibling()) {
        const char* const name = child.name();
        if (SameName(name, key) || (*name == 0 && !child)) return child;
    }
}

// The text of a value that is in the document, and the name in front of it; both null for one that
// is not.
struct Stored {
    const char* text = nullptr;
    const char* name = nullptr;
};

Stored FindAttribute(pugi::xml_node node, std::wstring_view key)
{
    for (auto one = node.first_attribute();; one = one.next_attribute()) {
        const char* name = one.name();
        if (*name == 0) return {}; // behind the last one
        if (SameName(name, key)) return {one.value(), name};
    }
}

// No value at all, which is as good as a missing one.
bool IsBlankText(const char* text)
{
    return text[std::strspn(text, " \t\r\n")] == 0;
}

bool IsText(pugi::xml_node node)
{
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

// All the text of an element, which comments and CDATA sections part. Nearly always there is one
// part; more are put together in `joined`.
const char* TextOf(pugi::xml_node element, std::string& joined)
{
    const char* text = nullptr;
    for (pugi::xml_node part = element.first_child(); part; part = part.next_sibling()) {
        if (!IsText(part)) continue;
        if (text) {
            if (text != joined.c_str()) joined = text;
            joined += part.value();
        }
        text = text ? joined.c_str() : part.value();
    }
    return text ? text : "";
}

Stored FindValue(pugi::xml_node node, bool compact, std::wstring_view key, std::string& joined)
{
    if (compact) return FindAttribute(node, key);
    const pugi::xml_node child = FindChild(node, key);
    return child ? Stored{TextOf(child, joined), child.name()} : Stored{};
}

bool Matches(pugi::xml_node node, const PathStep& step)
{
    if (!SameName(node.name(), step.name)) return false;
    return step.attribute.empty() ||
           (node.attribute(ToUtf8(step.attribute).c_str()) &&
            WithoutForbidden(step.value) == node.attribute(ToUtf8(step.attribute).c_str()).value());
}

// Adds what stands at the end of the path, by whichever way it leads there.
void FindAll(pugi::xml_node node, std::wstring_view path,
             std::vector<pugi::xml_node_struct*>& found)
{
    if (path.empty()) {
        if (node) found.push_back(node.internal_object());
        return;
    }
    const PathStep step = TakeStep(path);
    if (step.name.empty()) return FindAll(node, path, found);
    for (pugi::xml_node child : node.children())
        if (Matches(child, step)) FindAll(child, path, found);
}

// An empty step, as before a "/" that a path begins with, stays where it is.
pugi::xml_node FindStep(pugi::xml_node parent, const PathStep& step)
{
    if (step.name.empty()) return parent;
    return step.attribute.empty()
               ? FindChild(parent, step.name)
               : parent.find_child_by_attribute(ToUtf8(step.name).c_str(),
                                                ToUtf8(step.attribute).c_str(),
                                                WithoutForbidden(step.value).c_str());
}

} // namespace

CXTPPropExchange CXTPPropExchange::GetSection(const wchar_t* path) const
{
    if (IsLoading()) return FindSection(path);
    pugi::xml_node node(m_node);
    for (std::wstring_view rest = path; node && !rest.empty();) {
        const PathStep step = TakeStep(rest);
        pugi::xml_node child = FindStep(node, step);
        if (!child) {
            child = node.append_child(ToUtf8(step.name).c_str());
            if (!step.attribute.empty())
                child.append_attribute(ToUtf8(step.attribute).c_str())
                    .set_value(WithoutForbidden(step.value).c_str());
        }
        node = child;
    }
    return Section(node.internal_object());
}

CXTPPropExchange CXTPPropExchange::FindSection(const wchar_t* path) const
{
    pugi::xml_node node(m_node);
    std::wstring_view rest = path;
    // Nearly every path is one plain name, and no element's name is more than that.
    if (const pugi::xml_node child = FindChild(node, rest); child && !rest.empty()) {
        ++m_document->found;
        return Section(child.internal_object());
    }
    while (node && !rest.empty())
        node = FindStep(node, TakeStep(rest));
    return Section(node.internal_object());
}

CXTPPropExchange CXTPPropExchange::AppendSection(const wchar_t* name) const
{
    pugi::xml_node child = pugi::xml_node(m_node).append_child(ToUtf8(name).c_str());
    return Section(child.internal_object());
}

CXTPPropExchange CXTPPropExchange::ReplaceSection(const wchar_t* name) const
{
    pugi::xml_node node(m_node);
    while (node.remove_child(ToUtf8(name).c_str())) {
    }
    return AppendSection(name);
}

void CXTPPropExchange::RemoveSection()
{
    pugi::xml_node node(m_node);
    node.parent().remove_child(node);
    m_node = nullptr;
}

CXTPPropExchangeEnumerator CXTPPropExchange::GetEnumerator(const wchar_t* path) const
{
    CXTPPropExchangeEnumerator enumerator;
    enumerator.m_start = *this;
    FindAll(pugi::xml_node(m_node), path, enumerator.m_found);
    return enumerator;
}

void CXTPPropExchange::MoveToNext()
{
    m_node = NextOfName(pugi::xml_node(m_node)).internal_object();
    if (m_node) ++m_document->found;
}

int CXTPPropExchange::CountFromHere() const
{
    int count = 0;
    for (pugi::xml_node node(m_node); node; node = NextOfName(node))
        ++count;
    return count;
}

CXTPPropExchange CXTPPropExchangeEnumerator::GetNext()
{
    if (!HasNext()) return m_start.Section(nullptr);
    ++m_start.m_document->found;
    return m_start.Section(m_found[m_at++]);
}

void CXTPPropExchange::WriteValue(std::wstring_view key, const std::string& text) const
{
    pugi::xml_node node(m_node);
    const std::string name = ToUtf8(key);
    if (m_compact) {
        pugi::xml_attribute attribute = node.attribute(name.c_str());
        if (!attribute) attribute = node.append_attribute(name.c_str());
        attribute.set_value(text.c_str());
        return;
    }
    pugi::xml_node child = node.child(name.c_str());
    if (!child) child = node.append_child(name.c_str());
    while (const pugi::xml_node part = child.find_child(IsText))
        child.remove_child(part);
    child.text().set(text.c_str());
}

template <class T>
bool CXTPPropExchange::ReadNumber(std::wstring_view key, T& value,
                                  bool (*parse)(std::string_view, T&), const wchar_t* kind) const
{
    if (!m_node) return false;
    const Stored stored = FindValue(pugi::xml_node(m_node), m_compact, key, m_document->joined);
    if (!stored.text) return false;
    ++m_document->found;
    return parse(stored.text, value) ||
           (!IsBlankText(stored.text) && Refuse(key, stored.text, stored.name, kind));
}

bool CXTPPropExchange::Refuse(std::wstring_view key, const char* text, const char* name,
                              const wchar_t* kind) const
{
    // The parser leaves names where they stand in its copy of the source.
    const pugi::xml_node node(m_node);
    m_document->AddProblem(node.offset_debug() + (name - node.name()),
                           Format(L"%s 的 %s 为“%s”,不是%s", ToWide(node.name()), CString(key),
                                  Quotable(text), CString(kind)));
    return false;
}

bool CXTPPropExchange::ExchangeText(std::wstring_view key, CString& value) const
{
    if (IsStoring()) {
        WriteValue(key, WithoutForbidden(value));
        return true;
    }
    if (!m_node) return false;
    const Stored stored = FindValue(pugi::xml_node(m_node), m_compact, key, m_document->joined);
    if (!stored.text) return false;
    ++m_document->found;
    value = ToWide(stored.text);
    return true;
}

bool CXTPPropExchange::ExchangeInt(std::wstring_view key, int& value) const
{
    if (IsLoading()) return ReadNumber(key, value, ParseInt, L"整数");
    WriteValue(key, std::to_string(value));
    return true;
}

bool CXTPPropExchange::ExchangeDouble(std::wstring_view key, double& value) const
{
    if (IsLoading()) return ReadNumber(key, value, ParseDouble, L"数");
    WriteValue(key, DoubleToText(value));
    return true;
}

bool CXTPPropExchange::ExchangeBool(std::wstring_view key, int& value) const
{
    if (IsLoading()) return ReadNumber(key, value, ParseBool, L"是非值(0 或 1)");
    WriteValue(key, value ? "1" : "0");
    return true;
}

CString CXTPPropExchange::Attribute(const wchar_t* key) const
{
    return ToWide(pugi::xml_node(m_node).attribute(ToUtf8(key).c_str()).value());
}

CString CXTPPropExchange::Name() const
{
    return ToWide(pugi::xml_node(m_node).name());
}

int CXTPPropExchange::Line() const
{
    return m_document ? m_document->LineAt(pugi::xml_node(m_node).offset_debug()) : 0;
}

size_t CXTPPropExchange::FoundCount() const
{
    return m_document ? m_document->found : 0;
}

size_t CXTPPropExchange::NameCount() const
{
    const pugi::xml_node node(m_node);
    const pugi::xml_node next = node.next_sibling();
    // An element's place is that of its name, behind the "<".
    return m_document->CountNames(node.offset_debug(), next ? next.offset_debug() - 1 : -1);
}

Problems CXTPPropExchange::TakeProblems() const
{
    return m_document ? m_document->TakeProblems() : Problems();
}
