// The project manager: the one object of VMRDPrj.arx, there as long as that module is loaded.
#pragma once

#include "base/Export.h"
#include "platform/vmrd/VMRDPrj/StyleManager.h"

class AFX_EXT_CLASS CPrjManager {
public:
    // Null while VMRDPrj.arx is not loaded.
    static CPrjManager* GetInstance();

    CStyleManager* GetStyleManager() { return &m_styleManager; }

    // For VMRDPrj.arx, when it is loaded and unloaded. The configuration is read from the install
    // path; without it no group is configured.
    static void Create();
    static void Destroy();

private:
    explicit CPrjManager(StyleGroupConfig config) : m_styleManager(std::move(config)) {}

    CStyleManager m_styleManager;
};
