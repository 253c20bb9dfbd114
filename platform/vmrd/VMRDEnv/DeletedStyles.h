// The folder of the deleted styles: a file of each, under a name that no other has there.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/vmrd/VMRDEnv/StyleFile.h"

namespace designspec {

struct DeletedStyle {
    CString file; // name, in the folder of the deleted ones
    CString name; // of the first style in it
    GUID id;
};

// Names that are returned are empty after a failure.
class DeletedStyles {
public:
    // `path` is that of the folder, which is made when something goes into it.
    DeletedStyles(CString path, CString library);

    CString PathOf(const CString& file) const;
    // `file`, or with "(1)", "(2)" … behind its stem, as the first that is not taken.
    static CString FreeName(const CString& file,
                            const std::function<std::optional<bool>(const CString& name)>& isTaken);
    // The one that no file has here.
    CString FreeName(const CString& file, Problems& problems) const;

    // Puts a copy of what stands at `path`, or that itself, or a document, here as `file`, or under
    // a name made from that; its name.
    CString Copy(const CString& path, const CString& file, Problems& problems) const;
    CString Move(const CString& path, const CString& file, Problems& problems) const;
    CString Save(const CXTPPropExchangeXMLNode& root, const CString& file,
                 Problems& problems) const;

    // Notes where what stood at `path` went.
    void Tell(const CString& path, const CString& file, Problems& problems) const;

    // The styles in a file. Nothing when it cannot be read.
    std::optional<std::vector<StyleEntry>> Entries(const CString& file, Problems& problems) const;
    // Those whose files can be read, by file name.
    std::vector<DeletedStyle> List(Problems& problems) const;

private:
    // Such a name when the folder is there.
    CString Place(const CString& file, Problems& problems) const;

    CString m_path;
    CString m_library;
};

} // namespace designspec
