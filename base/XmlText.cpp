#include "base/XmlText.h"

#include <utility>

#include <pugixml.hpp>

#include "base/Encoding.h"
#include "base/Format.h"
#include "base/Text.h"

namespace designspec {

namespace {

std::wstring CauseOf(pugi::xml_parse_status status)
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

constexpr size_t kPlainLimit = 1 << 20; // of a text that a tree is made of before it is checked

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
std::wstring DecodeXml(std::string_view bytes, std::string& utf8)
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
    return DecodeText(bytes.substr(markSize), encoding, utf8) ? std::wstring()
                                                              : L"内容不符合文件的编码";
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

bool IsBlankText(pugi::xml_node node)
{
    return node.type() == pugi::node_pcdata &&
           std::string_view(node.value()).find_first_not_of(" \t\r\n") == std::string_view::npos;
}

// Takes out the blanks between tags, but not those that stand between the parts of a text.
void DropBlanks(pugi::xml_node node)
{
    bool hasText = false;
    for (pugi::xml_node child : node.children()) {
        hasText = hasText || child.type() == pugi::node_cdata ||
                  (child.type() == pugi::node_pcdata && !IsBlankText(child));
        DropBlanks(child);
    }
    for (pugi::xml_node child = node.first_child(); child && !hasText;) {
        const pugi::xml_node next = child.next_sibling();
        if (IsBlankText(child)) node.remove_child(child);
        child = next;
    }
}

// What a tree takes for a text at most, in bytes: a node for each tag and for the text behind it,
// and an attribute for each sign of equality.
size_t TreeMemory(std::string_view source)
{
    constexpr size_t kTag = 128;
    constexpr size_t kAttribute = 40;
    size_t memory = source.size();
    for (char c : source)
        memory += (c == '<') * kTag + (c == '=') * kAttribute;
    return memory;
}

// A file's tree takes five or six times as much as the file. What tags alone can make of a text is
// let through up to a size that does no harm.
bool IsOutOfProportion(std::string_view source)
{
    constexpr size_t kFree = 64 << 20;
    constexpr size_t kTimes = 16;
    return source.size() > kPlainLimit && TreeMemory(source) > kFree + kTimes * source.size();
}

// Makes the tree of a text, or tells what is wrong with it.
std::optional<XmlFault> ParseXml(const std::string& source, pugi::xml_document& tree)
{
    if (ParsePlain(source, tree)) return std::nullopt;
    tree.reset();
    if (auto fault = CheckXml(source)) return fault;
    if (IsOutOfProportion(source))
        return XmlFault{XmlFault::kWholeText, L"标记过密,读取它需要的内存与文件大小不成比例"};
    // Only comments and CDATA sections part a text.
    const bool mayBeParted = source.find("<!") != std::string::npos;
    const auto result = MakeTree(source, tree, mayBeParted ? pugi::parse_ws_pcdata : 0);
    if (!result)
        return XmlFault{static_cast<size_t>(result.offset),
                        L"XML 格式错误: " + CauseOf(result.status)};
    const pugi::xml_node root = tree.document_element();
    for (pugi::xml_node node = root.next_sibling(); node; node = node.next_sibling())
        if (node.type() == pugi::node_element)
            return XmlFault{static_cast<size_t>(node.offset_debug()),
                            L"XML 格式错误: 有多个根元素"};
    if (mayBeParted) DropBlanks(tree);
    return std::nullopt;
}

} // namespace

std::optional<XmlFault> ReadXmlText(std::string_view bytes, std::string& source,
                                    pugi::xml_document& tree)
{
    source.clear();
    if (bytes.empty()) return XmlFault{XmlFault::kWholeText, L"文件是空的"};
    if (const std::wstring wrong = DecodeXml(bytes, source); !wrong.empty()) {
        const size_t end = source.size();
        if (source.empty()) source.assign(1, ' '); // wrong from the first byte: line 1
        return XmlFault{end, wrong};
    }
    return ParseXml(source, tree);
}

} // namespace designspec
