// Takes a style out of the files of its folder, into the deleted ones. A file that holds something
// else too keeps that.
#pragma once

#include "platform/vmrd/VMRDEnv/StyleFolder.h"

namespace designspec {

class StyleRemoval {
public:
    explicit StyleRemoval(StyleFolder& folder) : m_folder(folder) {}

    // As StyleFolder::SetAside says of them.
    bool FromFile(const CString& file, const GUID& id, Problems& problems);
    bool FromAll(const GUID& id, Problems& problems);

private:
    CString KeepStyle(const CString& file, const GUID& id, Problems& problems);
    bool TakeOut(const CString& file, const GUID& id, Problems& problems);
    bool TakeApart(const CString& file, const GUID& id, Problems& problems);

    StyleFolder& m_folder;
};

} // namespace designspec
