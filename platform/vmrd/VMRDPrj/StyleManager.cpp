#include "platform/vmrd/VMRDPrj/StyleManager.h"

#include <algorithm>
#include <utility>

#include "base/Format.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

CStyleManager::ChangeListener& Listener()
{
    static CStyleManager::ChangeListener listener;
    return listener;
}

void TellListener()
{
    if (Listener()) Listener()();
}

} // namespace

CStyleManager::~CStyleManager()
{
    if (m_groups.empty()) return;
    Trace(Format(L"样式管理器结束时仍有 %d 个样式组未移除", GroupsCount()));
    m_groups.clear();
    TellListener();
}

const StyleGroupConfig* CStyleManager::FindStyleGroup(const wchar_t* name, bool deep) const
{
    return m_config.FindStyleGroup(name, deep);
}

std::vector<CStyleManager::Entry>::iterator CStyleManager::Find(const CStyleGroup* group)
{
    return std::find_if(m_groups.begin(), m_groups.end(),
                        [group](const Entry& entry) { return entry.group == group; });
}

bool CStyleManager::AddObject(EType type, CStyleGroup* group)
{
    if (!group || Find(group) != m_groups.end()) return false;
    const auto behind =
        std::upper_bound(m_groups.begin(), m_groups.end(), type,
                         [](EType wanted, const Entry& entry) { return wanted < entry.type; });
    m_groups.insert(behind, {type, group});
    TellListener();
    return true;
}

bool CStyleManager::RemoveObject(CStyleGroup* group, bool deleteObject)
{
    const auto found = Find(group);
    const bool listed = found != m_groups.end();
    if (listed) {
        m_groups.erase(found);
        TellListener();
    }
    if (deleteObject) delete group;
    return listed;
}

CStyleGroup* CStyleManager::GetGroup(int index) const
{
    const bool within = index >= 0 && index < GroupsCount();
    return within ? m_groups[static_cast<size_t>(index)].group : nullptr;
}

void CStyleManager::Refurbish()
{
    for (const Entry& entry : m_groups)
        entry.group->Refurbish();
}

CStyleManager::ChangeListener CStyleManager::SetChangeListener(ChangeListener listener)
{
    return std::exchange(Listener(), std::move(listener));
}
