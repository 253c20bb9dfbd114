#include "platform/vmrd/VMRDEnv/StyleFolder.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "base/File.h"
#include "base/Format.h"
#include "base/Profile.h"
#include "base/Text.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

constexpr wchar_t kSettings[] = L"setting.ini";
constexpr size_t kSizeLimit = 32 << 20; // of a file of styles, in bytes

bool Refuse(const CString& path, const wchar_t* why, Problems& problems)
{
    AddProblem(problems, Severity::Error, path, 0, why);
    return false;
}

auto CountOf(const GUID& id, const std::vector<StyleEntry>& entries)
{
    return std::count_if(entries.begin(), entries.end(),
                         [&](const StyleEntry& entry) { return entry.id == id; });
}

CString InFolder(const CString& folder, const CString& file)
{
    return folder + L'\\' + file;
}

} // namespace

CString StylesFolderOf(const CString& project)
{
    return InFolder(project, kStylesFolder);
}

StyleFolder::StyleFolder(CString path, CString library)
    : m_path(std::move(path)), m_library(std::move(library))
{
}

CString StyleFolder::DeletedPath() const
{
    return InFolder(m_path, L"已删除");
}

bool StyleFolder::HasPlace() const
{
    return PathFileExists(m_path.substr(0, m_path.find_last_of(L"\\/")));
}

CString StyleFolder::PathOf(const CString& file) const
{
    return InFolder(m_path, file);
}

CString StyleFolder::DeletedPathOf(const CString& file) const
{
    return InFolder(DeletedPath(), file);
}

void StyleFolder::MoveTo(const CString& path)
{
    if (path == m_path) return;
    m_path = path;
    Forget();
}

CStringArray StyleFolder::Files(Problems& problems) const
{
    return FindFiles(m_path, kStyleFileEnding, problems);
}

bool StyleFolder::Has(const CString& file) const
{
    return PathFileExists(PathOf(file));
}

std::optional<bool> StyleFolder::Holds(const CString& file, const GUID& id,
                                       Problems& problems) const
{
    const auto entries = Entries(PathOf(file), problems);
    if (!entries) return std::nullopt;
    return entries->size() == 1 || CountOf(id, *entries) > 0;
}

StyleFolder::Content StyleFolder::ContentOf(std::string_view bytes)
{
    return {bytes.size(), std::hash<std::string_view>()(bytes)};
}

// What stands in the file after this folder has changed it.
void StyleFolder::Remember(const CString& file)
{
    std::string bytes;
    Problems unread;
    if (ReadWholeFile(PathOf(file), bytes, kSizeLimit, unread))
        m_known[file] = ContentOf(bytes);
    else
        m_known[file] = std::nullopt;
}

bool StyleFolder::IsKnown(const CString& file) const
{
    const auto known = m_known.find(file);
    if (known == m_known.end()) return false;
    if (!Has(file)) return !known->second;
    std::string bytes;
    Problems unread;
    return known->second && ReadWholeFile(PathOf(file), bytes, kSizeLimit, unread) &&
           ContentOf(bytes) == known->second;
}

bool StyleFolder::IsAsKnown() const
{
    Problems problems;
    const CStringArray files = Files(problems);
    return problems.empty() &&
           std::all_of(files.begin(), files.end(),
                       [&](const CString& file) { return IsKnown(file); }) &&
           std::all_of(m_known.begin(), m_known.end(),
                       [&](const auto& known) { return !known.second || Has(known.first); });
}

bool StyleFolder::Load(const CString& file, CXTPPropExchangeXMLNode& root, Problems& problems)
{
    std::string bytes;
    if (!ReadWholeFile(PathOf(file), bytes, kSizeLimit, problems)) return false;
    m_known[file] = ContentOf(bytes);
    const bool loaded = root.LoadFromBytes(bytes, PathOf(file));
    if (!loaded) Append(problems, root.TakeProblems());
    return loaded;
}

bool StyleFolder::Save(const CString& file, const CXTPPropExchangeXMLNode& root, Problems& problems)
{
    if (!HasPlace()) return Refuse(m_path, L"项目文件夹已不存在, 没有保存", problems);
    if (!CreateFolder(m_path, problems)) return false;
    const std::string bytes = root.SaveToBytes();
    const bool saved = WriteWholeFile(PathOf(file), bytes, problems);
    if (saved) m_known[file] = ContentOf(bytes);
    return saved;
}

bool StyleFolder::Delete(const CString& file, Problems& problems)
{
    const bool deleted = DeleteFile(PathOf(file), problems);
    if (deleted) m_known[file] = std::nullopt;
    return deleted;
}

CString StyleFolder::Setting(const wchar_t* section, const wchar_t* key, Problems& problems) const
{
    return GetPrivateProfileString(section, key, L"", PathOf(kSettings), problems);
}

bool StyleFolder::SetSetting(const wchar_t* section, const wchar_t* key, const CString& value,
                             Problems& problems)
{
    const bool set =
        WritePrivateProfileString(section, key, value.c_str(), PathOf(kSettings), problems);
    Remember(kSettings);
    return set;
}

// A name in the folder of the deleted ones that no file has yet.
CString StyleFolder::FreeDeletedName(const CString& file) const
{
    const CString stem = file.substr(0, file.size() - std::size(kStyleFileEnding) + 1);
    CString name = file;
    for (int k = 1; PathFileExists(DeletedPathOf(name)); ++k)
        name = Format(L"%s(%d)%s", stem, k, CString(kStyleFileEnding));
    return name;
}

CString StyleFolder::KeepCopy(const CString& file, Problems& problems)
{
    if (!CreateFolder(DeletedPath(), problems)) return {};
    const CString copy = FreeDeletedName(file);
    return CopyFile(PathOf(file), DeletedPathOf(copy), problems) ? copy : CString();
}

CString StyleFolder::SaveDeleted(const CString& file, const CXTPPropExchangeXMLNode& root,
                                 Problems& problems)
{
    if (!CreateFolder(DeletedPath(), problems)) return {};
    const CString name = FreeDeletedName(file);
    return WriteWholeFile(DeletedPathOf(name), root.SaveToBytes(), problems) ? name : CString();
}

void StyleFolder::DropCopy(const CString& copy, Problems& problems)
{
    DeleteFile(DeletedPathOf(copy), problems);
}

std::optional<std::vector<StyleEntry>> StyleFolder::Entries(const CString& path,
                                                            Problems& problems) const
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (root.LoadFromFile(path.c_str())) return StyleEntries(root, m_library);
    Append(problems, root.TakeProblems());
    return std::nullopt;
}

// Leaves in the file what else it holds.
bool StyleFolder::TakeOut(const CString& file, const GUID& id, Problems& problems)
{
    CXTPPropExchangeXMLNode root(false, kStyleLibraryRoot);
    if (!Load(file, root, problems)) return false;
    CXTPPropExchangeEnumerator all =
        root.GetEnumerator((StylesPath(m_library) + L"/Style").c_str());
    while (all.HasNext()) {
        CXTPPropExchange style = all.GetNext();
        if (HasID(style, id)) style.RemoveSection();
    }
    return Save(file, root, problems);
}

bool StyleFolder::SetAside(const CString& file, const GUID& id, Problems& problems)
{
    if (!IsFileName(file)) return Refuse(m_path, L"文件名无效", problems);
    const CString path = PathOf(file);
    const auto entries = Entries(path, problems);
    if (!entries) return false;
    const auto its = CountOf(id, *entries);
    const bool alone = entries->size() == 1 || its == std::ssize(*entries);
    if (entries->empty() || (!alone && its == 0))
        return Refuse(path, L"文件中没有要删除的样式", problems);

    CString aside;
    if (alone) {
        if (!CreateFolder(DeletedPath(), problems)) return false;
        aside = FreeDeletedName(file);
        if (!MoveFile(path, DeletedPathOf(aside), problems)) return false;
        m_known[file] = std::nullopt;
    } else {
        aside = KeepCopy(file, problems);
        if (aside.empty()) return false;
        if (!TakeOut(file, id, problems)) {
            // Where the style has left the file all the same, the copy is the only one.
            const auto left = Entries(path, problems);
            if (left && CountOf(id, *left) > 0) DropCopy(aside, problems);
            return false;
        }
    }
    AddProblem(problems, Severity::Note, path, 0,
               L"已移至 " + ToWide(NativePath(DeletedPathOf(aside))));
    return true;
}

bool StyleFolder::SetAside(const GUID& id, Problems& problems)
{
    bool done = true;
    for (const CString& file : Files(problems)) {
        const auto entries = Entries(PathOf(file), problems);
        if (!entries) {
            // By its name, the style was saved there.
            if (file.find(VMRDPub::GUIDToStr(id)) != CString::npos) done = false;
        } else if (CountOf(id, *entries) > 0) {
            done = SetAside(file, id, problems) && done;
        }
    }
    return done;
}

std::vector<DeletedStyle> StyleFolder::Deleted(Problems& problems) const
{
    std::vector<DeletedStyle> deleted;
    for (const CString& file : FindFiles(DeletedPath(), kStyleFileEnding, problems)) {
        const auto entries = Entries(DeletedPathOf(file), problems);
        if (entries && !entries->empty())
            deleted.push_back({file, entries->front().name, entries->front().id});
    }
    return deleted;
}

bool StyleFolder::BringBack(const CString& file, Problems& problems)
{
    if (!IsFileName(file)) return Refuse(DeletedPath(), L"文件名无效", problems);
    const CString target = PathOf(file);
    if (PathFileExists(target)) return Refuse(target, L"无法恢复: 同名文件已存在", problems);
    const bool moved = MoveFile(DeletedPathOf(file), target, problems);
    if (moved) Remember(file);
    return moved;
}

} // namespace designspec
