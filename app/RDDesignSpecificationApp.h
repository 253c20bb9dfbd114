// The module's application object: it publishes the library of specifications to the style
// manager while the module is loaded.
#pragma once

#include "platform/arx/ArxApp.h"

class CStyleGroup;

class CRDDesignSpecificationApp : public AcRxArxApp {
public:
    // kRetError, and nothing is published, when the project module cannot be loaded.
    AcRx::AppRetCode On_kInitAppMsg(void* packet) override;
    AcRx::AppRetCode On_kUnloadAppMsg(void* packet) override;

private:
    CStyleGroup* m_group = nullptr; // the style manager's list has it, too
};
