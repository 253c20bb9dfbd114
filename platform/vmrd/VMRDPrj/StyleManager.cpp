#include "platform/vmrd/VMRDPrj/StyleManager.h"

#include <algorithm>

#include "base/Format.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

CStyleManager::~CStyleManager()
{
    if (m_groups.empty()) return;
    Trace(Format(L"样式管理器结束时仍有 %d 个样式组未移除", GroupsCount()));
    m_groups.clear();
    Changed().Tell();
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
    Changed().Tell();
    return true;
}

bool CStyleManager::RemoveObject(CStyleGroup* group, bool deleteObject)
{
    const auto found = Find(group);
    const bool listed = found != m_groups.end();
    if (listed) {
        m_groups.erase(found);
        Changed().Tell();
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

bool CStyleManager::IsOwnFile(const CString& file) const
{
    return std::any_of(m_groups.begin(), m_groups.end(),
                       [&](const Entry& entry) { return entry.group->IsOwnFile(file); });
}

designspec::Signal<>& CStyleManager::Changed()
{
    static designspec::Signal<> changed;
    return changed;
}
