// Another module of the family: it asks the library for limits as long as it is loaded.
#include "library/DesignSpecifications.h"
#include "platform/arx/ArxApp.h"

namespace {

class CQueryingApp : public AcRxArxApp {
public:
    AcRx::AppRetCode On_kInitAppMsg(void* packet) override
    {
        CDesignSpecifications::TakeShare();
        return AcRxArxApp::On_kInitAppMsg(packet);
    }

    AcRx::AppRetCode On_kUnloadAppMsg(void* packet) override
    {
        CDesignSpecifications::Destroy();
        return AcRxArxApp::On_kUnloadAppMsg(packet);
    }
};

} // namespace

IMPLEMENT_ARX_ENTRYPOINT(CQueryingApp)

// The longest straight line, in metres, of the specification of that name; -1 when the library has
// none.
extern "C" AFX_EXT_API double LongestStraight(const wchar_t* name)
{
    const CDesignSpecification* const found = CDesignSpecifications::GetInstance()->Item(name);
    return found ? found->BeelineLen.MaxLen : -1;
}
