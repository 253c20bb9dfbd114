#include "platform/vmrd/VMRDEnv/StyleFolder.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

#include "base/File.h"
#include "base/FileLock.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Profile.h"
#include "base/Text.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

constexpr wchar_t kSettings[] = L"setting.ini";
constexpr wchar_t kLock[] = L".lock";
constexpr size_t kSizeLimit = 32 << 20; // of a file of styles, in bytes

bool Refuse(const CString& path, const wchar_t* why, Problems& problems)
{
    AddProblem(problems, Severity::Error, path, 0, why);
    return false;
}

void TellAside(const CString& path, const CString& asidePath, Problems& problems)
{
    AddProblem(problems, Severity::Note, path, 0, L"已移至 " + ToWide(NativePath(asidePath)));
}

auto CountOf(const GUID& id, const std::vector<StyleEntry>& entries)
{
    return std::count_if(entries.begin(), entries.end(),
                         [&](const StyleEntry& entry) { return entry.id == id; });
}

// Nothing is in a folder that is none; least of all what stands at the root.
CString InFolder(const CString& folder, const CString& file)
{
    return folder.empty() ? CString() : folder + L'\\' + file;
}

// The file's name, or the first one with a number behind its stem that is not taken; empty when
// that cannot be told.
CString FreeNameFor(const CString& file,
                    const std::function<std::optional<bool>(const CString&)>& isTaken)
{
    const CString stem = file.substr(0, file.size() - std::size(kStyleFileEnding) + 1);
    CString name = file;
    for (int k = 1;; ++k) {
        const auto taken = isTaken(name);
        if (!taken) return {};
        if (!*taken) return name;
        name = Format(L"%s(%d)%s", stem, k, CString(kStyleFileEnding));
    }
}

bool IsNamed(const CString& name, const std::vector<StyleEntry>& entries)
{
    return std::any_of(entries.begin(), entries.end(),
                       [&](const StyleEntry& entry) { return EqualNoCase(entry.name, name); });
}

// Leaves of the library's styles in the document those that are, or are not, of that identity.
void Reduce(CXTPPropExchange& root, const CString& library, const GUID& id, bool keepIt)
{
    CXTPPropExchangeEnumerator all = root.GetEnumerator((StylesPath(library) + L"/Style").c_str());
    while (all.HasNext()) {
        CXTPPropExchange style = all.GetNext();
        if (HasID(style, id) != keepIt) style.RemoveSection();
    }
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

CString StyleFolder::DeletedPathOf(const CString& file) const
{
    return InFolder(DeletedPath(), file);
}

void StyleFolder::MoveTo(const CString& path)
{
    if (path == m_path) return;
    m_path = path;
    m_tidied = false;
    Forget();
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

bool StyleFolder::Names(const CString& file, const GUID& id, Problems& problems) const
{
    const auto entries = Entries(PathOf(file), problems);
    return entries && CountOf(id, *entries) > 0;
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
    Problems unread;
    const auto there = Has(file, unread);
    if (!there) return false;
    if (!*there) return !known->second;
    std::string bytes;
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
           std::all_of(m_known.begin(), m_known.end(), [&](const auto& known) {
               return !known.second || Has(known.first, problems).value_or(false);
           });
}

CStringArray StyleFolder::Strangers(Problems& problems) const
{
    CStringArray files = Files(problems);
    std::erase_if(files, [&](const CString& file) { return m_known.contains(file); });
    return files;
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
    const Held held = Hold(problems);
    if (!held) return false;
    if (!std::exchange(m_tidied, true))
        for (const CString& folder : {m_path, DeletedPath()})
            DeleteLeftTemporaries(folder);
    const std::string bytes = root.SaveToBytes();
    const bool saved = WriteWholeFile(PathOf(file), bytes, problems);
    if (saved) m_known[file] = ContentOf(bytes);
    return saved;
}

bool StyleFolder::Delete(const CString& file, Problems& problems)
{
    const Held held = Hold(problems);
    const bool deleted = held && DeleteFile(PathOf(file), problems);
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
    const Held held = Hold(problems);
    if (!held) return false;
    const bool set =
        WritePrivateProfileString(section, key, value.c_str(), PathOf(kSettings), problems);
    Remember(kSettings);
    return set;
}

CString StyleFolder::FreeName(const CString& file, Problems& problems) const
{
    return FreeNameFor(file, [&](const CString& name) {
        const auto here = Has(name, problems);
        return here && !*here ? PathFileExists(DeletedPathOf(name), problems) : here;
    });
}

// A name in the folder of the deleted ones that no file has yet.
CString StyleFolder::FreeDeletedName(const CString& file, Problems& problems) const
{
    return FreeNameFor(
        file, [&](const CString& name) { return PathFileExists(DeletedPathOf(name), problems); });
}

CString StyleFolder::KeepCopy(const CString& file, Problems& problems)
{
    const Held held = Hold(problems);
    if (!held || !CreateFolder(DeletedPath(), problems)) return {};
    const CString copy = FreeDeletedName(file, problems);
    return !copy.empty() && CopyFile(PathOf(file), DeletedPathOf(copy), problems) ? copy
                                                                                  : CString();
}

CString StyleFolder::SaveDeleted(const CString& file, const CXTPPropExchangeXMLNode& root,
                                 Problems& problems)
{
    const Held held = Hold(problems);
    if (!held || !CreateFolder(DeletedPath(), problems)) return {};
    const CString name = FreeDeletedName(file, problems);
    const bool saved =
        !name.empty() && WriteWholeFile(DeletedPathOf(name), root.SaveToBytes(), problems);
    return saved ? name : CString();
}

void StyleFolder::DropCopy(const CString& copy, Problems& problems)
{
    if (const Held held = Hold(problems)) DeleteFile(DeletedPathOf(copy), problems);
}

std::optional<std::vector<StyleEntry>> StyleFolder::Entries(const CString& path,
                                                            Problems& problems) const
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (root.LoadFromFile(path.c_str())) return StyleEntries(root, m_library);
    Append(problems, root.TakeProblems());
    return std::nullopt;
}

// Puts a file with that style of the file alone among the deleted ones, under a name by which it
// can come back beside the file; the name, empty after a failure.
CString StyleFolder::KeepStyle(const CString& file, const GUID& id, Problems& problems)
{
    CXTPPropExchangeXMLNode root(false, kStyleLibraryRoot);
    bool kept = root.LoadFromFile(PathOf(file).c_str());
    const CString name = FreeName(file, problems);
    kept = kept && !name.empty();
    if (kept) {
        Reduce(root, m_library, id, true);
        kept =
            CreateFolder(DeletedPath(), problems) && root.SaveToFile(DeletedPathOf(name).c_str());
    }
    Append(problems, root.TakeProblems());
    return kept ? name : CString();
}

// Leaves in the file what else it holds.
bool StyleFolder::TakeOut(const CString& file, const GUID& id, Problems& problems)
{
    CXTPPropExchangeXMLNode root(false, kStyleLibraryRoot);
    if (!Load(file, root, problems)) return false;
    Reduce(root, m_library, id, false);
    return Save(file, root, problems);
}

bool StyleFolder::TakeApart(const CString& file, const GUID& id, Problems& problems)
{
    const CString aside = KeepStyle(file, id, problems);
    if (aside.empty()) return false;
    if (!TakeOut(file, id, problems)) {
        // Where the style has left the file all the same, the copy is the only one.
        const auto left = Entries(PathOf(file), problems);
        if (left && CountOf(id, *left) > 0) DropCopy(aside, problems);
        return false;
    }
    TellAside(PathOf(file), DeletedPathOf(aside), problems);
    return true;
}

bool StyleFolder::SetAside(const CString& file, Problems& problems)
{
    if (!IsFileName(file)) return Refuse(m_path, L"文件名无效", problems);
    const Held held = Hold(problems);
    if (!held || !CreateFolder(DeletedPath(), problems)) return false;
    const CString aside = FreeDeletedName(file, problems);
    if (aside.empty() || !MoveFile(PathOf(file), DeletedPathOf(aside), problems)) return false;
    m_known[file] = std::nullopt;
    TellAside(PathOf(file), DeletedPathOf(aside), problems);
    return true;
}

bool StyleFolder::SetAside(const CString& file, const GUID& id, Problems& problems)
{
    if (!IsFileName(file)) return Refuse(m_path, L"文件名无效", problems);
    const Held held = Hold(problems);
    if (!held) return false;
    const CString path = PathOf(file);
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!root.LoadFromFile(path.c_str())) {
        Append(problems, root.TakeProblems());
        return false;
    }
    const auto entries = StyleEntries(root, m_library);
    const auto its = CountOf(id, entries);
    const bool alone = entries.size() == 1 || its == std::ssize(entries);
    if (entries.empty() || (!alone && its == 0))
        return Refuse(path, L"文件中没有要删除的样式", problems);
    // The only style need not bear the identity, and then cannot be taken out by it.
    const bool isTheWhole = alone && (its == 0 || !HoldsMore(root, m_library));
    return isTheWhole ? SetAside(file, problems) : TakeApart(file, id, problems);
}

bool StyleFolder::SetAside(const GUID& id, Problems& problems)
{
    const Held held = Hold(problems);
    if (!held) return false;
    Problems unlisted;
    const CStringArray files = Files(unlisted);
    bool done = !files.empty() || !HasError(unlisted);
    Append(problems, std::move(unlisted));
    for (const CString& file : files) {
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

std::vector<StyleEntry> StyleFolder::Present(Problems& problems) const
{
    std::vector<StyleEntry> present;
    for (const CString& file : Files(problems)) {
        Problems unread; // is told when the folder is loaded
        if (const auto entries = Entries(PathOf(file), unread))
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
    if (!IsFileName(file)) return Refuse(DeletedPath(), L"文件名无效", problems);
    const Held held = Hold(problems);
    const auto coming = held ? Entries(DeletedPathOf(file), problems) : std::nullopt;
    if (!coming) return false;
    const auto isPresent = [&](const StyleEntry& one) { return CountOf(one.id, present) > 0; };
    if (!coming->empty() && std::all_of(coming->begin(), coming->end(), isPresent))
        return Refuse(DeletedPathOf(file), L"无法恢复: 库中已有同一标识的样式", problems);
    const auto isTaken = [&](const StyleEntry& one) { return IsNamed(one.name, present); };
    if (std::any_of(coming->begin(), coming->end(), isTaken))
        return BringBackRenamed(file, present, problems);
    if (!MoveBack(file, problems)) return false;
    present.insert(present.end(), coming->begin(), coming->end());
    return true;
}

bool StyleFolder::MoveBack(const CString& file, Problems& problems)
{
    const CString target = PathOf(file);
    const auto there = PathFileExists(target, problems);
    if (!there) return false;
    if (*there) return Refuse(target, L"无法恢复: 同名文件已存在", problems);
    const bool moved = MoveFile(DeletedPathOf(file), target, problems);
    if (moved) Remember(file);
    return moved;
}

// Written anew under the free name before it leaves the deleted ones.
bool StyleFolder::BringBackRenamed(const CString& file, std::vector<StyleEntry>& present,
                                   Problems& problems)
{
    const CString path = DeletedPathOf(file);
    CXTPPropExchangeXMLNode root(false, kStyleLibraryRoot);
    if (!root.LoadFromFile(path.c_str())) return Append(problems, root.TakeProblems()), false;
    CString newFile = file;
    CXTPPropExchangeEnumerator all =
        root.GetEnumerator((StylesPath(m_library) + L"/Style").c_str());
    while (all.HasNext()) {
        CXTPPropExchange style = all.GetNext();
        const CString name = style.Attribute(L"Name");
        CString newName = name;
        for (int k = 1; IsNamed(newName, present); ++k)
            newName = Format(L"%s(%d)", name, k);
        present.push_back({newName, VMRDPub::StrToGUID(style.Attribute(L"ID"))});
        if (newName == name) continue;
        AddProblem(problems, Severity::Note, path, style.Line(),
                   Format(L"样式“%s”重名,改称“%s”", name, newName));
        newFile = newName + style.Attribute(L"ID") + kStyleFileEnding;
        style.EnableCompactMode(true);
        PX_String(&style, L"Name", newName);
    }
    newFile = IsFileName(newFile) ? FreeName(newFile, problems) : CString();
    return !newFile.empty() && Save(newFile, root, problems) && DeleteFile(path, problems);
}

} // namespace designspec
