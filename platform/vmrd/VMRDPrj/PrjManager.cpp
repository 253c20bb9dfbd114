#include "platform/vmrd/VMRDPrj/PrjManager.h"

#include <utility>

#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {
CPrjManager* g_manager = nullptr;
}

CPrjManager* CPrjManager::GetInstance()
{
    return g_manager;
}

void CPrjManager::Create()
{
    StyleGroupConfig config;
    config.Load(VMRDPub::GetInstallPath() + L"\\" + kStyleGroupsFile);
    Destroy();
    g_manager = new CPrjManager(std::move(config));
}

void CPrjManager::Destroy()
{
    delete std::exchange(g_manager, nullptr);
}
