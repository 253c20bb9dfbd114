// What a person sees of the command in a console, whatever code page that has.
#include <sstream>

#include "base/windows/Windows.h"
#include "tests/cli/CommandTest.h"
#include "tests/support/OtherProcess.h"

namespace {

constexpr COORD kSize{100, 30};
constexpr DWORD kPatience = 60000; // ms

// A console without a window. The system's libraries have it since Windows 10, those that a
// compiler brings may not.
class PseudoConsole {
public:
    PseudoConsole()
    {
        const auto create =
            Call<HRESULT WINAPI(COORD, HANDLE, HANDLE, DWORD, void**)>("CreatePseudoConsole");
        HANDLE input = nullptr;
        HANDLE output = nullptr;
        if (!CreatePipe(&input, &m_input, nullptr, 0) ||
            !CreatePipe(&m_output, &output, nullptr, 0) ||
            create(kSize, input, output, 0, &m_console) != S_OK)
            throw std::runtime_error("no console");
        CloseHandle(input);
        CloseHandle(output);
        m_reader = std::thread([this] {
            char buffer[4096];
            for (DWORD got = 0;
                 ReadFile(m_output, buffer, sizeof buffer, &got, nullptr) && got > 0;)
                continue;
        });
    }
    ~PseudoConsole()
    {
        Call<void WINAPI(void*)>("ClosePseudoConsole")(m_console);
        m_reader.join();
        CloseHandle(m_input);
        CloseHandle(m_output);
    }
    PseudoConsole(const PseudoConsole&) = delete;
    PseudoConsole& operator=(const PseudoConsole&) = delete;

    void* Get() const { return m_console; }

private:
    template <class Function> static Function* Call(const char* name)
    {
        const FARPROC found = GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name);
        if (!found) throw std::runtime_error(name);
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
    }

    void* m_console = nullptr;
    HANDLE m_input = nullptr;
    HANDLE m_output = nullptr;
    std::thread m_reader;
};

// Runs a command line in the console of this process, and tells its status and the lines on the
// screen.
void RunInConsole(const std::string& task)
{
    UINT codePage = 0;
    std::string line;
    std::istringstream words(task);
    std::getline(words >> codePage >> std::ws, line);
    SECURITY_ATTRIBUTES handedDown{sizeof handedDown, nullptr, TRUE};
    const HANDLE screen =
        CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    &handedDown, OPEN_EXISTING, 0, nullptr);
    if (!SetConsoleOutputCP(codePage)) OtherProcess::Tell("no code page");
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = screen;
    PROCESS_INFORMATION process{};
    std::wstring wide = ToWide(line);
    if (!CreateProcessW(nullptr, wide.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &process) ||
        WaitForSingleObject(process.hProcess, kPatience) != WAIT_OBJECT_0)
        return;
    DWORD status = 0;
    GetExitCodeProcess(process.hProcess, &status);
    OtherProcess::Tell(std::to_string(status));
    CONSOLE_SCREEN_BUFFER_INFO its{};
    GetConsoleScreenBufferInfo(screen, &its);
    for (short y = 0; y < its.dwCursorPosition.Y; ++y) {
        std::wstring row(static_cast<size_t>(its.dwSize.X), L' ');
        DWORD got = 0;
        ReadConsoleOutputCharacterW(screen, row.data(), static_cast<DWORD>(row.size()), {0, y},
                                    &got);
        row.resize(got);
        OtherProcess::Tell(ToUtf8(TrimRight(row)));
    }
}

const OtherProcess::Part kInConsole("runs in a console", RunInConsole);

class CommandInConsole : public CommandTest {
protected:
    CommandInConsole() { std::filesystem::create_directory(m_folder.Native("规范")); }

    // The exit status and the lines on the screen.
    std::vector<std::string> Shown(UINT codePage, const std::string& words) const
    {
        const PseudoConsole console;
        OtherProcess other("runs in a console",
                           std::to_string(codePage) + " \"" DESIGNSPEC_PROGRAM "\" --project " +
                               m_folder.Native().string() + " " + words,
                           console.Get());
        std::vector<std::string> lines;
        while (const auto line = other.Line())
            lines.push_back(*line);
        return lines;
    }
};

constexpr UINT kCodePages[] = {65001 /* UTF-8 */, 936 /* GBK */, 437 /* has no Chinese at all */};

} // namespace

TEST_F(CommandInConsole, ShowsEveryCharacter)
{
    New("城市𠮷道路");
    New("ğ");
    for (const UINT codePage : kCodePages) {
        std::vector<std::string> expected = Lines(Done({"list"}));
        expected.insert(expected.begin(), "0");
        EXPECT_EQ(Shown(codePage, "list"), expected) << codePage;
    }
}

TEST_F(CommandInConsole, TellsWhatIsWrong)
{
    for (const UINT codePage : kCodePages)
        EXPECT_EQ(
            Shown(codePage, "show --spec 𠮷 LonGrad"),
            (std::vector<std::string>{"2", "designspec: 没有设计规范“𠮷”。项目中没有设计规范"}))
            << codePage;
}
