// Brings deleted styles back into their folder, under names that are free there.
#pragma once

#include "platform/vmrd/VMRDEnv/StyleFolder.h"

namespace designspec {

class StyleReturn {
public:
    explicit StyleReturn(StyleFolder& folder) : m_folder(folder) {}

    // As StyleFolder::BringBack says.
    bool BringBack(const CString& file, std::vector<StyleEntry>& present, Problems& problems);

private:
    CString NameFor(const CString& file, const std::vector<StyleEntry>& entries,
                    Problems& problems) const;
    bool BringBackRenamed(const CString& file, std::vector<StyleEntry>& present,
                          Problems& problems);

    StyleFolder& m_folder;
};

} // namespace designspec
