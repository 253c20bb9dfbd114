// The encodings that text files come in.
#pragma once

#include <string>
#include <string_view>

namespace designspec {

enum class TextEncoding { Utf8, Utf16LE, Utf16BE, Gb18030 };

// The encoding that a byte-order mark at the start of `bytes` tells, with the mark's length in
// bytes; Utf8 and 0 when there is none.
TextEncoding EncodingByMark(std::string_view bytes, size_t& markSize);

// The encoding of that name: UTF-8, US-ASCII, UTF-16, UTF-16LE, UTF-16BE, GB2312, GBK or GB18030,
// ignoring case. The three Chinese ones are read as GB18030, which holds the other two. False for
// any other name.
bool EncodingByName(std::string_view name, TextEncoding& encoding);

// Appends `bytes` (without byte-order mark) to `utf8`. False when they are no text in that
// encoding; `utf8` then holds what stands before the first wrong byte.
bool DecodeText(std::string_view bytes, TextEncoding encoding, std::string& utf8);

// The bytes of a text, without byte-order mark. False when the encoding cannot express it.
bool EncodeText(std::string_view utf8, TextEncoding encoding, std::string& bytes);

} // namespace designspec
