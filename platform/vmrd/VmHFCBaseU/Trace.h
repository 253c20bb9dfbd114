// The trace facility: one line for each thing worth knowing later. What goes wrong with a file
// is told here, never in a message box; whoever runs the process shows the lines.
#pragma once

#include <functional>

#include "platform/mfc/Export.h"
#include "platform/mfc/String.h"

enum class TraceLevel {
    Note,  // worth knowing: nothing is missing
    Error, // a file or a part of it could not be read or written
};

struct TraceLine {
    TraceLevel level = TraceLevel::Note;
    CString file; // empty: no file is meant
    int line = 0; // 1-based; 0: the file as a whole
    CString text;

    // "FILE:LINE: TEXT", as far as there are a file and a line.
    AFX_EXT_API CString Text() const;
};

using TraceSink = std::function<void(const TraceLine&)>;

// Sends every further line to `sink` and returns the sink before it. An empty sink stands for
// standard error, which is where lines go at first.
AFX_EXT_API TraceSink SetTraceSink(TraceSink sink);

AFX_EXT_API void TraceFile(TraceLevel level, const CString& file, int line, const CString& text);

// A line of its own, without a file.
AFX_EXT_API void Trace(const CString& text);
