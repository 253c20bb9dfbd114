#include "tests/support/OtherProcess.h"

#include <cstdlib>
#include <iostream>

#include <gtest/gtest.h>

#include "tests/support/Process.h"

namespace {

constexpr char kPart[] = "DESIGNSPEC_TEST_PART";
constexpr char kTask[] = "DESIGNSPEC_TEST_TASK";
constexpr char kTold[] = "told: "; // what else stands in the output is the test framework's

using Play = void (*)(const std::string& task);

// Comes up before the first test.
class Player : public testing::Environment {
public:
    Player(const char* name, Play play) : m_name(name), m_play(play) {}

    void SetUp() override
    {
        if (Variable(kPart) != m_name) return;
        m_play(Variable(kTask));
        std::_Exit(0);
    }

private:
    std::string m_name;
    Play m_play;
};

} // namespace

OtherProcess::Part::Part(const char* name, Play play)
{
    testing::AddGlobalTestEnvironment(new Player(name, play));
}

void OtherProcess::Tell(const std::string& line)
{
    std::cout << kTold + line + '\n' << std::flush;
}

OtherProcess::OtherProcess(const std::string& part, const std::string& task, void* console)
{
    SetVariable(kPart, part.c_str());
    SetVariable(kTask, task.c_str());
    Begin(console);
    SetVariable(kPart, nullptr);
    SetVariable(kTask, nullptr);
}

std::optional<std::string> OtherProcess::Line()
{
    const std::string begin = kTold;
    for (;;) {
        for (size_t end = 0; (end = m_told.find('\n')) != std::string::npos;) {
            std::string line = m_told.substr(0, end);
            m_told.erase(0, end + 1);
            if (line.ends_with('\r')) line.pop_back(); // by the system's own end of lines
            if (line.starts_with(begin)) return line.substr(begin.size());
        }
        char buffer[4096];
        const size_t got = Read(buffer, sizeof buffer);
        if (got == 0) return std::nullopt;
        m_told.append(buffer, got);
    }
}
