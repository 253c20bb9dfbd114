#include "roads/XmlEncodings.h"

#include <algorithm>
#include <mutex>
#include <string_view>

#include <libxml/encoding.h>
#include <utf8proc.h>

#include "base/windows/Gb18030.h"

namespace roadcheck {

namespace {

// The parser's way to have bytes decoded: `outSize` is the room for UTF-8 and then what was
// written, `inSize` what there is and then what was read. -2 for what is no character.
int DecodeGb18030(unsigned char* out, int* outSize, const unsigned char* in, int* inSize)
{
    std::string_view left(reinterpret_cast<const char*>(in), static_cast<size_t>(*inSize));
    int written = 0;
    int length = 0;
    while (!left.empty()) {
        char32_t code = 0;
        length = designspec::TakeGb18030(left, code);
        utf8proc_uint8_t encoded[4];
        const int size = length <= 0 ? 0
                                     : static_cast<int>(utf8proc_encode_char(
                                           static_cast<utf8proc_int32_t>(code), encoded));
        if (length <= 0 || size > *outSize - written) break;
        std::copy(encoded, encoded + size, out + written);
        written += size;
        left.remove_prefix(static_cast<size_t>(length));
    }
    *outSize = written;
    *inSize -= static_cast<int>(left.size());
    return length == 0 && !left.empty() ? -2 : written;
}

} // namespace

void AddXmlEncodings()
{
    static std::once_flag once;
    std::call_once(once, [] {
        for (const char* name : {"GB18030", "GBK", "GB2312"})
            xmlNewCharEncodingHandler(name, DecodeGb18030, nullptr);
    });
}

} // namespace roadcheck
