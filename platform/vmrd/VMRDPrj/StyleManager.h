// The style manager's list of groups. A host shows it; modules put their groups into it.
#pragma once

#include "base/Export.h"
#include "base/Signal.h"
#include "platform/vmrd/VMRDPrj/StyleGroup.h"
#include "platform/vmrd/VMRDPrj/StyleGroupConfig.h"

class AFX_EXT_CLASS CStyleManager {
public:
    // The group's place: groups are listed by type, those of the same type as they came.
    enum EType : int {};

    explicit CStyleManager(StyleGroupConfig config) : m_config(std::move(config)) {}
    CStyleManager(const CStyleManager&) = delete;
    CStyleManager& operator=(const CStyleManager&) = delete;
    // Leaves the groups alone, whose code may be gone, with a trace line for each.
    ~CStyleManager();

    // The configured group of that name; null when the configuration has none.
    const StyleGroupConfig* FindStyleGroup(const wchar_t* name, bool deep) const;

    // The group stays its module's until RemoveObject deletes it. Null and one that is in the
    // list are not added: false.
    bool AddObject(EType type, CStyleGroup* group);
    // False when it was not in the list; it is deleted all the same if asked.
    bool RemoveObject(CStyleGroup* group, bool deleteObject);

    int GroupsCount() const { return static_cast<int>(m_groups.size()); }
    // Null when the index is out of range.
    CStyleGroup* GetGroup(int index) const;
    // Reads the libraries of all groups anew.
    void Refurbish();
    // Whether one of their libraries left the file of that name in its folder as it is now.
    bool IsOwnFile(const CString& file) const;

    // For every manager there will be: tells after a group came, and after one left the list but
    // before it is deleted.
    static designspec::Signal<>& Changed();

private:
    struct Entry {
        EType type;
        CStyleGroup* group;
    };
    std::vector<Entry>::iterator Find(const CStyleGroup* group);

    StyleGroupConfig m_config;
    std::vector<Entry> m_groups;
};
