#include "base/Profile.h"

#include <algorithm>
#include <optional>

#include "base/Encoding.h"
#include "base/File.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"

namespace designspec {

namespace {

constexpr size_t kSizeLimit = 1 << 20; // a settings file holds a handful of lines
constexpr std::wstring_view kNewline = L"\r\n";

// A settings file as its lines, each with its own line end, and the way it is encoded.
class ProfileText {
public:
    // An empty profile, as a new file begins.
    ProfileText() = default;

    bool Load(const std::wstring& file, Problems& problems)
    {
        std::string bytes;
        if (!ReadWholeFile(file, bytes, kSizeLimit, problems)) return false;
        if (bytes.empty()) return true; // as good as new
        m_encoding = EncodingByMark(bytes, m_markSize);
        const std::string_view content = std::string_view(bytes).substr(m_markSize);
        m_mark = bytes.substr(0, m_markSize);
        std::string utf8;
        bool decoded = DecodeText(content, m_encoding, utf8);
        if (!decoded && m_markSize == 0) {
            utf8.clear();
            m_encoding = TextEncoding::Gb18030;
            decoded = DecodeText(content, m_encoding, utf8);
        }
        // UTF-16 without its mark passes for UTF-8 full of NULs.
        const size_t nul = utf8.find('\0');
        if (nul != std::string::npos) utf8.resize(nul);
        if (!decoded || nul != std::string::npos) {
            AddProblem(problems, Severity::Error, file, LineAt(utf8), L"设置文件的编码无法识别");
            return false;
        }
        Split(ToWide(utf8));
        return true;
    }

    bool Save(const std::wstring& file, Problems& problems) const
    {
        std::wstring text;
        for (const std::wstring& line : m_lines)
            text += line;
        std::string bytes;
        if (!EncodeText(ToUtf8(text), m_encoding, bytes)) {
            AddProblem(problems, Severity::Error, file, 0, L"设置文件的编码无法表示新的内容");
            return false;
        }
        return WriteWholeFile(file, m_mark + bytes, problems);
    }

    std::optional<std::wstring> Get(std::wstring_view section, std::wstring_view key) const
    {
        const Place place = Find(section, key);
        if (!place.keyFound) return std::nullopt;
        const std::wstring& line = m_lines[place.line];
        std::wstring value = Trim(std::wstring_view(line).substr(line.find(L'=') + 1));
        if (value.size() >= 2 && value.front() == value.back() &&
            (value.front() == L'"' || value.front() == L'\''))
            value = value.substr(1, value.size() - 2);
        return value;
    }

    void Set(std::wstring_view section, std::wstring_view key, std::wstring_view value)
    {
        const Place place = Find(section, key);
        if (place.keyFound) {
            std::wstring& line = m_lines[place.line];
            line = line.substr(0, line.find(L'=') + 1).append(value).append(LineEnd(line));
            return;
        }
        const std::wstring newline = Newline();
        if (place.line > 0 && LineEnd(m_lines[place.line - 1]).empty())
            m_lines[place.line - 1] += newline;
        const std::wstring line = Format(L"%s=%s", key, value) + newline;
        const auto at = m_lines.begin() + static_cast<std::ptrdiff_t>(place.line);
        if (place.sectionFound)
            m_lines.insert(at, line);
        else
            m_lines.insert(at, {Format(L"[%s]", section) + newline, line});
    }

private:
    struct Place {
        bool sectionFound = false;
        bool keyFound = false;
        size_t line = 0; // of the key, or where it would go: behind the section's last text
    };

    Place Find(std::wstring_view section, std::wstring_view key) const
    {
        Place place;
        bool inside = false;
        for (size_t i = 0; i < m_lines.size(); ++i) {
            const std::wstring line = Trim(m_lines[i]);
            if (line.starts_with(L'[')) {
                if (place.sectionFound) break;
                inside = EqualNoCase(Trim(std::wstring_view(line).substr(1, line.find(L']') - 1)),
                                     section);
                place.sectionFound = inside;
                if (inside) place.line = i + 1;
            } else if (inside && !line.empty()) {
                place.line = i + 1;
                const size_t equals = line.find(L'=');
                if (line.front() != L';' && line.front() != L'#' && equals != std::wstring::npos &&
                    EqualNoCase(Trim(std::wstring_view(line).substr(0, equals)), key)) {
                    place.line = i;
                    place.keyFound = true;
                    return place;
                }
            }
        }
        if (!place.sectionFound) place.line = m_lines.size();
        return place;
    }

    void Split(const std::wstring& text)
    {
        size_t start = 0;
        while (start < text.size()) {
            size_t end = text.find_first_of(L"\r\n", start);
            if (end == std::wstring::npos)
                end = text.size();
            else
                end += text.compare(end, 2, kNewline) == 0 ? 2U : 1U;
            m_lines.push_back(text.substr(start, end - start));
            start = end;
        }
    }

    // The line end of new lines: that of the file's first line.
    std::wstring Newline() const
    {
        const std::wstring first = m_lines.empty() ? std::wstring() : LineEnd(m_lines.front());
        return first.empty() ? std::wstring(kNewline) : first;
    }

    static std::wstring LineEnd(const std::wstring& line)
    {
        const size_t last = line.find_last_not_of(L"\r\n");
        return line.substr(last == std::wstring::npos ? 0 : last + 1);
    }

    static int LineAt(std::string_view textBefore)
    {
        return 1 + static_cast<int>(std::count(textBefore.begin(), textBefore.end(), '\n'));
    }

    TextEncoding m_encoding = TextEncoding::Utf16LE;
    size_t m_markSize = 2;
    std::string m_mark = "\xFF\xFE";
    std::vector<std::wstring> m_lines;
};

} // namespace

std::wstring GetPrivateProfileString(const wchar_t* section, const wchar_t* key,
                                     const wchar_t* missing, const std::wstring& file,
                                     Problems& problems)
{
    ProfileText profile;
    if (!PathFileExists(file, problems).value_or(false) || !profile.Load(file, problems))
        return missing;
    return profile.Get(section, key).value_or(missing);
}

bool WritePrivateProfileString(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                               const std::wstring& file, Problems& problems)
{
    if (std::wstring_view(value).find_first_of(L"\r\n") != std::wstring_view::npos) {
        AddProblem(problems, Severity::Error, file, 0, L"设置的内容不能含有换行");
        return false;
    }
    ProfileText profile;
    const auto there = PathFileExists(file, problems);
    if (!there || (*there && !profile.Load(file, problems))) return false;
    if (profile.Get(section, key) == value) return true;
    profile.Set(section, key, value);
    return profile.Save(file, problems);
}

} // namespace designspec
