// This program once more, as another process that plays a part of the test; linux/ and windows/
// have a source each.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

class OtherProcess {
public:
    // What such a process does instead of running tests; made once for each, before main. Where
    // `play` returns, the process ends well.
    class Part {
    public:
        Part(const char* name, void (*play)(const std::string& task));
    };
    // Said by the part to the test.
    static void Tell(const std::string& line);

    // `console` is, on Windows, the pseudo console that it is in.
    OtherProcess(const std::string& part, const std::string& task, void* console = nullptr);
    ~OtherProcess();
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    // The next line that it says, which may have to be waited for; nothing once it has ended.
    std::optional<std::string> Line();
    // As the user or the system kills a program. False when it had ended by itself.
    bool Kill();

private:
    void Begin(void* console);
    size_t Read(char* buffer, size_t room);

    std::string m_told; // and not taken yet
    std::intptr_t m_process = 0;
    std::intptr_t m_output = -1;
};
