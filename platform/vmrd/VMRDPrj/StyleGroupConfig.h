// Which style groups the family publishes, and with which editors: a tree of names, read from a
// file. A module publishes only what stands there.
#pragma once

#include <memory>

#include "base/Export.h"
#include "platform/mfc/String.h"

class AFX_EXT_CLASS StyleGroupConfig {
public:
    StyleGroupConfig() = default;
    explicit StyleGroupConfig(CString name) : m_name(std::move(name)) {}

    // Reads the file in place of what was there. An object in it is
    //     {"name": GROUP, "groups": [object …], "editors": [NAME …]}
    // False, with a trace line, when it cannot be read; then the tree is empty.
    bool Load(const CString& path);

    const CString& Name() const { return m_name; }
    // The entry of that name below this one, a group or an editor; in its whole tree when `deep`
    // is set. Null when there is none.
    const StyleGroupConfig* FindStyleGroup(const wchar_t* name, bool deep) const;

private:
    struct Json;

    CString m_name;
    std::vector<StyleGroupConfig> m_entries;
};

namespace designspec {

// The file's name; it stands beside the programs.
inline constexpr wchar_t kStyleGroupsFile[] = L"StyleGroups.json";

} // namespace designspec
