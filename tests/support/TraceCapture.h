// Catches the trace lines of a test instead of letting them go to standard error.
#pragma once

#include "platform/vmrd/VmHFCBaseU/Trace.h"
#include "tests/support/ProblemList.h"

class TraceCapture {
public:
    TraceCapture() = default;
    TraceCapture(const TraceCapture&) = delete;
    TraceCapture& operator=(const TraceCapture&) = delete;

    const designspec::Problems& Lines() const { return m_lines.Lines(); }
    void Clear() { m_lines.Clear(); }
    // The lines as a reader sees them, one below the other; empty when there was none.
    std::wstring Text() const { return m_lines.Text(); }

private:
    ProblemList m_lines;
    designspec::Connection m_connection = designspec::ConnectTrace([this](const TraceLine& line) {
        static_cast<designspec::Problems&>(m_lines).push_back(line);
    });
};
