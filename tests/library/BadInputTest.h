// Files that no library should meet, and that every library meets: what is wrong is told with
// file, line and cause, and the rest of the library is loaded.
#pragma once

#include "base/Text.h"
#include "tests/support/LibraryTest.h"

using namespace designspec;

namespace fs = std::filesystem;

class BadInput : public LibraryTest {
protected:
    BadInput()
    {
        m_project.Write("规范/a good.hds", Envelope(Style("first", kIdA, 1)));
        m_project.Write("规范/z good.hds", Envelope(Style("last", kIdB, 2)));
    }

    static bool OthersAreLoaded() { return MarkOf(L"first") == 1 && MarkOf(L"last") == 2; }

    // The file `m.hds`, between two good ones, adds nothing but a trace line.
    void ExpectRefused(const std::string& bytes, int line, const CString& cause)
    {
        m_project.Write("规范/m.hds", bytes);
        ExpectRefusedAsItIs(line, cause);
    }

    void ExpectRefusedAsItIs(int line, const CString& cause)
    {
        m_trace.Clear();
        Library().Update();
        EXPECT_EQ(Names(), L"first last");
        EXPECT_TRUE(OthersAreLoaded());
        ASSERT_EQ(m_trace.Lines().size(), 1U) << ToUtf8(m_trace.Text());
        EXPECT_EQ(m_trace.Lines()[0].severity, TraceLevel::Error);
        EXPECT_TRUE(Traced("规范/m.hds", line, cause)) << ToUtf8(m_trace.Text());
    }

    // The file is loaded, with a trace line.
    void ExpectTold(const std::string& bytes, int line, const CString& cause)
    {
        m_project.Write("规范/m.hds", bytes);
        m_trace.Clear();
        Library().Update();
        EXPECT_EQ(Library().Count(), 3);
        EXPECT_TRUE(OthersAreLoaded());
        EXPECT_TRUE(Traced("规范/m.hds", line, cause)) << ToUtf8(m_trace.Text());
    }

    static std::string Repeat(std::string_view text, size_t times)
    {
        std::string all;
        all.reserve(text.size() * times);
        for (size_t i = 0; i < times; ++i)
            all += text;
        return all;
    }
};
