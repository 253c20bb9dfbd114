#include "platform/arx/ArxApp.h"

using namespace AcRx;

AppRetCode AcRxDbxApp::acrxEntryPoint(AppMsgCode message, void* packet)
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

AppRetCode AcRxDbxApp::On_kInitAppMsg(void*)
{
    return kRetOK;
}

AppRetCode AcRxDbxApp::On_kUnloadAppMsg(void*)
{
    return kRetOK;
}
