#include "roads/XmlEvents.h"

#include <exception>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <memory>

#include "base/FileSystem.h"
#include "base/Text.h"
#include "roads/XmlEncodings.h"

using namespace designspec;

namespace roadcheck {

const std::string* XmlAttributes::Find(std::string_view name) const
{
    for (const auto& [key, value] : m_values)
        if (key == name) return &value;
    return nullptr;
}

namespace {

std::string_view View(const xmlChar* text)
{
    return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

// One file on its way through the parser.
class Reading {
public:
    Reading(const std::wstring& path, XmlHandler& handler, Problems& problems,
            const std::atomic<bool>* cancel)
        : m_path(path), m_handler(handler), m_problems(problems), m_cancel(cancel)
    {
    }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

    bool Run();

private:
    struct Open {
        std::string name;
        std::string text;
    };

    bool OpenFile();
    // Tells the first failure; nothing more is handed over.
    void Tell(int line, const std::wstring& text);
    // The same, and ends the parsing: not while the parser asks for bytes.
    void Fail(int line, const std::wstring& text);
    // What goes through the parser's C code comes out again behind it.
    template <class Work> void Guarded(Work work);

    void OnStart(std::string_view name, int count, const xmlChar** attributes);
    void OnEnd();
    void OnText(const xmlChar* text, int length);
    int Read(char* buffer, int length);

    static Reading& Of(void* context) { return *static_cast<Reading*>(context); }
    static xmlSAXHandler Callbacks();

    const std::wstring& m_path;
    XmlHandler& m_handler;
    Problems& m_problems;
    const std::atomic<bool>* m_cancel;
    FileSystem::Input m_file;
    xmlParserCtxtPtr m_parser = nullptr;
    XmlAttributes m_attributes;
    std::vector<Open> m_open; // the wanted elements around the place
    size_t m_unwanted = 0;    // the others in them
    bool m_failed = false;
    std::exception_ptr m_exception;
};

void Reading::Tell(int line, const std::wstring& text)
{
    if (!m_failed) AddProblem(m_problems, Severity::Error, m_path, line, text);
    m_failed = true;
}

void Reading::Fail(int line, const std::wstring& text)
{
    Tell(line, text);
    xmlStopParser(m_parser);
}

template <class Work> void Reading::Guarded(Work work)
{
    if (m_failed || m_exception) return;
    try {
        work();
    } catch (...) {
        m_exception = std::current_exception();
        xmlStopParser(m_parser);
    }
}

void Reading::OnStart(std::string_view name, int count, const xmlChar** attributes)
{
    if (m_unwanted > 0 || !m_handler.Wants(name)) {
        ++m_unwanted;
        return;
    }
    // Each attribute is five pointers: name, prefix, namespace, begin and end of its value.
    m_attributes.Clear();
    for (int i = 0; i < count; ++i, attributes += 5) {
        const char* const begin = reinterpret_cast<const char*>(attributes[3]);
        const char* const end = reinterpret_cast<const char*>(attributes[4]);
        m_attributes.Add(View(attributes[0]), {begin, static_cast<size_t>(end - begin)});
    }
    m_open.push_back({std::string(name), {}});
    m_handler.Start(name, m_attributes, xmlSAX2GetLineNumber(m_parser));
}

void Reading::OnEnd()
{
    if (m_unwanted > 0) {
        --m_unwanted;
        return;
    }
    const Open open = std::move(m_open.back());
    m_open.pop_back();
    m_handler.End(open.name, open.text);
}

void Reading::OnText(const xmlChar* text, int length)
{
    if (m_unwanted > 0 || m_open.empty()) return;
    std::string& all = m_open.back().text;
    const size_t room = XmlHandler::kMostText - all.size();
    all.append(reinterpret_cast<const char*>(text), std::min(room, static_cast<size_t>(length)));
}

int Reading::Read(char* buffer, int length)
{
    if (m_failed || m_exception) return 0;
    if (m_cancel && *m_cancel) {
        Tell(0, L"已取消");
        return 0;
    }
    size_t count = 0;
    if (const auto error = m_file.Read(buffer, static_cast<size_t>(length), count)) {
        Tell(0, L"无法读取: " + FileSystem::TextOf(error));
        return 0;
    }
    return static_cast<int>(count);
}

xmlSAXHandler Reading::Callbacks()
{
    xmlSAXHandler sax = {};
    sax.initialized = XML_SAX2_MAGIC;
    sax.startElementNs = [](void* context, const xmlChar* name, const xmlChar*, const xmlChar*, int,
                            const xmlChar**, int count, int, const xmlChar** attributes) {
        Of(context).Guarded([&] { Of(context).OnStart(View(name), count, attributes); });
    };
    sax.endElementNs = [](void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
        Of(context).Guarded([&] { Of(context).OnEnd(); });
    };
    sax.characters = sax.ignorableWhitespace =
        sax.cdataBlock = [](void* context, const xmlChar* text, int length) {
            Of(context).Guarded([&] { Of(context).OnText(text, length); });
        };
    sax.internalSubset = [](void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
        Of(context).Fail(xmlSAX2GetLineNumber(Of(context).m_parser),
                         L"文件含有文档类型声明(DTD),不予读取");
    };
    sax.serror = [](void* context, xmlErrorPtr error) {
        if (error->level < XML_ERR_ERROR) return;
        Of(context).Tell(error->line,
                         L"XML 有误: " + Trim(ToWide(error->message ? error->message : "")));
    };
    return sax;
}

bool Reading::OpenFile()
{
    using Kind = FileSystem::Input::Kind;
    if (m_path.empty()) return Tell(0, L"无法打开: 不存在"), false;
    if (const auto error = m_file.Open(m_path))
        return Tell(0, L"无法打开: " + FileSystem::TextOf(error)), false;
    // What is no plain file, such as a pipe, may never end or never begin.
    if (m_file.What() == Kind::File) return true;
    Tell(0, m_file.What() == Kind::Folder ? L"无法打开: 这是文件夹" : L"无法打开: 不是普通文件");
    return false;
}

bool Reading::Run()
{
    if (!OpenFile()) return false;
    AddXmlEncodings();
    xmlSAXHandler sax = Callbacks();
    m_parser = xmlCreateIOParserCtxt(
        &sax, this,
        [](void* context, char* buffer, int length) { return Of(context).Read(buffer, length); },
        nullptr, this, XML_CHAR_ENCODING_NONE);
    if (!m_parser) throw std::bad_alloc();
    const std::unique_ptr<xmlParserCtxt, void (*)(xmlParserCtxtPtr)> owner(m_parser, [](auto* one) {
        if (one->myDoc) xmlFreeDoc(one->myDoc);
        xmlFreeParserCtxt(one);
    });
    // Without XML_PARSE_NOENT "&amp;" in an attribute would come as "&#38;". Entities of the file's
    // own need a document type, and that ends the reading.
    xmlCtxtUseOptions(m_parser, XML_PARSE_NONET | XML_PARSE_NOWARNING | XML_PARSE_NOENT);
    xmlParseDocument(m_parser);
    const bool wellFormed = m_parser->wellFormed != 0;
    if (m_exception) std::rethrow_exception(m_exception);
    if (!wellFormed) Tell(m_parser->lastError.line, L"XML 有误");
    return !m_failed;
}

} // namespace

bool ReadXmlEvents(const std::wstring& path, XmlHandler& handler, Problems& problems,
                   const std::atomic<bool>* cancel)
{
    return Reading(path, handler, problems, cancel).Run();
}

} // namespace roadcheck
