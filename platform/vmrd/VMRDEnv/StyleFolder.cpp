#include "platform/vmrd/VMRDEnv/StyleFolder.h"

#include <algorithm>
#include <utility>

#include "base/File.h"
#include "base/FileLock.h"
#include "base/Profile.h"
#include "base/Text.h"
#include "platform/vmrd/VMRDEnv/StyleRemoval.h"
#include "platform/vmrd/VMRDEnv/StyleReturn.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

constexpr wchar_t kSettings[] = L"setting.ini";
constexpr wchar_t kLock[] = L".lock";

// Nothing is in a folder that is none; least of all what stands at the root.
CString InFolder(const CString& folder, const CString& file)
{
    return folder.empty() ? CString() : folder + L'\\' + file;
}

std::vector<GUID> Identities(const CXTPPropExchange& root, const CString& library)
{
    std::vector<GUID> ids;
    for (const StyleEntry& entry : StyleEntries(root, library))
        ids.push_back(entry.id);
    return ids;
}

} // namespace

CString StylesFolderOf(const CString& project)
{
    return InFolder(project, kStylesFolder);
}

StyleFolder::StyleFolder(CString path, CString library)
    : m_path(std::move(path)), m_library(std::move(library)), m_lock(std::make_unique<FileLock>())
{
}

StyleFolder::~StyleFolder() = default;

// Holding it

StyleFolder::Held StyleFolder::Hold(Problems& problems, std::chrono::milliseconds patience)
{
    if (m_holds == 0) {
        m_wasMissing = !PathFileExists(m_path);
        if (m_wasMissing && !HasPlace()) {
            Refuse(m_path, L"项目文件夹已不存在, 没有保存", problems);
            return Held(nullptr);
        }
        if (!CreateFolder(m_path, problems)) return Held(nullptr);
        if (!m_lock->Take(PathOf(kLock), patience, m_notice, problems)) return Held(nullptr);
    }
    ++m_holds;
    return Held(this);
}

StyleFolder::Held::~Held()
{
    if (m_folder) m_folder->LetGo();
}

void StyleFolder::LetGo()
{
    if (--m_holds > 0) return;
    m_lock->Release();
    if (m_wasMissing) RemoveEmptyFolder(m_path);
}

void StyleFolder::SetPatience(std::chrono::milliseconds patience,
                              std::function<void(const CString&)> notice)
{
    m_patience = patience;
    m_notice = std::move(notice);
}

bool StyleFolder::IsBusy() const
{
    return PathFileExists(PathOf(kLock));
}

// What is in it

CString StyleFolder::DeletedPath() const
{
    return InFolder(m_path, L"已删除");
}

bool StyleFolder::HasPlace() const
{
    Problems unseen;
    return PathFileExists(m_path.substr(0, m_path.find_last_of(L"\\/")), unseen).value_or(true);
}

CString StyleFolder::PathOf(const CString& file) const
{
    return InFolder(m_path, file);
}

StyleHistory StyleFolder::History() const
{
    return StyleHistory(InFolder(m_path, L"历史"));
}

DeletedStyles StyleFolder::Aside() const
{
    return {DeletedPath(), m_library};
}

void StyleFolder::MoveTo(const CString& path)
{
    if (path == m_path) return;
    m_path = path;
    m_tidied = false;
    Forget();
}

void StyleFolder::Forget()
{
    m_known.Clear();
}

CStringArray StyleFolder::Files(Problems& problems) const
{
    return FindFiles(m_path, kStyleFileEnding, problems);
}

std::optional<bool> StyleFolder::Has(const CString& file, Problems& problems) const
{
    return PathFileExists(PathOf(file), problems);
}

std::optional<bool> StyleFolder::Holds(const CString& file, const GUID& id,
                                       Problems& problems) const
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (root.LoadFromFile(PathOf(file).c_str())) return HoldsStyle(root, m_library, id);
    Append(problems, root.TakeProblems());
    return std::nullopt;
}

std::optional<std::vector<StyleEntry>> StyleFolder::Entries(const CString& file,
                                                            Problems& problems) const
{
    return EntriesOf(PathOf(file), m_library, problems);
}

// What stands in the file after this folder has changed it.
void StyleFolder::Remember(const CString& file)
{
    std::string bytes;
    Problems unread;
    if (ReadWholeFile(PathOf(file), bytes, unread))
        m_known.Set(file, bytes);
    else
        m_known.SetGone(file);
}

bool StyleFolder::IsKnown(const CString& file) const
{
    Problems unread;
    const auto there = m_known.Has(file) ? Has(file, unread) : std::nullopt;
    if (!there) return false;
    if (!*there) return m_known.IsGone(file);
    std::string bytes;
    return !m_known.IsGone(file) && ReadWholeFile(PathOf(file), bytes, unread) &&
           m_known.Held(file, bytes);
}

bool StyleFolder::IsAsKnown() const
{
    Problems problems;
    const CStringArray files = Files(problems);
    const CStringArray known = m_known.Names();
    return problems.empty() &&
           std::all_of(files.begin(), files.end(),
                       [&](const CString& file) { return IsKnown(file); }) &&
           std::all_of(known.begin(), known.end(),
                       [&](const CString& file) { return Has(file, problems).value_or(false); });
}

CStringArray StyleFolder::Strangers(Problems& problems) const
{
    return FindFiles(m_path, kStyleFileEnding, problems,
                     [&](const CString& file) { return !m_known.Has(file); });
}

bool StyleFolder::Load(const CString& file, CXTPPropExchangeXMLNode& root, Problems& problems)
{
    std::optional<KnownFiles::Content> content;
    const bool loaded = Read(file, root, content, problems);
    if (content) Know(file, std::move(*content));
    return loaded;
}

bool StyleFolder::Read(const CString& file, CXTPPropExchangeXMLNode& root,
                       std::optional<KnownFiles::Content>& content, Problems& problems) const
{
    const CString path = PathOf(file);
    std::string bytes;
    if (!ReadWholeFile(path, bytes, problems)) return false;
    const bool loaded = root.LoadFromBytes(bytes, path);
    content.emplace(bytes, Identities(root, m_library));
    if (!loaded) Append(problems, root.TakeProblems());
    return loaded;
}

void StyleFolder::Know(const CString& file, KnownFiles::Content content)
{
    m_known.Set(file, std::move(content));
}

bool StyleFolder::Save(const CString& file, const CXTPPropExchangeXMLNode& root, Problems& problems)
{
    return Save(file, root, {}, problems);
}

bool StyleFolder::Save(const CString& file, const CXTPPropExchangeXMLNode& root,
                       const Replaced& replaced, Problems& problems)
{
    const Held held = Hold(problems);
    if (!held) return false;
    if (!std::exchange(m_tidied, true))
        for (const CString& folder : {m_path, DeletedPath()})
            DeleteLeftTemporaries(folder);
    const std::string bytes = root.SaveToBytes();
    KeepVersions(replaced, bytes, problems);
    const bool saved = WriteWholeFile(PathOf(file), bytes, problems);
    if (saved) m_known.Set(file, bytes, Identities(root, m_library));
    return saved;
}

// The file as it is when the style is all that it holds; else a document of the style alone, with
// its identity. Nothing when it does not hold it, and with a problem when it cannot be read.
std::optional<std::string> StyleFolder::VersionIn(const CString& file, const GUID& id,
                                                  Problems& problems) const
{
    const CString path = PathOf(file);
    std::string bytes;
    CXTPPropExchangeXMLNode root(false, kStyleLibraryRoot);
    if (!PathFileExists(path, problems).value_or(false) || !ReadWholeFile(path, bytes, problems) ||
        !root.LoadFromBytes(bytes, path))
        return std::nullopt;
    const std::vector<StyleEntry> entries = StyleEntries(root, m_library);
    if (CountOf(id, entries) > 0) {
        if (entries.size() == 1) return bytes;
        Reduce(root, m_library, id, true);
        return root.SaveToBytes();
    }
    if (entries.size() != 1) return std::nullopt;
    CXTPPropExchange style =
        root.GetEnumerator((StylesPath(m_library) + L"/Style").c_str()).GetNext();
    CString identity = VMRDPub::GUIDToStr(id);
    style.EnableCompactMode(true);
    PX_String(&style, L"ID", identity);
    return root.SaveToBytes();
}

void StyleFolder::KeepVersions(const Replaced& replaced, std::string_view next,
                               Problems& problems) const
{
    for (const CString& file : replaced.files) {
        Problems unkept;
        const auto version = VersionIn(file, replaced.id, unkept);
        if (version) History().Keep(replaced.id, *version, next, PathOf(file), unkept);
        for (Problem& one : unkept) {
            one.text = L"以前的内容没有存入历史(保存照常进行): " + one.text;
            problems.push_back(std::move(one));
        }
    }
}

bool StyleFolder::Delete(const CString& file, Problems& problems)
{
    const Held held = Hold(problems);
    const bool deleted = held && DeleteFile(PathOf(file), problems);
    if (deleted) m_known.SetGone(file);
    return deleted;
}

CString StyleFolder::Setting(const wchar_t* section, const wchar_t* key, Problems& problems) const
{
    return GetPrivateProfileString(section, key, L"", PathOf(kSettings), problems);
}

bool StyleFolder::SetSetting(const wchar_t* section, const wchar_t* key, const CString& value,
                             Problems& problems)
{
    const Held held = Hold(problems);
    if (!held) return false;
    const bool set =
        WritePrivateProfileString(section, key, value.c_str(), PathOf(kSettings), problems);
    Remember(kSettings);
    return set;
}

CString StyleFolder::FreeName(const CString& file, Problems& problems) const
{
    return DeletedStyles::FreeName(file, [&](const CString& name) {
        const auto here = Has(name, problems);
        return here && !*here ? PathFileExists(Aside().PathOf(name), problems) : here;
    });
}

CString StyleFolder::KeepCopy(const CString& file, Problems& problems)
{
    const Held held = Hold(problems);
    return held ? Aside().Copy(PathOf(file), file, problems) : CString();
}

CString StyleFolder::SaveDeleted(const CString& file, const CXTPPropExchangeXMLNode& root,
                                 Problems& problems)
{
    const Held held = Hold(problems);
    return held ? Aside().Save(root, file, problems) : CString();
}

void StyleFolder::DropCopy(const CString& copy, Problems& problems)
{
    if (const Held held = Hold(problems)) DeleteFile(Aside().PathOf(copy), problems);
}

bool StyleFolder::SetAside(const CString& file, Problems& problems)
{
    if (!IsFileName(file)) return Refuse(m_path, L"文件名无效", problems);
    const Held held = Hold(problems);
    const CString aside = held ? Aside().Move(PathOf(file), file, problems) : CString();
    if (aside.empty()) return false;
    m_known.SetGone(file);
    Aside().Tell(PathOf(file), aside, problems);
    return true;
}

bool StyleFolder::SetAside(const CString& file, const GUID& id, Problems& problems)
{
    return StyleRemoval(*this).FromFile(file, id, problems);
}

bool StyleFolder::SetAside(const GUID& id, Problems& problems)
{
    return StyleRemoval(*this).FromAll(id, problems);
}

std::vector<DeletedStyle> StyleFolder::Deleted(Problems& problems) const
{
    return Aside().List(problems);
}

std::vector<StyleEntry> StyleFolder::Present(Problems& problems) const
{
    std::vector<StyleEntry> present;
    for (const CString& file : Files(problems)) {
        Problems unread; // is told when the folder is loaded
        if (const auto entries = Entries(file, unread))
            present.insert(present.end(), entries->begin(), entries->end());
    }
    return present;
}

bool StyleFolder::BringBack(const CString& file, Problems& problems)
{
    const Held held = Hold(problems);
    if (!held) return false;
    Problems unlisted;
    std::vector<StyleEntry> present = Present(unlisted);
    const bool isListed = !HasError(unlisted);
    Append(problems, std::move(unlisted));
    return isListed && BringBack(file, present, problems);
}

bool StyleFolder::BringBack(const CString& file, std::vector<StyleEntry>& present,
                            Problems& problems)
{
    return StyleReturn(*this).BringBack(file, present, problems);
}

bool StyleFolder::MoveIn(const CString& path, const CString& file, Problems& problems)
{
    const Held held = Hold(problems);
    const bool moved = held && MoveFile(path, PathOf(file), problems);
    if (moved) Remember(file);
    return moved;
}

} // namespace designspec
