#include "platform/vmrd/VmHFCBaseU/Trace.h"

#include <cstdio>

#include "base/Text.h"

namespace designspec {

namespace {

Signal<const TraceLine&>& Lines()
{
    static Signal<const TraceLine&> lines;
    return lines;
}

} // namespace

Connection ConnectTrace(Signal<const TraceLine&>::Function listener)
{
    return Lines().Connect(std::move(listener));
}

void TraceFile(TraceLevel level, const std::wstring& file, int line, const std::wstring& text)
{
    Problems one;
    AddProblem(one, level, file, line, text);
    TraceProblems(one);
}

void TraceProblems(const Problems& problems)
{
    for (const Problem& problem : problems) {
        if (Lines().IsConnected())
            Lines().Tell(problem);
        else
            std::fprintf(stderr, "%s\n", ToUtf8(problem.Text()).c_str());
    }
}

void Trace(const std::wstring& text)
{
    TraceFile(TraceLevel::Note, {}, 0, text);
}

} // namespace designspec
