#include "library/SpecificationFolder.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "base/File.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "library/SpecificationReading.h"
#include "library/StyleName.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

constexpr wchar_t kSettingSection[] = L"设置";
constexpr wchar_t kSettingKey[] = L"默认样式";
constexpr size_t kSettingLength = 255;  // characters of a setting that are read
constexpr size_t kSizeLimit = 32 << 20; // of a file that is read, in bytes
constexpr std::chrono::milliseconds kReaderPatience{1000};
constexpr int kTries = 5; // to read a folder that others are changing

CString FileNameFor(const CString& name, const GUID& id)
{
    return name + VMRDPub::GUIDToStr(id) + kStyleFileEnding;
}

CString FileNameFor(const CDesignSpecification& specification)
{
    return FileNameFor(specification.Name(), specification.ID());
}

bool Contains(const CStringArray& names, const CString& name)
{
    return std::any_of(names.begin(), names.end(),
                       [&](const CString& one) { return EqualNoCase(one, name); });
}

// A document of styles that specifications are stored into.
class StyleStore {
public:
    // Begins with the file at `path`, or anew when there is none or `path` is empty. IsOpen tells
    // whether it could be read.
    explicit StyleStore(const CString& path)
        : m_open(CreateStylesNode(path, kLibraryName, kLibraryName, m_root, m_styles))
    {
        CXTPPropExchangeEnumerator all =
            m_root.GetEnumerator((StylesPath(kLibraryName) + L"/Style").c_str());
        while (all.HasNext()) {
            CXTPPropExchange style = all.GetNext();
            GUID id;
            if (!VMRDPub::ParseGUID(style.Attribute(L"ID"), id)) continue;
            // A second one of an identity would be read over the first.
            if (!m_sections.try_emplace(VMRDPub::GUIDToStr(id), style).second)
                style.RemoveSection();
        }
    }

    bool IsOpen() const { return m_open; }
    CXTPPropExchangeXMLNode& Root() { return m_root; }

    // In place of the one of its identity, or behind the others.
    void Store(const CDesignSpecification& specification)
    {
        CXTPPropExchange& section = m_sections[VMRDPub::GUIDToStr(specification.ID())];
        if (!section.IsSectionExists()) section = m_styles.AppendSection(L"Style");
        // The exchange goes both ways and so takes no const object; storing changes none.
        const_cast<CDesignSpecification&>(specification).DoPropExchange(&section);
    }

private:
    CXTPPropExchangeXMLNode m_root;
    CXTPPropExchange m_styles;
    bool m_open;
    std::unordered_map<CString, CXTPPropExchange> m_sections; // by identity
};

// Its own name, or with a number behind it the first one that no other has.
CString FreeName(const CDesignSpecification& specification,
                 const std::vector<std::unique_ptr<CDesignSpecification>>& others)
{
    const CString base = specification.Name();
    CString candidate = base;
    const auto isTaken = [&] {
        const NoCaseKey key(candidate);
        return std::any_of(others.begin(), others.end(), [&](const auto& other) {
            return other.get() != &specification && other->IsNamed(key);
        });
    };
    for (int k = 1; isTaken(); ++k)
        candidate = Format(L"%s(%d)", base, k);
    return candidate;
}

} // namespace

SpecificationFolder::SpecificationFolder(const CString& path) : m_files(path, kLibraryName) {}

SpecificationFolder::~SpecificationFolder() = default;

// The list

CDesignSpecification* SpecificationFolder::Item(int index) const
{
    return index >= 0 && index < Count() ? m_items[static_cast<size_t>(index)].get() : nullptr;
}

CDesignSpecification* SpecificationFolder::Find(const GUID& id) const
{
    for (const auto& item : m_items)
        if (item->HasID(id)) return item.get();
    return nullptr;
}

CDesignSpecification* SpecificationFolder::FindLast(const GUID& id) const
{
    for (auto item = m_items.rbegin(); item != m_items.rend(); ++item)
        if ((*item)->HasID(id)) return item->get();
    return nullptr;
}

CDesignSpecification* SpecificationFolder::Find(const wchar_t* name) const
{
    const NoCaseKey key(name);
    for (const auto& item : m_items)
        if (item->IsNamed(key)) return item.get();
    return nullptr;
}

int SpecificationFolder::IndexOf(const CDesignSpecification& specification) const
{
    for (int i = 0; i < Count(); ++i)
        if (Item(i) == &specification) return i;
    return -1;
}

CDesignSpecification& SpecificationFolder::Add(std::unique_ptr<CDesignSpecification> specification)
{
    specification->SetName(FreeName(*specification, m_items).c_str());
    return *m_items.emplace_back(std::move(specification));
}

std::unique_ptr<CDesignSpecification> SpecificationFolder::TakeOut(int index)
{
    const auto at = m_items.begin() + index;
    std::unique_ptr<CDesignSpecification> taken = std::move(*at);
    m_items.erase(at);
    return taken;
}

void SpecificationFolder::Clear()
{
    m_items.clear();
    m_origins.clear();
    m_unread.clear();
    m_strangers.reset();
    m_files.Forget();
}

CString SpecificationFolder::ProposedName() const
{
    return Format(L"规范%d", Count() + 1);
}

CString SpecificationFolder::ProposedCopyName(const CString& source) const
{
    CString name = StorableName(source, L"[副本]");
    for (int k = 1; Find(name.c_str()); ++k)
        name = StorableName(source, Format(L"[副本%d]", k));
    return name;
}

// The default one

std::optional<GUID> SpecificationFolder::Default(Problems& problems) const
{
    const CString setting = m_files.Setting(kSettingSection, kSettingKey, problems);
    const CString text = Trim(setting.substr(0, kSettingLength));
    if (text.empty()) return std::nullopt;
    GUID id;
    if (VMRDPub::ParseGUID(text, id) && Find(id)) return id;
    AddProblem(problems, Severity::Note, m_files.PathOf(L"setting.ini"), 0,
               Format(L"默认样式“%s”不在库中", text));
    return std::nullopt;
}

Outcome SpecificationFolder::SetDefault(const CDesignSpecification& specification)
{
    Outcome outcome;
    outcome.done = m_files.SetSetting(kSettingSection, kSettingKey,
                                      VMRDPub::GUIDToStr(specification.ID()), outcome.problems);
    return outcome;
}

// Others

StyleFolder::Held SpecificationFolder::Hold(Problems& problems)
{
    if (!m_files.IsHeld()) m_strangers.reset();
    return m_files.Hold(problems);
}

// Saving

bool SpecificationFolder::Write(const CDesignSpecification& specification, Problems& problems)
{
    StyleStore store({});
    store.Store(specification);
    return m_files.Save(FileNameFor(specification), store.Root(), problems);
}

Outcome SpecificationFolder::SetAside(const CDesignSpecification& version)
{
    StyleStore store({});
    store.Store(version);
    Outcome outcome;
    outcome.done =
        !m_files.SaveDeleted(FileNameFor(version), store.Root(), outcome.problems).empty();
    return outcome;
}

bool SpecificationFolder::Save(const CDesignSpecification& specification, Problems& problems,
                               bool isKept)
{
    const CString name = specification.Name();
    if (const CString problem = FileNameProblem(name); !problem.empty()) {
        AddProblem(problems, Severity::Error, m_files.Path(), 0,
                   Format(L"“%s”无法保存: %s", name, problem));
        return false;
    }
    const CString file = FileNameFor(specification);
    const auto held = Hold(problems);
    if (!held) return false;
    FindStrangers(specification.ID());
    return MoveOthersOut(file, specification.ID(), problems) &&
           (isKept || KeepOthers(file, problems)) && Write(specification, problems) &&
           SetOthersAside(specification.ID(), file, problems);
}

// Files that others have put into the folder since it was read are files of the specification, too,
// when they hold it.
void SpecificationFolder::FindStrangers(const GUID& id)
{
    Problems unheard;
    if (!m_strangers) m_strangers = m_files.Strangers(unheard);
    for (const CString& file : *m_strangers) {
        const auto isIt = [&](const Origin& one) { return one.id == id && one.file == file; };
        if (std::none_of(m_origins.begin(), m_origins.end(), isIt) &&
            m_files.Names(file, id, unheard))
            m_origins.push_back({id, file});
    }
}

// What others wrote into a file goes among the deleted ones before it is written over or deleted.
bool SpecificationFolder::KeepOthers(const CString& file, Problems& problems)
{
    const auto there = m_files.Has(file, problems);
    if (!there || !*there || m_files.IsKnown(file)) return there.has_value();
    const CString copy = m_files.KeepCopy(file, problems);
    if (copy.empty()) return false;
    AddProblem(problems, Severity::Note, m_files.PathOf(file), 0,
               Format(L"已被他人修改,其内容已移至“已删除”中的 %s", copy));
    return true;
}

Outcome SpecificationFolder::Save(const CDesignSpecification& specification)
{
    Outcome outcome;
    outcome.done = Save(specification, outcome.problems);
    return outcome;
}

// A file that goes or gets a single content may be the only one that holds another specification
// as well: that gets its own file first.
bool SpecificationFolder::MoveOthersOut(const CString& file, const GUID& id, Problems& problems)
{
    for (Origin& origin : m_origins) {
        if (origin.file != file || origin.id == id) continue; // quick, for nearly all
        const CDesignSpecification* other = Find(origin.id);
        if (!other) continue;
        const auto elsewhere = [&](const Origin& one) {
            return one.id == origin.id && one.file != file;
        };
        if (std::any_of(m_origins.begin(), m_origins.end(), elsewhere)) continue;
        if (!FileNameProblem(other->Name()).empty() || !Write(*other, problems)) return false;
        origin = {origin.id, FileNameFor(*other)};
    }
    return KeepUnread(file, id, problems);
}

// Takes out of a file's document that specification and those that stand in other files too.
void SpecificationFolder::DropKept(const CXTPPropExchange& root, const CString& file,
                                   const GUID& id) const
{
    Problems told; // when the folder was loaded
    const auto all = [](const CString&) { return true; };
    ReadDocument document = ReadSpecifications(root, file, all, told);
    for (ReadSpecification& read : document.specifications) {
        const GUID its = read.specification->ID();
        // Those without an identity got files of their own if the file was loaded.
        const auto keeps = [&](const Origin& origin) {
            return read.hasID ? origin.id == its && origin.file != file : origin.file == file;
        };
        if (its == id || std::any_of(m_origins.begin(), m_origins.end(), keeps))
            read.section.RemoveSection();
    }
}

// What a file holds that would be nowhere without it: styles that were not loaded get a file of
// their own, of anything else a copy is kept.
bool SpecificationFolder::KeepUnread(const CString& file, const GUID& id, Problems& problems)
{
    const auto isHere = [&](const Origin& origin) { return origin.file == file; };
    const bool loaded = std::any_of(m_origins.begin(), m_origins.end(), isHere);
    if (loaded && !m_unread.contains(file) && m_files.IsKnown(file)) return true;
    const auto there = m_files.Has(file, problems);
    if (!there || !*there) return there.has_value();
    const CString path = m_files.PathOf(file);
    std::string bytes;
    if (!ReadWholeFile(path, bytes, kSizeLimit, problems)) return false;
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    const bool read = root.LoadFromBytes(bytes, path);
    if (read) DropKept(root, file, id);
    const bool hasStyles = read && !StyleEntries(root, kLibraryName).empty();
    if (read && !hasStyles && !HoldsMore(root, kLibraryName)) return true;

    CString kept = hasStyles ? m_files.FreeName(file, problems) : m_files.KeepCopy(file, problems);
    if (kept.empty() || (hasStyles && !m_files.Save(kept, root, problems))) return false;
    m_unread.erase(file);
    if (hasStyles) m_unread.insert(kept);
    kept = (hasStyles ? m_files.Path() : m_files.DeletedPath()) + L'\\' + kept;
    AddProblem(problems, Severity::Note, path, 0,
               L"未能读取的内容保存在 " + ToWide(NativePath(kept)));
    return true;
}

// The file no longer holds the specification that was loaded from it.
bool SpecificationFolder::TakeFrom(const Origin& origin, Problems& problems)
{
    const auto there = m_files.Has(origin.file, problems);
    if (!there || !*there) return there.has_value();
    // Nothing tells one without an identity from the others there: all get files of their own.
    if (!origin.hasID)
        return MoveOthersOut(origin.file, origin.id, problems) &&
               m_files.SetAside(origin.file, problems);
    const auto held = m_files.Holds(origin.file, origin.id, problems);
    return held && (!*held || m_files.SetAside(origin.file, origin.id, problems));
}

// Whatever else held the specification would be read as well the next time, and could win over
// the file just written.
bool SpecificationFolder::SetOthersAside(const GUID& id, const CString& file, Problems& problems)
{
    bool done = true;
    for (const Origin& origin : m_origins) {
        if (!(origin.id == id) || origin.file == file) continue;
        const auto isIt = IsSameFile(m_files.PathOf(origin.file), m_files.PathOf(file), problems);
        done = isIt && (*isIt || TakeFrom(origin, problems)) && done;
    }
    // The file holds this specification alone now.
    std::erase_if(m_origins, [&](const Origin& origin) {
        return origin.file == file || (done && origin.id == id);
    });
    m_origins.push_back({id, file});
    return done;
}

// Both names may lead to one file, which stays.
bool SpecificationFolder::DeleteOld(const CString& file, const CString& newFile, Problems& problems)
{
    const auto there = m_files.Has(file, problems);
    if (!there || !*there) return there.has_value();
    const auto isSame = IsSameFile(m_files.PathOf(file), m_files.PathOf(newFile), problems);
    return isSame && (*isSame || (KeepOthers(file, problems) && m_files.Delete(file, problems)));
}

// The new file is there before the old one goes: at no moment is there none.
Outcome SpecificationFolder::SaveRenamed(const CDesignSpecification& specification,
                                         const CString& oldName)
{
    if (!FileNameProblem(oldName).empty()) return Save(specification);
    Outcome outcome;
    const auto held = Hold(outcome.problems);
    if (!held) return outcome;
    const Origin old{specification.ID(), FileNameFor(oldName, specification.ID())};
    if (!MoveOthersOut(old.file, old.id, outcome.problems)) return outcome;
    // It is deleted below, not set aside.
    std::erase_if(m_origins, [&](const Origin& origin) {
        return origin.id == old.id && origin.file == old.file;
    });
    outcome.done = Save(specification, outcome.problems) &&
                   DeleteOld(old.file, FileNameFor(specification), outcome.problems);
    if (!outcome.done) m_origins.push_back(old);
    return outcome;
}

Outcome SpecificationFolder::Rename(CDesignSpecification& specification, const CString& newName)
{
    const CString oldName = specification.Name();
    specification.SetName(newName.c_str());
    return SaveRenamed(specification, oldName);
}

Outcome SpecificationFolder::Remove(const CDesignSpecification& specification)
{
    Outcome outcome;
    const auto held = Hold(outcome.problems);
    if (!held) return outcome;
    const GUID id = specification.ID();
    // The file that it was read from may give no identity to find it by.
    const Origin* const from = OriginOf(specification);
    const bool moved = !from || TakeFrom(*from, outcome.problems);
    outcome.done = m_files.SetAside(id, outcome.problems) && moved;
    if (!outcome.done) return outcome;
    TakeOut(IndexOf(specification));
    std::erase_if(m_origins, [&](const Origin& origin) { return origin.id == id; });
    return outcome;
}

const SpecificationFolder::Origin*
SpecificationFolder::OriginOf(const CDesignSpecification& specification) const
{
    const auto found =
        std::find_if(m_origins.rbegin(), m_origins.rend(),
                     [&](const Origin& origin) { return origin.id == specification.ID(); });
    return found == m_origins.rend() ? nullptr : &*found;
}

CString SpecificationFolder::FileOf(const CDesignSpecification& specification) const
{
    const Origin* const origin = OriginOf(specification);
    return origin ? origin->file : CString();
}

bool SpecificationFolder::SetFileAside(const CString& file, const GUID& id, Problems& problems)
{
    const CString path = m_files.PathOf(file);
    std::string bytes;
    if (!ReadWholeFile(path, bytes, kSizeLimit, problems)) return false;
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!root.LoadFromBytes(bytes, path)) return m_files.SetAside(file, problems);
    if (!MoveOthersOut(file, id, problems)) return false;
    if (!HoldsStyle(root, kLibraryName, id)) return m_files.SetAside(file, problems);
    // What is left of a file of several stands in other files now.
    const auto left =
        m_files.SetAside(file, id, problems) ? m_files.Has(file, problems) : std::nullopt;
    return left && (!*left || m_files.Delete(file, problems));
}

Outcome SpecificationFolder::SetFileAside(const CString& file, const GUID& id)
{
    Outcome outcome;
    const auto there = m_files.Has(file, outcome.problems);
    outcome.done = there && !*there;
    if (there && *there) {
        // Nobody may come between reading the file and its going.
        const auto held = Hold(outcome.problems);
        outcome.done = held && SetFileAside(file, id, outcome.problems);
    }
    if (outcome.done)
        std::erase_if(m_origins, [&](const Origin& origin) { return origin.file == file; });
    return outcome;
}

// Files of others

Outcome SpecificationFolder::Export(const CString& path, const CStringArray& names) const
{
    Outcome outcome;
    StyleStore store(path);
    if (store.IsOpen()) {
        if (names.empty())
            for (const auto& item : m_items)
                store.Store(*item);
        for (const CString& name : names) {
            if (const CDesignSpecification* found = Find(name.c_str()))
                store.Store(*found);
            else
                AddProblem(outcome.problems, Severity::Note, {}, 0,
                           Format(L"没有名为“%s”的样式,未导出", name));
        }
        outcome.done = store.Root().SaveToFile(path.c_str());
    }
    Append(outcome.problems, store.Root().TakeProblems());
    return outcome;
}

ImportOutcome SpecificationFolder::TakeIn(const CString& path, const CStringArray& names,
                                          bool overwrite)
{
    return TakeIn(path, names, overwrite, [](const CString&) { return CString(); });
}

ImportOutcome SpecificationFolder::TakeIn(const CString& path, const CStringArray& names,
                                          bool overwrite, CString (*nameProblem)(const CString&))
{
    ImportOutcome outcome;
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    outcome.read = outcome.done = root.LoadFromFile(path.c_str());
    if (outcome.read) {
        const auto wanted = [&](const CString& name) {
            return names.empty() || Contains(names, name);
        };
        for (auto& one : ReadSpecifications(root, path, wanted, outcome.problems).specifications) {
            const CString name = one.specification->Name();
            // One without a name gets one.
            const CString problem = name.empty() ? CString() : nameProblem(name);
            if (!problem.empty()) {
                AddProblem(outcome.problems, Severity::Error, path, one.line,
                           Format(L"样式“%s”未导入: %s", name, problem));
                outcome.done = false;
                continue;
            }
            outcome.specifications.push_back(
                TakeIn(std::move(one), path, overwrite, Severity::Note, outcome.problems));
        }
    }
    Append(outcome.problems, root.TakeProblems());
    return outcome;
}

TakenSpecification SpecificationFolder::TakeIn(ReadSpecification read, const CString& path,
                                               bool overwrite, Severity odd, Problems& problems)
{
    const GUID id = read.specification->ID();
    const CString name = read.specification->Name();
    if (name.empty()) AddProblem(problems, odd, path, read.line, L"样式没有名称");
    TakenSpecification result{id, Taken::Added};
    CDesignSpecification* taken = FindLast(id);
    // In a file of the folder, its owner sees that it has none and gives it one.
    if (name.empty() && odd == Severity::Note)
        read.specification->SetName((taken ? taken->Name() : ProposedName()).c_str());
    if (!taken) {
        taken = &Add(std::move(read.specification));
    } else {
        AddProblem(problems, odd, path, read.line,
                   Format(L"样式“%s”与已有的“%s”标识相同(%s),%s", name, taken->Name(),
                          VMRDPub::GUIDToStr(id), CString(overwrite ? L"已用它覆盖" : L"未导入")));
        if (!overwrite) return {id, Taken::Left, false};
        result = {id, Taken::Overwritten, !(*taken == *read.specification)};
        *taken = *read.specification;
        taken->SetName(FreeName(*taken, m_items).c_str());
    }
    if (taken->Name() != name)
        AddProblem(problems, Severity::Note, path, read.line,
                   name.empty() ? Format(L"给予名称“%s”", taken->Name())
                                : Format(L"样式“%s”重名,改称“%s”", name, taken->Name()));
    return result;
}

ImportOutcome SpecificationFolder::Import(const CString& path, const CStringArray& names,
                                          bool overwrite)
{
    ImportOutcome refused;
    const auto held = Hold(refused.problems);
    if (!held) return refused;
    ImportOutcome outcome = TakeIn(path, names, overwrite, &StyleNameProblem);
    for (TakenSpecification& taken : outcome.specifications) {
        taken.saved = SaveTaken(taken, outcome.problems);
        outcome.done = outcome.done && taken.saved;
    }
    return outcome;
}

Outcome SpecificationFolder::Put(const CDesignSpecification& specification)
{
    Outcome outcome;
    const auto held = Hold(outcome.problems);
    if (!held) return outcome;
    const TakenSpecification taken = TakeIn({std::make_unique<CDesignSpecification>(specification)},
                                            m_files.Path(), true, Severity::Note, outcome.problems);
    outcome.done = SaveTaken(taken, outcome.problems);
    return outcome;
}

bool SpecificationFolder::SaveTaken(const TakenSpecification& taken, Problems& problems)
{
    if (!taken.changed) return true;
    const CDesignSpecification& specification = *FindLast(taken.id);
    return taken.how == Taken::Added ? Save(specification, problems)
                                     : SaveOver(specification, problems);
}

// The new content comes in place of the old one, a copy of which is kept first. It stays even when
// saving failed: that may have been after the new content was in place.
bool SpecificationFolder::SaveOver(const CDesignSpecification& specification, Problems& problems)
{
    const CString file = FileNameFor(specification);
    if (!FileNameProblem(specification.Name()).empty()) return Save(specification, problems);
    const auto there = m_files.Has(file, problems);
    if (!there) return false;
    if (!*there) return Save(specification, problems);
    return !m_files.KeepCopy(file, problems).empty() && Save(specification, problems, true);
}

Outcome SpecificationFolder::SaveAsTemplate(const CString& project)
{
    Outcome outcome;
    StyleFolder target(StylesFolderOf(project), kLibraryName);
    if (!CreateFolder(target.Path(), outcome.problems)) return outcome;
    const auto itself = IsSameFile(target.Path(), m_files.Path(), outcome.problems);
    outcome.done = itself.value_or(false); // they are there
    if (!itself || *itself) return outcome;
    // Each of two that copy into each other takes the locks in the same order.
    const bool isFirst = m_files.Path() < target.Path();
    const auto first = (isFirst ? m_files : target).Hold(outcome.problems);
    const auto second = (isFirst ? target : m_files).Hold(outcome.problems);
    if (!first || !second) return outcome;
    const CStringArray files = m_files.Files(outcome.problems);
    outcome.done = !HasError(outcome.problems);
    for (const CString& file : files)
        outcome.done = CopyTo(target, file, outcome.problems) && outcome.done;
    if (m_files.Has(L"setting.ini", outcome.problems).value_or(false))
        CopyTo(target, L"setting.ini", outcome.problems);
    return outcome;
}

// What the other folder has under that name goes among its deleted ones.
bool SpecificationFolder::CopyTo(StyleFolder& target, const CString& file, Problems& problems) const
{
    const auto there = target.Has(file, problems);
    if (!there) return false;
    if (*there && IsSameContent(m_files.PathOf(file), target.PathOf(file))) return true;
    return (!*there || !target.KeepCopy(file, problems).empty()) &&
           CopyFile(m_files.PathOf(file), target.PathOf(file), problems);
}

// Loading

// A specification that another program is just renaming may stand in two files, or in none that was
// listed: then, all is read once more while others are kept out. In a folder that can only be read
// there is no lock, only another try.
Outcome SpecificationFolder::Load()
{
    const bool wasBusy = m_files.IsBusy();
    CStringArray files;
    Outcome outcome = Read(files);
    const auto isDisturbed = [&] {
        Problems unheard;
        return files != m_files.Files(unheard) || (!outcome.done && (wasBusy || m_files.IsBusy()));
    };
    for (int k = 0; k < kTries && !m_files.IsHeld() && isDisturbed(); ++k) {
        Problems unheard;
        const auto held = m_files.Hold(unheard, kReaderPatience);
        outcome = Read(files);
        if (held) break;
    }
    return outcome;
}

Outcome SpecificationFolder::Read(CStringArray& files)
{
    Clear();
    Outcome outcome;
    files = m_files.Files(outcome.problems);
    for (const CString& file : files) {
        const CString path = m_files.PathOf(file);
        CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
        if (!m_files.Load(file, root, outcome.problems)) {
            m_unread.insert(file);
            continue;
        }
        const auto all = [](const CString&) { return true; };
        ReadDocument document = ReadSpecifications(root, path, all, outcome.problems);
        if (!document.isAll) m_unread.insert(file);
        for (auto& one : document.specifications) {
            const bool hasID = one.hasID;
            // Two files of one folder should not hold the same specification, nor one no name.
            const TakenSpecification taken =
                TakeIn(std::move(one), path, true, Severity::Error, outcome.problems);
            m_origins.push_back({taken.id, file, hasID});
        }
    }
    outcome.done = !HasError(outcome.problems);
    return outcome;
}

} // namespace designspec
