#include "library/FileOrigins.h"

#include <algorithm>

namespace designspec {

void FileOrigins::Add(const Origin& origin)
{
    auto& file = *m_byFile.try_emplace(origin.file).first;
    file.second.push_back(origin.id);
    m_byID[origin.id].push_back({&file, origin.hasID});
}

const std::vector<FileOrigins::Place>& FileOrigins::PlacesOf(const GUID& id) const
{
    static const std::vector<Place> none;
    const auto found = m_byID.find(id);
    return found == m_byID.end() ? none : found->second;
}

std::vector<Origin> FileOrigins::Of(const GUID& id) const
{
    std::vector<Origin> origins;
    for (const Place& place : PlacesOf(id))
        origins.push_back({id, place.file->first, place.hasID});
    return origins;
}

std::optional<Origin> FileOrigins::LastOf(const GUID& id) const
{
    const std::vector<Place>& its = PlacesOf(id);
    if (its.empty()) return std::nullopt;
    return Origin{id, its.back().file->first, its.back().hasID};
}

bool FileOrigins::Has(const GUID& id, const CString& file) const
{
    const std::vector<Place>& its = PlacesOf(id);
    return std::any_of(its.begin(), its.end(),
                       [&](const Place& place) { return place.file->first == file; });
}

bool FileOrigins::HasElsewhere(const GUID& id, const CString& file) const
{
    const std::vector<Place>& its = PlacesOf(id);
    return std::any_of(its.begin(), its.end(),
                       [&](const Place& place) { return place.file->first != file; });
}

std::vector<GUID> FileOrigins::In(const CString& file) const
{
    const auto found = m_byFile.find(file);
    return found == m_byFile.end() ? std::vector<GUID>() : found->second;
}

// Nothing points to a file any more that it takes out.
void FileOrigins::LeaveFile(const GUID& id, ByFile::value_type& file)
{
    std::erase(file.second, id);
    if (file.second.empty()) m_byFile.erase(m_byFile.find(file.first));
}

void FileOrigins::RemovePlaces(const GUID& id, const ByFile::value_type& file)
{
    const auto found = m_byID.find(id);
    if (found == m_byID.end()) return;
    std::erase_if(found->second, [&](const Place& place) { return place.file == &file; });
    if (found->second.empty()) m_byID.erase(found);
}

void FileOrigins::Move(const GUID& id, const CString& file, const CString& to)
{
    Remove(id, file);
    Add({id, to});
}

void FileOrigins::Remove(const GUID& id, const CString& file)
{
    const auto found = m_byFile.find(file);
    if (found == m_byFile.end()) return;
    RemovePlaces(id, *found);
    LeaveFile(id, *found);
}

void FileOrigins::Remove(const GUID& id)
{
    while (!PlacesOf(id).empty()) {
        ByFile::value_type& file = *PlacesOf(id).back().file;
        RemovePlaces(id, file);
        LeaveFile(id, file);
    }
}

void FileOrigins::RemoveFile(const CString& file)
{
    const auto found = m_byFile.find(file);
    if (found == m_byFile.end()) return;
    for (const GUID& id : found->second)
        RemovePlaces(id, *found);
    m_byFile.erase(found);
}

void FileOrigins::Clear()
{
    m_byID.clear();
    m_byFile.clear();
}

} // namespace designspec
