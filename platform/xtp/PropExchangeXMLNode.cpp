#include "platform/xtp/PropExchangeXMLNode.h"

#include <utility>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "base/XmlText.h"
#include "platform/xtp/XmlDocument.h"

using namespace designspec;

namespace {

// A reader of XML takes a carriage return in an element's text for a line end of the file and
// drops it; as a character reference it stays.
std::string WithReturnsKept(std::string xml)
{
    size_t at = xml.find('\r');
    if (at == std::string::npos) return xml;
    std::string kept;
    size_t from = 0;
    for (; at != std::string::npos; at = xml.find('\r', from)) {
        kept.append(xml, from, at - from).append("&#13;");
        from = at + 1;
    }
    return kept.append(xml, from);
}

struct StringWriter : pugi::xml_writer {
    std::string bytes;
    void write(const void* data, size_t size) override
    {
        bytes.append(static_cast<const char*>(data), size);
    }
};

} // namespace

CXTPPropExchangeXMLNode::CXTPPropExchangeXMLNode(bool loading, const wchar_t* rootName)
    : m_rootName(rootName)
{
    m_document = std::make_shared<XmlDocument>();
    m_storing = !loading;
    m_node = m_document->tree.append_child(ToUtf8(rootName).c_str()).internal_object();
}

bool CXTPPropExchangeXMLNode::LoadFromFile(const wchar_t* path)
{
    m_document->SetSource(path, {});
    Drop();
    std::string bytes;
    return ReadWholeFile(path, bytes, m_document->AllProblems()) && LoadFromBytes(bytes, path);
}

bool CXTPPropExchangeXMLNode::OpenFile(const wchar_t* path)
{
    const auto there = PathFileExists(path, m_document->AllProblems());
    if (!there) Drop();
    return there && (!*there || LoadFromFile(path));
}

void CXTPPropExchangeXMLNode::Drop()
{
    m_document->tree.reset();
    m_node = nullptr;
}

bool CXTPPropExchangeXMLNode::LoadFromBytes(std::string_view bytes, const CString& name)
{
    Drop();
    XmlDocument& document = *m_document;
    std::string source;
    const auto fault = ReadXmlText(bytes, source, document.tree);
    document.SetSource(name, std::move(source));
    if (fault) {
        document.AddProblem(static_cast<std::ptrdiff_t>(fault->offset), fault->cause);
        Drop();
        return false;
    }
    const pugi::xml_node root = document.tree.document_element();
    if (ToWide(root.name()) != m_rootName) {
        document.AddProblem(root.offset_debug(),
                            Format(L"根元素为 %s,应为 %s", ToWide(root.name()), m_rootName));
        Drop();
        return false;
    }
    m_node = root.internal_object();
    return true;
}

size_t CXTPPropExchangeXMLNode::SourceSize() const
{
    return m_document->SourceSize();
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
    return WriteWholeFile(path, SaveToBytes(), m_document->AllProblems());
}
