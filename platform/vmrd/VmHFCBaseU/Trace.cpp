#include "platform/vmrd/VmHFCBaseU/Trace.h"

#include <cstdio>
#include <utility>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"

using namespace designspec;

namespace {

TraceSink& Sink()
{
    static TraceSink sink;
    return sink;
}

} // namespace

CString TraceLine::Text() const
{
    if (file.empty()) return text;
    return line > 0 ? Format(L"%s:%d: %s", file, line, text) : Format(L"%s: %s", file, text);
}

TraceSink SetTraceSink(TraceSink sink)
{
    return std::exchange(Sink(), std::move(sink));
}

void TraceFile(TraceLevel level, const CString& file, int line, const CString& text)
{
    const TraceLine traced{level, ToWide(NativePath(file)), line, text};
    const TraceSink sink = Sink(); // the sink may set another one
    if (sink)
        sink(traced);
    else
        std::fprintf(stderr, "%s\n", ToUtf8(traced.Text()).c_str());
}

void Trace(const CString& text)
{
    TraceFile(TraceLevel::Note, {}, 0, text);
}
