// A module that counts the messages it gets, and that will not be unloaded while it is told so.
#include "platform/arx/ArxApp.h"

namespace {

int g_messages[32] = {};
bool g_busy = false;

class CCountingApp : public AcRxArxApp {
public:
    AcRx::AppRetCode On_kUnloadAppMsg(void* packet) override
    {
        return g_busy ? AcRx::kRetError : AcRxArxApp::On_kUnloadAppMsg(packet);
    }

    AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) override
    {
        ++g_messages[message];
        return AcRxArxApp::acrxEntryPoint(message, packet);
    }
};

} // namespace

IMPLEMENT_ARX_ENTRYPOINT(CCountingApp)

extern "C" AFX_EXT_API int MessageCount(int message)
{
    return g_messages[message];
}

extern "C" AFX_EXT_API void SetBusy(bool busy)
{
    g_busy = busy;
}
