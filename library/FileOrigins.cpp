#include "library/FileOrigins.h"

#include <algorithm>

namespace designspec {

void FileOrigins::Add(const Origin& origin)
{
    m_byID[origin.id].push_back(origin);
    m_byFile[origin.file].push_back(origin.id);
}

const std::vector<Origin>& FileOrigins::Of(const GUID& id) const
{
    static const std::vector<Origin> none;
    const auto found = m_byID.find(id);
    return found == m_byID.end() ? none : found->second;
}

const Origin* FileOrigins::LastOf(const GUID& id) const
{
    const std::vector<Origin>& its = Of(id);
    return its.empty() ? nullptr : &its.back();
}

bool FileOrigins::Has(const GUID& id, const CString& file) const
{
    const std::vector<Origin>& its = Of(id);
    return std::any_of(its.begin(), its.end(),
                       [&](const Origin& origin) { return origin.file == file; });
}

bool FileOrigins::HasElsewhere(const GUID& id, const CString& file) const
{
    const std::vector<Origin>& its = Of(id);
    return std::any_of(its.begin(), its.end(),
                       [&](const Origin& origin) { return origin.file != file; });
}

std::vector<GUID> FileOrigins::In(const CString& file) const
{
    const auto found = m_byFile.find(file);
    return found == m_byFile.end() ? std::vector<GUID>() : found->second;
}

void FileOrigins::LeaveFile(const GUID& id, const CString& file)
{
    const auto found = m_byFile.find(file);
    if (found == m_byFile.end()) return;
    std::erase(found->second, id);
    if (found->second.empty()) m_byFile.erase(found);
}

void FileOrigins::Move(const GUID& id, const CString& file, const CString& to)
{
    Remove(id, file);
    Add({id, to});
}

void FileOrigins::Remove(const GUID& id, const CString& file)
{
    LeaveFile(id, file);
    const auto found = m_byID.find(id);
    if (found == m_byID.end()) return;
    std::erase_if(found->second, [&](const Origin& origin) { return origin.file == file; });
    if (found->second.empty()) m_byID.erase(found);
}

void FileOrigins::Remove(const GUID& id)
{
    for (const Origin& origin : Of(id))
        LeaveFile(id, origin.file);
    m_byID.erase(id);
}

void FileOrigins::RemoveFile(const CString& file)
{
    for (const GUID& id : In(file)) {
        const auto found = m_byID.find(id);
        if (found == m_byID.end()) continue; // twice in that file
        std::erase_if(found->second, [&](const Origin& origin) { return origin.file == file; });
        if (found->second.empty()) m_byID.erase(found);
    }
    m_byFile.erase(file);
}

void FileOrigins::Clear()
{
    m_byID.clear();
    m_byFile.clear();
}

} // namespace designspec
