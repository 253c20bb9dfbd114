#include "library/SpecificationFolder.h"

#include <algorithm>
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
constexpr size_t kSettingLength = 255; // characters of a setting that are read

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

// The section of that specification among the styles, made when there is none yet.
void Store(const CXTPPropExchange& styles, const CDesignSpecification& specification)
{
    CXTPPropExchange section;
    CXTPPropExchangeEnumerator all = styles.GetEnumerator(L"Style");
    while (all.HasNext() && !section.IsSectionExists()) {
        CXTPPropExchange style = all.GetNext();
        if (HasID(style, specification.ID())) section = style;
    }
    if (!section.IsSectionExists()) section = styles.AppendSection(L"Style");
    // The exchange goes both ways and so takes no const object; storing changes none.
    const_cast<CDesignSpecification&>(specification).DoPropExchange(&section);
}

// A file that holds that specification and nothing else.
void StoreAlone(const CDesignSpecification& specification, CXTPPropExchangeXMLNode& root)
{
    CXTPPropExchange styles;
    CreateStylesNode({}, kLibraryName, kLibraryName, root, styles);
    Store(styles, specification);
}

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

// Saving

bool SpecificationFolder::Write(const CDesignSpecification& specification, Problems& problems)
{
    CXTPPropExchangeXMLNode root;
    StoreAlone(specification, root);
    return m_files.Save(FileNameFor(specification), root, problems);
}

Outcome SpecificationFolder::SetAside(const CDesignSpecification& version)
{
    CXTPPropExchangeXMLNode root;
    StoreAlone(version, root);
    Outcome outcome;
    outcome.done = !m_files.SaveDeleted(FileNameFor(version), root, outcome.problems).empty();
    return outcome;
}

bool SpecificationFolder::Save(const CDesignSpecification& specification, Problems& problems)
{
    const CString name = specification.Name();
    if (const CString problem = FileNameProblem(name); !problem.empty()) {
        AddProblem(problems, Severity::Error, m_files.Path(), 0,
                   Format(L"“%s”无法保存: %s", name, problem));
        return false;
    }
    const CString file = FileNameFor(specification);
    return MoveOthersOut(file, specification.ID(), problems) && Write(specification, problems) &&
           SetOthersAside(specification.ID(), file, problems);
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
        const CDesignSpecification* other = Find(origin.id);
        if (origin.file != file || origin.id == id || !other) continue;
        const auto elsewhere = [&](const Origin& one) {
            return one.id == origin.id && one.file != file;
        };
        if (std::any_of(m_origins.begin(), m_origins.end(), elsewhere)) continue;
        if (!FileNameProblem(other->Name()).empty() || !Write(*other, problems)) return false;
        origin.file = FileNameFor(*other);
    }
    return true;
}

// Whatever else held the specification would be read as well the next time, and could win over
// the file just written.
bool SpecificationFolder::SetOthersAside(const GUID& id, const CString& file, Problems& problems)
{
    bool done = true;
    for (const Origin& origin : m_origins) {
        if (!(origin.id == id) || origin.file == file) continue;
        if (!m_files.Has(origin.file) ||
            IsSameFile(m_files.PathOf(origin.file), m_files.PathOf(file)))
            continue;
        const auto held = m_files.Holds(origin.file, id, problems);
        if (!held)
            done = false;
        else if (*held)
            done = m_files.SetAside(origin.file, id, problems) && done;
    }
    // The file holds this specification alone now.
    std::erase_if(m_origins, [&](const Origin& origin) {
        return origin.file == file || (done && origin.id == id);
    });
    m_origins.push_back({id, file});
    return done;
}

// The new file is there before the old one goes: at no moment is there none.
Outcome SpecificationFolder::SaveRenamed(const CDesignSpecification& specification,
                                         const CString& oldName)
{
    if (!FileNameProblem(oldName).empty()) return Save(specification);
    Outcome outcome;
    const Origin old{specification.ID(), FileNameFor(oldName, specification.ID())};
    if (!MoveOthersOut(old.file, old.id, outcome.problems)) return outcome;
    // It is deleted below, not set aside.
    std::erase_if(m_origins, [&](const Origin& origin) { return origin == old; });
    const CString newFile = FileNameFor(specification);
    outcome.done =
        Save(specification, outcome.problems) &&
        (!m_files.Has(old.file) || IsSameFile(m_files.PathOf(old.file), m_files.PathOf(newFile)) ||
         m_files.Delete(old.file, outcome.problems));
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
    const GUID id = specification.ID();
    const CString file = FileOf(specification);
    // The file that it was read from may give no identity to find it by.
    const bool moved =
        file.empty() || !m_files.Has(file) || m_files.SetAside(file, id, outcome.problems);
    outcome.done = m_files.SetAside(id, outcome.problems) && moved;
    if (!outcome.done) return outcome;
    TakeOut(IndexOf(specification));
    std::erase_if(m_origins, [&](const Origin& origin) { return origin.id == id; });
    return outcome;
}

CString SpecificationFolder::FileOf(const CDesignSpecification& specification) const
{
    const auto found =
        std::find_if(m_origins.rbegin(), m_origins.rend(),
                     [&](const Origin& origin) { return origin.id == specification.ID(); });
    return found == m_origins.rend() ? CString() : found->file;
}

// Files of others

Outcome SpecificationFolder::Export(const CString& path, const CStringArray& names) const
{
    Outcome outcome;
    CXTPPropExchangeXMLNode root;
    CXTPPropExchange styles;
    if (CreateStylesNode(path, kLibraryName, kLibraryName, root, styles)) {
        if (names.empty())
            for (const auto& item : m_items)
                Store(styles, *item);
        for (const CString& name : names) {
            if (const CDesignSpecification* found = Find(name.c_str()))
                Store(styles, *found);
            else
                AddProblem(outcome.problems, Severity::Note, {}, 0,
                           Format(L"没有名为“%s”的样式,未导出", name));
        }
        outcome.done = root.SaveToFile(path.c_str());
    }
    Append(outcome.problems, root.TakeProblems());
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
        for (auto& one : ReadSpecifications(root, path, wanted, outcome.problems)) {
            const CString name = one.specification->Name();
            if (const CString problem = nameProblem(name); !problem.empty()) {
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
                                               bool overwrite, Severity clash, Problems& problems)
{
    const GUID id = read.specification->ID();
    const CString name = read.specification->Name();
    TakenSpecification result{id, Taken::Added};
    CDesignSpecification* taken = Find(id);
    if (!taken) {
        taken = &Add(std::move(read.specification));
    } else {
        AddProblem(problems, clash, path, read.line,
                   Format(L"样式“%s”与已有的“%s”标识相同(%s),%s", name, taken->Name(),
                          VMRDPub::GUIDToStr(id), CString(overwrite ? L"已用它覆盖" : L"未导入")));
        if (!overwrite) return {id, Taken::Left, false};
        result = {id, Taken::Overwritten, !(*taken == *read.specification)};
        *taken = *read.specification;
        taken->SetName(FreeName(*taken, m_items).c_str());
    }
    if (taken->Name() != name)
        AddProblem(problems, Severity::Note, path, read.line,
                   Format(L"样式“%s”重名,改称“%s”", name, taken->Name()));
    return result;
}

ImportOutcome SpecificationFolder::Import(const CString& path, const CStringArray& names,
                                          bool overwrite)
{
    ImportOutcome outcome = TakeIn(path, names, overwrite, &StyleNameProblem);
    for (TakenSpecification& taken : outcome.specifications) {
        if (!taken.changed) continue;
        const CDesignSpecification& specification = *Find(taken.id);
        taken.saved = taken.how == Taken::Added ? Save(specification, outcome.problems)
                                                : SaveOver(specification, outcome.problems);
        outcome.done = outcome.done && taken.saved;
    }
    return outcome;
}

// The new content comes in place of the old one, a copy of which is kept first. It stays even when
// saving failed: that may have been after the new content was in place.
bool SpecificationFolder::SaveOver(const CDesignSpecification& specification, Problems& problems)
{
    const CString file = FileNameFor(specification);
    if (!FileNameProblem(specification.Name()).empty() || !m_files.Has(file))
        return Save(specification, problems);
    return !m_files.KeepCopy(file, problems).empty() && Save(specification, problems);
}

Outcome SpecificationFolder::SaveAsTemplate(const CString& project) const
{
    Outcome outcome;
    const StyleFolder target(StylesFolderOf(project), kLibraryName);
    if (!CreateFolder(target.Path(), outcome.problems)) return outcome;
    outcome.done = true;
    for (const CString& file : m_files.Files(outcome.problems))
        outcome.done =
            CopyFile(m_files.PathOf(file), target.PathOf(file), outcome.problems) && outcome.done;
    if (m_files.Has(L"setting.ini"))
        CopyFile(m_files.PathOf(L"setting.ini"), target.PathOf(L"setting.ini"), outcome.problems);
    return outcome;
}

// Loading

Outcome SpecificationFolder::Load()
{
    Clear();
    Outcome outcome;
    for (const CString& file : m_files.Files(outcome.problems)) {
        const CString path = m_files.PathOf(file);
        CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
        if (!m_files.Load(file, root, outcome.problems)) continue;
        const auto all = [](const CString&) { return true; };
        for (auto& one : ReadSpecifications(root, path, all, outcome.problems)) {
            // Two files of one folder should not hold the same specification.
            const TakenSpecification taken =
                TakeIn(std::move(one), path, true, Severity::Error, outcome.problems);
            m_origins.push_back({taken.id, file});
        }
    }
    outcome.done = !HasError(outcome.problems);
    return outcome;
}

} // namespace designspec
