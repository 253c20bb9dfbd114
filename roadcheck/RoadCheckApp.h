// The module's application object: it offers the command that holds roads against specifications
// while the module is loaded.
#pragma once

#include "platform/arx/ArxApp.h"

class CRoadCheckApp : public AcRxArxApp {
public:
    AcRx::AppRetCode On_kInitAppMsg(void* packet) override;
    // Closes the windows; what they were doing ends.
    AcRx::AppRetCode On_kUnloadAppMsg(void* packet) override;
};
