#include "tests/support/Process.h"

#include <cstdlib>
#include <stdexcept>
#include <thread>

#include "base/Text.h"
#include "base/windows/Windows.h"

using namespace designspec;

namespace {

// As the program's words are taken apart again: a backslash counts only before a quotation mark.
std::wstring Quoted(const std::string& word)
{
    std::wstring quoted = L"\"";
    size_t backslashes = 0;
    for (const wchar_t c : ToWide(word)) {
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        if (c == L'"') quoted.append(backslashes + 1, L'\\');
        quoted += c;
    }
    return quoted.append(backslashes, L'\\') + L'"';
}

struct Pipe {
    HANDLE read = nullptr;
    HANDLE write = nullptr;

    Pipe()
    {
        SECURITY_ATTRIBUTES handedDown{sizeof handedDown, nullptr, TRUE};
        if (!CreatePipe(&read, &write, &handedDown, 0)) throw std::runtime_error("no pipe");
        SetHandleInformation(read, HANDLE_FLAG_INHERIT, 0);
    }
};

void ReadAll(HANDLE pipe, std::string& text)
{
    char buffer[4096];
    for (DWORD got = 0; ReadFile(pipe, buffer, sizeof buffer, &got, nullptr) && got > 0;)
        text.append(buffer, got);
    CloseHandle(pipe);
}

} // namespace

ProcessResult RunProcess(const std::vector<std::string>& words, const std::filesystem::path& folder)
{
    return RunProcess(words, folder, std::filesystem::path(L"NUL"));
}

ProcessResult RunProcess(const std::vector<std::string>& words, const std::filesystem::path& folder,
                         const std::filesystem::path& input)
{
    SECURITY_ATTRIBUTES handedDown{sizeof handedDown, nullptr, TRUE};
    const HANDLE in = CreateFileW(input.c_str(), GENERIC_READ, FILE_SHARE_READ, &handedDown,
                                  OPEN_EXISTING, 0, nullptr);
    std::wstring line;
    for (const std::string& word : words)
        line += (line.empty() ? L"" : L" ") + Quoted(word);
    const Pipe out;
    const Pipe err;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = in;
    start.hStdOutput = out.write;
    start.hStdError = err.write;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, folder.c_str(),
                        &start, &process))
        throw std::runtime_error("no process: " + words.front() + ": error " +
                                 std::to_string(GetLastError()));
    CloseHandle(in);
    CloseHandle(out.write);
    CloseHandle(err.write);
    ProcessResult result;
    std::thread errors(ReadAll, err.read, std::ref(result.err));
    ReadAll(out.read, result.out);
    errors.join();
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process.hProcess, &status);
    result.status = static_cast<int>(status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return result;
}

void SetVariable(const char* name, const char* value)
{
    _wputenv_s(ToWide(name).c_str(), value ? ToWide(value).c_str() : L"");
}

std::string Variable(const char* name)
{
    const wchar_t* const value = _wgetenv(ToWide(name).c_str());
    return value ? ToUtf8(value) : "";
}
