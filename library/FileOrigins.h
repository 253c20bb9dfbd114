// Which file of the folder each specification was loaded from or saved to last.
#pragma once

#include <optional>
#include <unordered_map>
#include <vector>

#include "library/SpecificationList.h"

namespace designspec {

struct Origin {
    GUID id;
    CString file;
    bool hasID = true; // false: the file does not tell the identity
};

class FileOrigins {
public:
    void Add(const Origin& origin);
    // Those of a specification, the last one behind; none when it has no file.
    std::vector<Origin> Of(const GUID& id) const;
    std::optional<Origin> LastOf(const GUID& id) const;
    bool Has(const GUID& id, const CString& file) const;
    // Whether it stands in another file as well.
    bool HasElsewhere(const GUID& id, const CString& file) const;
    // Those that the file holds, in its order.
    std::vector<GUID> In(const CString& file) const;

    // The specification stands in that other file instead.
    void Move(const GUID& id, const CString& file, const CString& to);
    void Remove(const GUID& id, const CString& file);
    void Remove(const GUID& id);
    void RemoveFile(const CString& file);
    void Clear();

private:
    // The name of a file is long, and stands once.
    using ByFile = std::unordered_map<CString, std::vector<GUID>>;
    struct Place {
        ByFile::value_type* file;
        bool hasID;
    };
    const std::vector<Place>& PlacesOf(const GUID& id) const;
    void RemovePlaces(const GUID& id, const ByFile::value_type& file);
    void LeaveFile(const GUID& id, ByFile::value_type& file);

    std::unordered_map<GUID, std::vector<Place>, GuidHash> m_byID;
    ByFile m_byFile;
};

} // namespace designspec
