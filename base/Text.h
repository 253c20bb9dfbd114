// Wide text: to and from UTF-8, trimmed, taken apart.
//
// File names and file contents reach the system as UTF-8. A byte that is not UTF-8 becomes a
// lone low surrogate (U+DC80..U+DCFF) and turns into the same byte on the way back, so any
// file name survives the round trip.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace designspec {

std::wstring ToWide(std::string_view utf8);
std::string ToUtf8(std::wstring_view text);

// True when `bytes` are UTF-8 throughout; otherwise `offset` is where the first wrong byte is.
bool IsUtf8(std::string_view bytes, size_t& offset);

// White space (Unicode included) cut off on the right, or on both sides.
std::wstring TrimRight(std::wstring_view text);
std::wstring Trim(std::wstring_view text);
// The characters of `set` cut off on the right.
std::wstring TrimRight(std::wstring_view text, std::wstring_view set);

// True for a character that is not shown but acts on what is: a control character, a line break of
// any kind, a mark that turns the direction of writing.
bool IsActing(wchar_t c);
// The text on one line as it can be shown anywhere: "\\n", "\\t", "\\x1B" or "\\u202E" for each
// such character.
std::wstring Printable(std::wstring_view text);

// Columns that the text takes where a Chinese character takes two, as on a terminal.
int DisplayWidth(std::wstring_view text);

// The parts of `text` between any of the characters of `separators`; empty parts are left out.
std::vector<std::wstring> SplitText(std::wstring_view text, std::wstring_view separators);

} // namespace designspec
