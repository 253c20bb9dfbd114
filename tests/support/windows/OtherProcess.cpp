#include "tests/support/OtherProcess.h"

#include <stdexcept>

#include "base/windows/Windows.h"

namespace {

constexpr UINT kKilled = 0xDEAD; // the status that a killed one ends with

HANDLE HandleOf(std::intptr_t value)
{
    return reinterpret_cast<HANDLE>(value);
}

// What a program is started with beside its three streams.
class Surroundings {
public:
    explicit Surroundings(void* console)
    {
        m_info.StartupInfo.cb = sizeof m_info;
        m_info.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
        if (!console) return;
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        m_memory.resize(size);
        m_info.lpAttributeList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(m_memory.data());
        if (!InitializeProcThreadAttributeList(m_info.lpAttributeList, 1, 0, &size) ||
            !UpdateProcThreadAttribute(m_info.lpAttributeList, 0, kPseudoConsole, console,
                                       sizeof console, nullptr, nullptr))
            throw std::runtime_error("no console");
    }
    STARTUPINFOW& Info() { return m_info.StartupInfo; }

private:
    static constexpr DWORD_PTR kPseudoConsole = 0x20016; // not in every compiler's headers

    STARTUPINFOEXW m_info{};
    std::string m_memory;
};

} // namespace

void OtherProcess::Begin(void* console)
{
    SECURITY_ATTRIBUTES handedDown{sizeof handedDown, nullptr, TRUE};
    HANDLE output = nullptr;
    HANDLE said = nullptr;
    if (!CreatePipe(&output, &said, &handedDown, 0)) throw std::runtime_error("no pipe");
    SetHandleInformation(output, HANDLE_FLAG_INHERIT, 0);
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring line = L"\"" + std::wstring(program) + L"\"";
    Surroundings around(console);
    around.Info().hStdOutput = said;
    around.Info().hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, EXTENDED_STARTUPINFO_PRESENT,
                        nullptr, nullptr, &around.Info(), &process))
        throw std::runtime_error("no process");
    CloseHandle(said);
    CloseHandle(process.hThread);
    m_output = reinterpret_cast<std::intptr_t>(output);
    m_process = reinterpret_cast<std::intptr_t>(process.hProcess);
}

OtherProcess::~OtherProcess()
{
    Kill();
    CloseHandle(HandleOf(m_output));
}

size_t OtherProcess::Read(char* buffer, size_t room)
{
    DWORD got = 0;
    return ReadFile(HandleOf(m_output), buffer, static_cast<DWORD>(room), &got, nullptr) ? got : 0;
}

bool OtherProcess::Kill()
{
    if (m_process == 0) return false;
    const HANDLE process = HandleOf(m_process);
    m_process = 0;
    DWORD status = 0;
    TerminateProcess(process, kKilled);
    WaitForSingleObject(process, INFINITE);
    GetExitCodeProcess(process, &status);
    CloseHandle(process);
    return status == kKilled;
}
