// A module that registers commands, and leaves them to whoever unloads it.
#include <stdexcept>

#include "base/Text.h"
#include "platform/arx/ArxApp.h"
#include "platform/arx/Commands.h"

using namespace designspec;

namespace {

int g_runs = 0;
CString g_opened; // the files, joined by blanks

void Run()
{
    ++g_runs;
}

void Throw()
{
    throw std::runtime_error("broken");
}

void Open(const wchar_t* path)
{
    g_opened += (g_opened.empty() ? L"" : L" ") + CString(path);
}

class CCommandApp : public AcRxArxApp {
public:
    AcRx::AppRetCode On_kInitAppMsg(void* packet) override
    {
        AddCommand({L"试验", L"TEST_RUN", L"运行(&R)…", Run, {L".tst", L".test"}, Open});
        AddCommand({L"试验", L"TEST_THROW", L"失败(&F)", Throw, {}, nullptr});
        return AcRxArxApp::On_kInitAppMsg(packet);
    }
};

} // namespace

IMPLEMENT_ARX_ENTRYPOINT(CCommandApp)

extern "C" AFX_EXT_API int RunCount()
{
    return g_runs;
}

extern "C" AFX_EXT_API const wchar_t* OpenedFiles()
{
    return g_opened.c_str();
}
