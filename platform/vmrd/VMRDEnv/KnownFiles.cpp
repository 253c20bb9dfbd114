#include "platform/vmrd/VMRDEnv/KnownFiles.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace designspec {

void KnownFiles::Set(const CString& file, std::string_view bytes, std::vector<GUID> ids)
{
    m_files[file] = Content{bytes.size(), std::hash<std::string_view>()(bytes), std::move(ids)};
}

const KnownFiles::Content* KnownFiles::ContentOf(const CString& file) const
{
    const auto found = m_files.find(file);
    return found != m_files.end() && found->second ? &*found->second : nullptr;
}

bool KnownFiles::IsGone(const CString& file) const
{
    return Has(file) && !ContentOf(file);
}

bool KnownFiles::Held(const CString& file, std::string_view bytes) const
{
    const Content* const content = ContentOf(file);
    return content && content->size == bytes.size() &&
           content->hash == std::hash<std::string_view>()(bytes);
}

bool KnownFiles::Held(const CString& file, const GUID& id) const
{
    const Content* const content = ContentOf(file);
    return content && std::find(content->ids.begin(), content->ids.end(), id) != content->ids.end();
}

CStringArray KnownFiles::Names() const
{
    CStringArray names;
    for (const auto& [name, content] : m_files)
        if (content) names.push_back(name);
    return names;
}

} // namespace designspec
