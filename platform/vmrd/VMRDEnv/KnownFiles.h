// What each file of a folder held when it was last loaded or saved here: what is in it otherwise
// was written by somebody else.
#pragma once

#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/mfc/String.h"
#include "platform/windows/Guid.h"

namespace designspec {

class KnownFiles {
public:
    // `ids` are those of the styles in it.
    void Set(const CString& file, std::string_view bytes, std::vector<GUID> ids = {});
    void SetGone(const CString& file) { m_files[file] = std::nullopt; }
    void Clear() { m_files.clear(); }

    // Whether anything is known of it, be it that it has gone.
    bool Has(const CString& file) const { return m_files.contains(file); }
    bool IsGone(const CString& file) const;
    bool Held(const CString& file, std::string_view bytes) const;
    bool Held(const CString& file, const GUID& id) const;
    // Those that were there, in no order.
    CStringArray Names() const;

private:
    struct Content {
        size_t size, hash; // tell two contents apart
        std::vector<GUID> ids;
    };
    const Content* ContentOf(const CString& file) const;

    // Nothing: there is no such file. Each save asks for every name in the folder.
    std::unordered_map<CString, std::optional<Content>> m_files;
};

} // namespace designspec
