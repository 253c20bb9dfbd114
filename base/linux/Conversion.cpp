#include "base/Conversion.h"

#include <array>
#include <cerrno>

#include <iconv.h>

namespace designspec {

namespace {

const char* IconvName(TextEncoding encoding)
{
    switch (encoding) {
    case TextEncoding::Utf8:
        return "UTF-8";
    case TextEncoding::Utf16LE:
        return "UTF-16LE";
    case TextEncoding::Utf16BE:
        return "UTF-16BE";
    case TextEncoding::Gb18030:
        return "GB18030";
    }
    return "UTF-8";
}

// Appends `in` to `out`, converted; false at the first byte that cannot be.
bool Convert(const char* to, const char* from, std::string_view in, std::string& out)
{
    const iconv_t converter = iconv_open(to, from);
    // iconv's own way to say no. NOLINTNEXTLINE(performance-no-int-to-ptr)
    if (converter == reinterpret_cast<iconv_t>(-1)) return false;
    char* source = const_cast<char*>(in.data()); // iconv only reads it
    size_t left = in.size();
    bool done = false;
    for (;;) {
        std::array<char, 4096> buffer;
        char* target = buffer.data();
        size_t room = buffer.size();
        const size_t result = iconv(converter, &source, &left, &target, &room);
        out.append(buffer.data(), buffer.size() - room);
        if (result != static_cast<size_t>(-1)) {
            done = left == 0;
            break;
        }
        if (errno != E2BIG) break;
    }
    iconv_close(converter);
    return done;
}

} // namespace

bool ConvertToUtf8(TextEncoding from, std::string_view bytes, std::string& utf8)
{
    return Convert("UTF-8", IconvName(from), bytes, utf8);
}

bool ConvertFromUtf8(TextEncoding to, std::string_view utf8, std::string& bytes)
{
    return Convert(IconvName(to), "UTF-8", utf8, bytes);
}

} // namespace designspec
