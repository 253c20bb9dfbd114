#include "platform/arx/ArxApp.h"

using namespace AcRx;

AppRetCode AcRxDbxApp::acrxEntryPoint(AppMsgCode message, void* packet)
{
    return Dispatch(message, packet);
}

AppRetCode AcRxDbxApp::Dispatch(AppMsgCode message, void* packet)
{
    switch (message) {
    case kInitAppMsg:
        return On_kInitAppMsg(packet);
    case kUnloadAppMsg:
        return On_kUnloadAppMsg(packet);
    default:
        return kRetOK;
    }
}

AppRetCode AcRxArxApp::Dispatch(AppMsgCode message, void* packet)
{
    switch (message) {
    case kLoadDwgMsg:
        return On_kLoadDwgMsg(packet);
    case kUnloadDwgMsg:
        return On_kUnloadDwgMsg(packet);
    case kInvkSubrMsg:
        return On_kInvkSubrMsg(packet);
    case kCfgMsg:
        return On_kCfgMsg(packet);
    case kEndMsg:
        return On_kEndMsg(packet);
    case kQuitMsg:
        return On_kQuitMsg(packet);
    case kSaveMsg:
        return On_kSaveMsg(packet);
    case kDependencyMsg:
        return On_kDependencyMsg(packet);
    case kNoDependencyMsg:
        return On_kNoDependencyMsg(packet);
    case kOleUnloadAppMsg:
        return On_kOleUnloadAppMsg(packet);
    case kPreQuitMsg:
        return On_kPreQuitMsg(packet);
    case kInitDialogMsg:
        return On_kInitDialogMsg(packet);
    case kEndDialogMsg:
        return On_kEndDialogMsg(packet);
    default:
        return AcRxDbxApp::Dispatch(message, packet);
    }
}

AppRetCode AcRxDbxApp::On_kInitAppMsg(void*)
{
    return kRetOK;
}
AppRetCode AcRxDbxApp::On_kUnloadAppMsg(void*)
{
    return kRetOK;
}

AppRetCode AcRxArxApp::On_kLoadDwgMsg(void*)
{
    return kRetOK;
}
AppRetCode AcRxArxApp::On_kUnloadDwgMsg(void*)
{
    return kRetOK;
}
AppRetCode AcRxArxApp::On_kInvkSubrMsg(void*)
{
    return kRetOK;
}
AppRetCode AcRxArxApp::On_kCfgMsg(void*)
{
    return kRetOK;
}
AppRetCode AcRxArxApp::On_kEndMsg(void*)
{
    return kRetOK;
}
AppRetCode AcRxArxApp::On_kQuitMsg(void*)
{
    return kRetOK;
}
AppRetCode AcRxArxApp::On_kSaveMsg(void*)
{
    return kRetOK;
}
AppRetCode AcRxArxApp::On_kDependencyMsg(void*)
{
    return kRetOK;
}
AppRetCode AcRxArxApp::On_kNoDependencyMsg(void*)
{
    return kRetOK;
}
AppRetCode AcRxArxApp::On_kOleUnloadAppMsg(void*)
{
    return kRetOK;
}
AppRetCode AcRxArxApp::On_kPreQuitMsg(void*)
{
    return kRetOK;
}
AppRetCode AcRxArxApp::On_kInitDialogMsg(void*)
{
    return kRetOK;
}
AppRetCode AcRxArxApp::On_kEndDialogMsg(void*)
{
    return kRetOK;
}
