#include "platform/xtp/PropExchange.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <pugixml.hpp>

#include "base/Encoding.h"
#include "base/File.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "base/XmlCheck.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

CString CauseOf(pugi::xml_parse_status status)
{
    switch (status) {
    case pugi::status_out_of_memory:
        return L"内存不足";
    case pugi::status_unrecognized_tag:
        return L"无法识别的标记";
    case pugi::status_bad_pi:
        return L"声明或处理指令没有写完";
    case pugi::status_bad_comment:
        return L"注释没有写完";
    case pugi::status_bad_cdata:
        return L"CDATA 段没有写完";
    case pugi::status_bad_doctype:
        return L"文档类型声明有错";
    case pugi::status_bad_pcdata:
        return L"文字有错";
    case pugi::status_bad_start_element:
        return L"开始标记有错";
    case pugi::status_bad_attribute:
        return L"属性有错";
    case pugi::status_bad_end_element:
        return L"结束标记有错";
    case pugi::status_end_element_mismatch:
        return L"开始标记与结束标记不配对";
    case pugi::status_no_document_element:
        return L"没有根元素";
    default:
        return L"无法解析"; // such as what only reading from a file could give
    }
}

constexpr size_t kSizeLimit = 32 << 20;
constexpr size_t kPlainLimit = 1 << 20; // of a text that a tree is made of before it is checked
constexpr size_t kProblemLimit = 1000;  // nobody reads more; a hostile file may hold millions
constexpr size_t kQuoteLimit = 60;      // characters of a wrong value that a problem quotes

// The start of a value, as a problem quotes it.
CString Quotable(const char* utf8)
{
    CString text = ToWide(std::string_view(utf8).substr(0, kQuoteLimit * 4 + 4));
    if (text.size() > kQuoteLimit) text.replace(kQuoteLimit, CString::npos, L"…");
    return text;
}

} // namespace

// A document with the text it was read from, which is only kept to count lines in.
struct XmlDocument {
    pugi::xml_document tree;
    std::vector<ExchangeProblem> problems;
    size_t found = 0; // sections and values, see CXTPPropExchange::FoundCount

    void SetSource(std::string text)
    {
        m_source = std::move(text);
        m_place = 0;
        m_line = 1;
    }

    // 1-based; 0 for what is not from the source. Counts from the place asked for last: questions
    // come roughly in the document's order, and there may be many.
    int LineAt(std::ptrdiff_t offset)
    {
        if (offset < 0 || m_source.empty()) return 0;
        const size_t place = std::min(static_cast<size_t>(offset), m_source.size());
        const auto [from, to] = std::minmax(place, m_place);
        const auto between =
            static_cast<int>(std::count(m_source.data() + from, m_source.data() + to, '\n'));
        m_line += place >= m_place ? between : -between;
        m_place = place;
        return m_line;
    }

    // The elements and attributes that begin behind one place and before another, or the end for
    // -1: at least as many as there are, for signs in texts count as well. Much quicker than a walk
    // over the tree, and nearly always exact.
    size_t CountNames(std::ptrdiff_t begin, std::ptrdiff_t end) const
    {
        if (begin < 0 || m_source.empty()) return ~size_t{0};
        const char* at = m_source.data() + begin;
        const char* const last =
            m_source.data() + static_cast<size_t>(end < 0 ? std::ssize(m_source) : end);
        constexpr std::ptrdiff_t kBlock = 128; // what one byte can count
        size_t count = 0;
        for (; last - at >= kBlock; at += kBlock) {
            std::uint8_t inBlock = 0;
            for (std::ptrdiff_t i = 0; i < kBlock; ++i)
                inBlock = static_cast<std::uint8_t>(inBlock + BeginsName(at + i));
            count += inBlock;
        }
        for (; at < last; ++at)
            count += BeginsName(at);
        return count;
    }

    void AddProblem(std::ptrdiff_t offset, const char* element, std::wstring_view key,
                    const char* value, const wchar_t* kind)
    {
        if (problems.size() == kProblemLimit) problems.push_back({0, L"其余的问题不再列出"});
        if (problems.size() > kProblemLimit) return;
        problems.push_back({LineAt(offset), Format(L"%s 的 %s 为“%s”,不是%s", ToWide(element),
                                                   CString(key), Quotable(value), kind)});
    }

private:
    static bool BeginsName(const char* at)
    {
        return (at[0] == '=') | ((at[0] == '<') & (at[1] != '/'));
    }

    std::string m_source;
    size_t m_place = 0;
    int m_line = 1;
};

namespace {

// One step of a section path.
struct PathStep {
    std::wstring_view name;
    std::wstring_view attribute; // empty: any element of that name
    std::wstring_view value;
};

// XML 1.0 has no place for most control characters, nor for what is no character at all.
std::string WithoutForbidden(std::wstring_view text)
{
    CString allowed(text);
    for (wchar_t& c : allowed)
        if (!IsXmlCharacter(static_cast<char32_t>(c))) c = 0xFFFD;
    return ToUtf8(allowed);
}

// Takes the first step off `path`: NAME or NAME[@ATTRIBUTE="VALUE"]. What cannot be read as steps
// is dropped.
PathStep TakeStep(std::wstring_view& path)
{
    PathStep step;
    size_t nameEnd = 0;
    while (nameEnd < path.size() && path[nameEnd] != L'/' && path[nameEnd] != L'[')
        ++nameEnd;
    step.name = path.substr(0, nameEnd);
    path.remove_prefix(nameEnd);
    if (path.starts_with(L"[@")) {
        const size_t equals = path.find(L"=\"");
        const size_t end =
            equals == std::wstring_view::npos ? equals : path.find(L"\"]", equals + 2);
        if (end == std::wstring_view::npos) {
            path = {};
            return step;
        }
        step.attribute = path.substr(2, equals - 2);
        step.value = path.substr(equals + 2, end - equals - 2);
        path.remove_prefix(end + 2);
    } else if (path.starts_with(L'[')) {
        path = {};
    }
    if (path.starts_with(L'/')) path.remove_prefix(1);
    return step;
}

// Names are nearly always ASCII; those are compared without making a string.
bool SameName(const char* name, std::wstring_view key)
{
    size_t same = 0; // characters; a byte that is not ASCII is below 0, and no character is that
    while (same < key.size() && static_cast<signed char>(name[same]) == key[same])
        ++same;
    if (same == key.size()) return name[same] == 0;
    return key[same] >= 0x80 && ToUtf8(key) == name;
}

pugi::xml_node FindChild(pugi::xml_node parent, std::wstring_view key)
{
    pugi::xml_node child = parent.first_child();
    while (child && !SameName(child.name(), key))
        child = child.next_sibling();
    return child;
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

Stored FindValue(pugi::xml_node node, bool compact, std::wstring_view key)
{
    if (compact) return FindAttribute(node, key);
    const pugi::xml_node child = FindChild(node, key);
    return child ? Stored{child.child_value(), child.name()} : Stored{};
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

// The encoding that the XML declaration names; nothing without one.
std::optional<std::string_view> DeclaredEncoding(std::string_view text)
{
    if (!text.starts_with("<?xml") || text.find_first_of(" \t\r\n") != 5) return std::nullopt;
    const std::string_view declaration = text.substr(0, text.find("?>"));
    size_t at = declaration.find("encoding");
    if (at == std::string_view::npos) return std::nullopt;
    at = declaration.find_first_of("\"'", at);
    if (at == std::string_view::npos) return std::nullopt;
    const size_t end = declaration.find(declaration[at], at + 1);
    if (end == std::string_view::npos) return std::nullopt;
    return declaration.substr(at + 1, end - at - 1);
}

// The file's text as UTF-8: by its byte-order mark, else by its declaration, else UTF-8. Returns
// what is wrong, or an empty text; `utf8` then ends where it went wrong.
CString DecodeXml(std::string_view bytes, std::string& utf8)
{
    using namespace std::string_view_literals;
    size_t markSize = 0;
    TextEncoding encoding = EncodingByMark(bytes, markSize);
    if (markSize == 0) {
        if (bytes.starts_with("<\0"sv)) {
            encoding = TextEncoding::Utf16LE;
        } else if (bytes.starts_with("\0<"sv)) {
            encoding = TextEncoding::Utf16BE;
        } else if (const auto name = DeclaredEncoding(bytes)) {
            if (!EncodingByName(*name, encoding))
                return Format(L"声明的编码“%s”不受支持", ToWide(*name));
            if (encoding == TextEncoding::Utf16LE || encoding == TextEncoding::Utf16BE)
                return Format(L"内容不是声明的编码“%s”", ToWide(*name));
        }
    }
    return DecodeText(bytes.substr(markSize), encoding, utf8) ? CString() : L"内容不符合文件的编码";
}

// Stops the walk over a tree that reaches the allowed depth.
struct DepthCheck : pugi::xml_tree_walker {
    bool for_each(pugi::xml_node&) override { return depth() < kXmlDepthLimit; }
};

// True for a tree that does not even reach the allowed depth, with one element at the top and no
// text beside it.
bool IsPlainTree(pugi::xml_document& tree)
{
    int roots = 0;
    for (pugi::xml_node top = tree.first_child(); top; top = top.next_sibling()) {
        if (top.type() == pugi::node_element) ++roots;
        if (top.type() == pugi::node_pcdata) return false;
    }
    DepthCheck check;
    return roots == 1 && tree.traverse(check);
}

pugi::xml_parse_result MakeTree(const std::string& source, pugi::xml_document& tree,
                                unsigned int more = 0)
{
    return tree.load_buffer(source.data(), source.size(),
                            pugi::parse_default | pugi::parse_comments | pugi::parse_pi | more,
                            pugi::encoding_utf8);
}

// Nearly all texts are right and need no look at each tag: the tree tells as much. True for one
// that ParseXml would make the same tree of. Small texts only: no harm in what their trees take.
bool ParsePlain(const std::string& source, pugi::xml_document& tree)
{
    // Text beside the root is dropped, other than from a fragment.
    return source.size() <= kPlainLimit && !HasMarkupToCheck(source) &&
           MakeTree(source, tree, pugi::parse_fragment) && IsPlainTree(tree);
}

// Makes the tree of a text, or tells what is wrong with it.
std::optional<XmlFault> ParseXml(const std::string& source, pugi::xml_document& tree)
{
    if (ParsePlain(source, tree)) return std::nullopt;
    tree.reset();
    if (auto fault = CheckXml(source)) return fault;
    const auto result = MakeTree(source, tree);
    if (!result)
        return XmlFault{static_cast<size_t>(result.offset),
                        L"XML 格式错误: " + CauseOf(result.status)};
    const pugi::xml_node root = tree.document_element();
    for (pugi::xml_node node = root.next_sibling(); node; node = node.next_sibling())
        if (node.type() == pugi::node_element)
            return XmlFault{static_cast<size_t>(node.offset_debug()),
                            L"XML 格式错误: 有多个根元素"};
    return std::nullopt;
}

// A reader of XML takes a carriage return in an element's text for a line end of the file and
// drops it; as a character reference it stays.
std::string WithReturnsKept(std::string xml)
{
    for (size_t at = 0; (at = xml.find('\r', at)) != std::string::npos;)
        xml.replace(at, 1, "&#13;");
    return xml;
}

struct StringWriter : pugi::xml_writer {
    std::string bytes;
    void write(const void* data, size_t size) override
    {
        bytes.append(static_cast<const char*>(data), size);
    }
};

} // namespace

bool IsXmlText(std::wstring_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](wchar_t c) { return IsXmlCharacter(static_cast<char32_t>(c)); });
}

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
    enumerator.m_next = FindSection(path);
    return enumerator;
}

void CXTPPropExchange::MoveToNext()
{
    const pugi::xml_node node(m_node);
    m_node = node.next_sibling(node.name()).internal_object();
    if (m_node) ++m_document->found;
}

CXTPPropExchange CXTPPropExchangeEnumerator::GetNext()
{
    CXTPPropExchange current = m_next;
    m_next.MoveToNext();
    return current;
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
    child.text().set(text.c_str());
}

template <class T>
bool CXTPPropExchange::ReadNumber(std::wstring_view key, T& value,
                                  bool (*parse)(std::string_view, T&), const wchar_t* kind) const
{
    const Stored stored = FindValue(pugi::xml_node(m_node), m_compact, key);
    if (!stored.text) return false;
    ++m_document->found;
    return parse(stored.text, value) || Refuse(key, stored.text, stored.name, kind);
}

bool CXTPPropExchange::Refuse(std::wstring_view key, const char* text, const char* name,
                              const wchar_t* kind) const
{
    // The parser leaves names where they stand in its copy of the source.
    const pugi::xml_node node(m_node);
    m_document->AddProblem(node.offset_debug() + (name - node.name()), node.name(), key, text,
                           kind);
    return false;
}

bool CXTPPropExchange::ExchangeText(std::wstring_view key, CString& value) const
{
    if (IsStoring()) {
        WriteValue(key, WithoutForbidden(value));
        return true;
    }
    const Stored stored = FindValue(pugi::xml_node(m_node), m_compact, key);
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

std::vector<ExchangeProblem> CXTPPropExchange::TakeProblems() const
{
    return m_document ? std::exchange(m_document->problems, {}) : std::vector<ExchangeProblem>();
}

CXTPPropExchangeXMLNode::CXTPPropExchangeXMLNode(bool loading, const wchar_t* rootName)
    : m_rootName(rootName)
{
    m_document = std::make_shared<XmlDocument>();
    m_storing = !loading;
    m_node = m_document->tree.append_child(ToUtf8(rootName).c_str()).internal_object();
}

bool CXTPPropExchangeXMLNode::LoadFromFile(const wchar_t* path)
{
    std::string bytes;
    return ReadWholeFile(path, bytes, kSizeLimit) && LoadFromBytes(bytes, path);
}

bool CXTPPropExchangeXMLNode::LoadFromBytes(std::string_view bytes, const CString& name)
{
    XmlDocument& document = *m_document;
    document.SetSource({});
    document.problems.clear();
    document.tree.reset();
    m_node = nullptr;
    const auto fail = [&](std::ptrdiff_t offset, const CString& cause) {
        TraceFile(TraceLevel::Error, name, document.LineAt(offset), cause);
        document.tree.reset();
        m_node = nullptr;
        return false;
    };
    if (bytes.empty()) return fail(-1, L"文件是空的");
    std::string source;
    const CString wrong = DecodeXml(bytes, source);
    if (!wrong.empty()) {
        const auto end = static_cast<std::ptrdiff_t>(source.size());
        if (source.empty()) source.assign(1, ' '); // wrong from the first byte: line 1
        document.SetSource(std::move(source));
        return fail(end, wrong);
    }
    const auto fault = ParseXml(source, document.tree);
    document.SetSource(std::move(source));
    if (fault) return fail(static_cast<std::ptrdiff_t>(fault->offset), fault->cause);
    const pugi::xml_node root = document.tree.document_element();
    if (ToWide(root.name()) != m_rootName)
        return fail(root.offset_debug(),
                    Format(L"根元素为 %s,应为 %s", ToWide(root.name()), m_rootName));
    m_node = root.internal_object();
    return true;
}

std::string CXTPPropExchangeXMLNode::SaveToBytes() const
{
    pugi::xml_document& tree = m_document->tree;
    pugi::xml_node declaration = tree.prepend_child(pugi::node_declaration);
    declaration.append_attribute("version").set_value("1.0");
    declaration.append_attribute("encoding").set_value("UTF-8");
    StringWriter writer;
    tree.save(writer, "  ", pugi::format_indent, pugi::encoding_utf8);
    tree.remove_child(declaration);
    return WithReturnsKept(std::move(writer.bytes));
}

bool CXTPPropExchangeXMLNode::SaveToFile(const wchar_t* path) const
{
    return WriteWholeFile(path, SaveToBytes());
}
