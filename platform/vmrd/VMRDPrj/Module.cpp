// The module VMRDPrj.arx: while it is loaded, there is a project manager.
#include "platform/arx/ArxApp.h"
#include "platform/vmrd/VMRDPrj/PrjManager.h"

namespace {

class CPrjApp : public AcRxArxApp {
public:
    AcRx::AppRetCode On_kInitAppMsg(void* packet) override
    {
        CPrjManager::Create();
        return AcRxArxApp::On_kInitAppMsg(packet);
    }

    AcRx::AppRetCode On_kUnloadAppMsg(void* packet) override
    {
        CPrjManager::Destroy();
        return AcRxArxApp::On_kUnloadAppMsg(packet);
    }
};

} // namespace

IMPLEMENT_ARX_ENTRYPOINT(CPrjApp)
