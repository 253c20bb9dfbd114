#include "roadcheck/RoadCheckApp.h"

#include "library/DesignSpecifications.h"
#include "platform/arx/Commands.h"
#include "platform/arx/Modeler.h"
#include "platform/mfc/QtText.h"
#include "roadcheck/RoadCheckWindows.h"

using namespace designspec;

namespace {

constexpr wchar_t kGroup[] = L"道路";

} // namespace

AcRx::AppRetCode CRoadCheckApp::On_kInitAppMsg(void* packet)
{
    acdbModelerStart();
    CDesignSpecifications::TakeShare();
    AddCommand({kGroup,
                L"ROADCHECK",
                L"道路检核(&R)…",
                [] { roadcheck::OpenCheckWindow({}); },
                {L".xml", L".landxml"},
                [](const wchar_t* path) { roadcheck::OpenCheckWindow(ToQString(path)); }});
    return AcRxArxApp::On_kInitAppMsg(packet);
}

AcRx::AppRetCode CRoadCheckApp::On_kUnloadAppMsg(void* packet)
{
    const AcRx::AppRetCode result = AcRxArxApp::On_kUnloadAppMsg(packet);
    RemoveCommands(kGroup);
    roadcheck::CloseCheckWindows();
    CDesignSpecifications::Destroy();
    return result;
}
