#include "app/RDDesignSpecificationApp.h"

#include <utility>

#include "app/DSEditor.h"
#include "app/DesignSpecificationGroup.h"
#include "base/Format.h"
#include "library/DesignSpecifications.h"
#include "platform/arx/Modeler.h"
#include "platform/arx/Modules.h"
#include "platform/vmrd/VMRDPrj/PrjManager.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

constexpr wchar_t kProjectModule[] = L"VMRDPrj.arx";
constexpr auto kGroupType = static_cast<CStyleManager::EType>(100);

} // namespace

AcRx::AppRetCode CRDDesignSpecificationApp::On_kInitAppMsg(void* packet)
{
    acdbModelerStart();
    if (!acrxLoadModule(kProjectModule, false, false)) {
        Trace(Format(L"项目模块 %s 无法加载, 设计规范模块不能使用", CString(kProjectModule)));
        return AcRx::kRetError;
    }
    CDesignSpecifications::TakeShare();
    const AcRx::AppRetCode result = AcRxArxApp::On_kInitAppMsg(packet);
    CStyleManager& manager = *CPrjManager::GetInstance()->GetStyleManager();
    const StyleGroupConfig* const config =
        manager.FindStyleGroup(L"CDesignSpecificationGroup", false);
    if (!config) return result;

    if (!m_group) m_group = new CDesignSpecificationGroup;
    if (config->FindStyleGroup(L"CDSEditor", false)) m_group->AddStyles(new CDSEditor);
    manager.AddObject(kGroupType, m_group);
    m_group->Refurbish();
    return result;
}

AcRx::AppRetCode CRDDesignSpecificationApp::On_kUnloadAppMsg(void* packet)
{
    Trace(Format(L"%s-%d", CString(L"CRDDesignSpecificationApp::On_kUnloadAppMsg"), 341));
    const AcRx::AppRetCode result = AcRxArxApp::On_kUnloadAppMsg(packet);
    // There is always a group to take out, even when none was published.
    if (!m_group) m_group = new CDesignSpecificationGroup;
    CPrjManager::GetInstance()->GetStyleManager()->RemoveObject(std::exchange(m_group, nullptr),
                                                                true);
    CDesignSpecifications::Destroy();
    acrxUnloadModule(kProjectModule, false);
    return result;
}
