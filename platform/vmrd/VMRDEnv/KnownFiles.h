// What each file of a folder held when it was last loaded or saved here: what is in it otherwise
// was written by somebody else.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/mfc/String.h"
#include "platform/windows/Guid.h"

namespace designspec {

class KnownFiles {
public:
    // What tells one content of a file from another.
    struct Content {
        // `ids` are those of the styles in it.
        explicit Content(std::string_view bytes, std::vector<GUID> ids = {});
        bool IsOf(std::string_view bytes) const;

        size_t size;
        std::uint64_t fingerprint;
        std::vector<GUID> ids;
    };
    void Set(const CString& file, Content content) { m_files[file] = std::move(content); }
    void Set(const CString& file, std::string_view bytes, std::vector<GUID> ids = {})
    {
        Set(file, Content(bytes, std::move(ids)));
    }
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
    const Content* ContentOf(const CString& file) const;

    // Nothing: there is no such file. Each save asks for every name in the folder.
    std::unordered_map<CString, std::optional<Content>> m_files;
};

} // namespace designspec
