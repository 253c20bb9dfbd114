// The trace facility: one line for each thing worth knowing later. What goes wrong with a file of
// the process's own library is told here, never in a message box; whoever runs the process shows
// the lines.
#pragma once

#include "base/Problem.h"
#include "base/Signal.h"
#include "base/Export.h"

using TraceLevel = designspec::Severity;
using TraceLine = designspec::Problem;

namespace designspec {

// Tells `listener` of every further line, as long as the connection is kept. While nobody is
// connected, lines go to standard error.
[[nodiscard]] AFX_EXT_API Connection ConnectTrace(Signal<const TraceLine&>::Function listener);

AFX_EXT_API void TraceFile(TraceLevel level, const std::wstring& file, int line, const std::wstring& text);
AFX_EXT_API void TraceProblems(const Problems& problems);

// A line of its own, without a file.
AFX_EXT_API void Trace(const std::wstring& text);

} // namespace designspec
