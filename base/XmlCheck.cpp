#include "base/XmlCheck.h"

#include "base/CodePoint.h"
#include "base/Format.h"

#include <algorithm>
#include <charconv>

namespace designspec {

namespace {

std::uint8_t IsControl(char c)
{
    const auto byte = static_cast<std::uint8_t>(c);
    return (byte < 0x20) & (byte != '\t') & (byte != '\n') & (byte != '\r');
}

// A text that has any is the exception, so there is no branch: the processor then takes many bytes
// at a step.
bool HasControls(std::string_view xml)
{
    std::uint8_t any = 0;
    for (char c : xml)
        any = static_cast<std::uint8_t>(any | IsControl(c));
    return any != 0;
}

// One walk over the markup, from "<" to "<".
class Walk {
public:
    explicit Walk(std::string_view xml)
        : m_xml(xml), m_hasReferences(xml.find('&') != std::string_view::npos)
    {
    }

    std::optional<XmlFault> Run()
    {
        CheckControls();
        while (m_at < m_xml.size() && !m_fault)
            TakePiece();
        return m_fault;
    }

private:
    void Fault(size_t offset, const std::wstring& cause)
    {
        if (!m_fault || offset < m_fault->offset) m_fault = XmlFault{offset, cause};
    }

    // Bare control characters.
    void CheckControls()
    {
        if (!HasControls(m_xml)) return;
        const auto found = std::find_if(m_xml.begin(), m_xml.end(), IsControl);
        const auto at = static_cast<size_t>(found - m_xml.begin());
        Fault(at, *found ? L"含有 XML 不允许的控制字符" : L"含有空字符(NUL)");
    }

    void TakePiece()
    {
        const std::string_view rest = m_xml.substr(m_at);
        if (rest.front() != '<')
            TakeText();
        else if (rest.starts_with("<!--"))
            SkipBehind("-->", 4);
        else if (rest.starts_with("<![CDATA["))
            SkipBehind("]]>", 9);
        else if (rest.starts_with("<?"))
            SkipBehind("?>", 2);
        else if (rest.starts_with("<!DOCTYPE"))
            Fault(m_at, L"不允许文档类型声明(DOCTYPE)");
        else
            TakeTag();
    }

    void SkipBehind(std::string_view end, size_t from)
    {
        const size_t found = m_xml.find(end, m_at + from);
        m_at = found == std::string_view::npos ? m_xml.size() : found + end.size();
    }

    void TakeText()
    {
        const size_t end = std::min(m_xml.find('<', m_at), m_xml.size());
        if (m_depth == 0) {
            const size_t text = m_xml.find_first_not_of(" \t\r\n", m_at);
            if (text < end) Fault(text, L"XML 格式错误: 根元素之外有文字");
        }
        CheckReferences(m_at, end);
        m_at = end;
    }

    void TakeTag()
    {
        const size_t end = TagEnd();
        const bool closing = m_xml.substr(m_at).starts_with("</");
        if (closing)
            --m_depth;
        else if (m_depth == kXmlDepthLimit)
            Fault(m_at, Format(L"元素嵌套超过 %d 层", kXmlDepthLimit));
        else if (m_xml[end - 1] != '/')
            ++m_depth;
        CheckReferences(m_at, end);
        m_at = std::min(end + 1, m_xml.size());
    }

    // Where the tag's ">" is; one in quotes does not count. Tags and values are short: a step for
    // each character is quicker here than a search for the next of interest.
    size_t TagEnd() const
    {
        for (size_t at = m_at; at < m_xml.size(); ++at) {
            const char c = m_xml[at];
            if (c > '>') continue; // letters, for the most part
            if (c == '>') return at;
            if (c != '"' && c != '\'') continue;
            do
                ++at;
            while (at < m_xml.size() && m_xml[at] != c);
        }
        return m_xml.size();
    }

    void CheckReferences(size_t begin, size_t end)
    {
        if (!m_hasReferences) return;
        const std::string_view text = m_xml.substr(begin, end - begin);
        for (size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1))
            if (!IsReference(text.substr(at + 1)))
                return Fault(begin + at, L"XML 格式错误: “&”之后不是允许的字符引用");
    }

    // What stands behind an "&".
    static bool IsReference(std::string_view text)
    {
        const size_t end = text.substr(0, 12).find(';');
        if (end == std::string_view::npos) return false;
        const std::string_view name = text.substr(0, end);
        if (!name.starts_with('#'))
            return name == "amp" || name == "lt" || name == "gt" || name == "quot" ||
                   name == "apos";
        const bool hex = name.starts_with("#x");
        const std::string_view digits = name.substr(hex ? 2 : 1);
        std::uint32_t code = 0;
        const auto result =
            std::from_chars(digits.data(), digits.data() + digits.size(), code, hex ? 16 : 10);
        return result.ec == std::errc() && result.ptr == digits.data() + digits.size() &&
               IsXmlCharacter(code);
    }

    std::string_view m_xml;
    bool m_hasReferences;
    size_t m_at = 0;
    int m_depth = 0;
    std::optional<XmlFault> m_fault;
};

} // namespace

bool HasMarkupToCheck(std::string_view xml)
{
    constexpr size_t kNone = std::string_view::npos;
    return xml.find('&') != kNone || xml.find('!') != kNone || HasControls(xml);
}

bool IsXmlCharacter(char32_t c)
{
    if (c < 0x20) return c == U'\t' || c == U'\n' || c == U'\r';
    const bool surrogate = c >= 0xD800 && c <= 0xDFFF;
    return !surrogate && c != 0xFFFE && c != 0xFFFF && c <= 0x10FFFF;
}

bool IsXmlText(std::wstring_view text)
{
    while (!text.empty())
        if (!IsXmlCharacter(TakeCodePoint(text))) return false;
    return true;
}

std::optional<XmlFault> CheckXml(std::string_view xml)
{
    return Walk(xml).Run();
}

} // namespace designspec
