// Catches the trace lines of a test instead of letting them go to standard error.
#pragma once

#include <utility>
#include <vector>

#include "platform/vmrd/VmHFCBaseU/Trace.h"

class TraceCapture {
public:
    TraceCapture()
        : m_before(SetTraceSink([this](const TraceLine& line) { m_lines.push_back(line); }))
    {
    }
    ~TraceCapture() { SetTraceSink(std::move(m_before)); }
    TraceCapture(const TraceCapture&) = delete;
    TraceCapture& operator=(const TraceCapture&) = delete;

    const std::vector<TraceLine>& Lines() const { return m_lines; }
    void Clear() { m_lines.clear(); }

    // The lines as a reader sees them, one below the other; empty when there was none.
    CString Text() const
    {
        CString text;
        for (const TraceLine& line : m_lines) {
            if (!text.empty()) text += L'\n';
            text += line.Text();
        }
        return text;
    }

private:
    std::vector<TraceLine> m_lines;
    TraceSink m_before;
};
