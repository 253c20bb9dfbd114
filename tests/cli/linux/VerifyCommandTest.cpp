// What designspec verify shows on a terminal.
#include "tests/cli/VerifyCommandTest.h"

#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

namespace {

// A terminal for one of a program's streams.
class Terminal {
public:
    Terminal() : m_master(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0)
            throw std::runtime_error("no terminal");
        m_slave = open(ptsname(m_master), O_RDWR | O_NOCTTY | O_CLOEXEC);
    }
    ~Terminal() { close(m_master); }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    void TakeStream(int stream) const { dup2(m_slave, stream); }

    // All that was written to it; nobody may have it any more. The system hands it on in its own
    // time: the end is where reading fails.
    std::string Shown()
    {
        close(m_slave);
        std::string shown;
        std::array<char, 4096> buffer{};
        for (ssize_t count = 0; (count = read(m_master, buffer.data(), buffer.size())) > 0;)
            shown.append(buffer.data(), static_cast<size_t>(count));
        return shown;
    }

private:
    int m_master = -1, m_slave = -1;
};

TEST_F(VerifyCommand, CountsTheFilesOnATerminalAndLeavesACleanLine)
{
    const Words three = {"verify",   Write("a.xml", "140"),
                         "none.xml", Write("c.xml", "200"),
                         "--speed",  "60",
                         "--jobs",   "2"};
    Terminal terminal;
    const ProcessResult result = Call(three, [&] { terminal.TakeStream(STDERR_FILENO); });
    EXPECT_EQ(terminal.Shown(), "\r1/3\r2/3\r\x1b[Kdesignspec: none.xml: 无法打开: 不存在\r\n");
    EXPECT_EQ(result.out, Call(three).out);
    EXPECT_EQ(Call(three).err, "designspec: none.xml: 无法打开: 不存在\n");

    Terminal other;
    Call({"verify", "a.xml", "--speed", "60"}, [&] { other.TakeStream(STDERR_FILENO); });
    EXPECT_EQ(other.Shown(), ""); // one file has nothing to count
}

} // namespace
