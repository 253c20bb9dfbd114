#include "cli/Console.h"

#include <algorithm>
#include <cstdio>

#include <fcntl.h>
#include <io.h>

#include "base/CodePoint.h"
#include "base/Text.h"
#include "base/windows/Windows.h"

#include <shellapi.h>

using namespace designspec;

namespace Console {

namespace {

bool g_lost = false; // a part of what a person was to read

// The console that the stream leads to; null where it leads elsewhere.
HANDLE ConsoleOf(DWORD stream, DWORD& mode)
{
    const HANDLE handle = GetStdHandle(stream);
    return GetConsoleMode(handle, &mode) ? handle : nullptr;
}

void EnableColours(DWORD stream)
{
    DWORD mode = 0;
    if (const HANDLE console = ConsoleOf(stream, mode))
        SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

bool KnowsColours(DWORD stream)
{
    DWORD mode = 0;
    return ConsoleOf(stream, mode) && (mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

// A console shows every character, whatever its code page is, when it gets them in UTF-16.
void WriteToConsole(HANDLE console, std::wstring_view text)
{
    constexpr size_t kMost = 8192; // at once
    while (!text.empty()) {
        size_t size = std::min(text.size(), kMost);
        if (IsWithinPair(text, size)) --size;
        DWORD written = 0;
        if (!WriteConsoleW(console, text.data(), static_cast<DWORD>(size), &written, nullptr) ||
            written == 0) {
            g_lost = true;
            return;
        }
        text.remove_prefix(written);
    }
}

// Files and other programs get UTF-8.
void WriteTo(DWORD stream, FILE* file, std::string_view text)
{
    DWORD mode = 0;
    if (const HANDLE console = ConsoleOf(stream, mode))
        WriteToConsole(console, ToWide(text));
    else
        std::fwrite(text.data(), 1, text.size(), file);
}

} // namespace

void Prepare()
{
    // No line ends of the system's own.
    for (FILE* const file : {stdin, stdout, stderr})
        _setmode(_fileno(file), _O_BINARY);
    for (const DWORD stream : {STD_OUTPUT_HANDLE, STD_ERROR_HANDLE})
        EnableColours(stream);
}

// What main() gets has lost the characters that the system's code page does not have.
std::vector<std::string> Words(int argc, const char* const* argv)
{
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (!words) return {argv, argv + argc};
    std::vector<std::string> all;
    std::transform(words, words + count, std::back_inserter(all),
                   [](const wchar_t* word) { return ToUtf8(word); });
    LocalFree(words);
    return all;
}

std::string Locale()
{
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = {};
    return GetUserDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH) > 0 ? ToUtf8(name) : "";
}

bool IsOutputShown()
{
    return KnowsColours(STD_OUTPUT_HANDLE);
}

bool IsErrorShown()
{
    return KnowsColours(STD_ERROR_HANDLE);
}

void Write(std::string_view text)
{
    WriteTo(STD_OUTPUT_HANDLE, stdout, text);
}

void WriteError(std::string_view text)
{
    WriteTo(STD_ERROR_HANDLE, stderr, text);
}

bool Flush()
{
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 && !g_lost;
}

} // namespace Console
