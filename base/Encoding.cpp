#include "base/Encoding.h"

#include <utility>

#include "base/Conversion.h"
#include "base/NoCase.h"
#include "base/Text.h"

namespace designspec {

TextEncoding EncodingByMark(std::string_view bytes, size_t& markSize)
{
    using namespace std::string_view_literals;
    static constexpr std::pair<std::string_view, TextEncoding> kMarks[] = {
        {"\xEF\xBB\xBF"sv, TextEncoding::Utf8},
        {"\xFF\xFE"sv, TextEncoding::Utf16LE},
        {"\xFE\xFF"sv, TextEncoding::Utf16BE},
    };
    for (const auto& [mark, encoding] : kMarks) {
        if (bytes.starts_with(mark)) {
            markSize = mark.size();
            return encoding;
        }
    }
    markSize = 0;
    return TextEncoding::Utf8;
}

bool EncodingByName(std::string_view name, TextEncoding& encoding)
{
    static constexpr std::pair<std::wstring_view, TextEncoding> kNames[] = {
        {L"UTF-8", TextEncoding::Utf8},       {L"US-ASCII", TextEncoding::Utf8},
        {L"UTF-16", TextEncoding::Utf16LE},   {L"UTF-16LE", TextEncoding::Utf16LE},
        {L"UTF-16BE", TextEncoding::Utf16BE}, {L"GB2312", TextEncoding::Gb18030},
        {L"GBK", TextEncoding::Gb18030},      {L"GB18030", TextEncoding::Gb18030},
    };
    const std::wstring wanted = ToWide(name);
    for (const auto& [known, value] : kNames) {
        if (EqualNoCase(known, wanted)) {
            encoding = value;
            return true;
        }
    }
    return false;
}

bool DecodeText(std::string_view bytes, TextEncoding encoding, std::string& utf8)
{
    if (encoding != TextEncoding::Utf8) return ConvertToUtf8(encoding, bytes, utf8);
    size_t wrong = bytes.size();
    const bool valid = IsUtf8(bytes, wrong);
    utf8.append(bytes.substr(0, wrong));
    return valid;
}

bool EncodeText(std::string_view utf8, TextEncoding encoding, std::string& bytes)
{
    bytes.clear();
    return ConvertFromUtf8(encoding, utf8, bytes);
}

} // namespace designspec
