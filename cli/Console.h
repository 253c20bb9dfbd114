// The terminal and the words of a call, as the operating system has them; linux/ and windows/ have
// a source each. Texts are UTF-8.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Console {

// What a program does before all else.
void Prepare();
// The words that the program was called with, its own name first.
std::vector<std::string> Words(int argc, const char* const* argv);

// What the user has chosen for all programs, "zh-CN"; empty where only the environment says that.
std::string Locale();

// True when a person reads what is written, on a terminal that knows colours.
bool IsOutputShown();
bool IsErrorShown();

// As they are, on standard output or standard error.
void Write(std::string_view text);
void WriteError(std::string_view text);
// What has been written is on its way. False when a part of it was lost.
bool Flush();

} // namespace Console
