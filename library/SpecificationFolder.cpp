#include "library/SpecificationFolder.h"

#include <unordered_set>
#include <utility>

#include "base/File.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/SideBySide.h"
#include "base/Text.h"
#include "library/SpecificationFiles.h"
#include "library/SpecificationReading.h"
#include "library/StyleName.h"
#include "library/StyleStore.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

constexpr wchar_t kSettingSection[] = L"设置";
constexpr wchar_t kSettingKey[] = L"默认样式";
constexpr size_t kSettingLength = 255; // characters of a setting that are read
constexpr std::chrono::milliseconds kReaderPatience{1000};
constexpr int kTries = 5; // to read a folder that others are changing

void KeepVersions(const StyleFolder& target, const StyleFolder& files, const CString& file,
                  Problems& problems)
{
    Problems unread; // copying it tells
    std::string next;
    const auto replaced = target.Entries(file, unread);
    if (!replaced || !ReadWholeFile(files.PathOf(file), next, unread)) return;
    for (const StyleEntry& entry : *replaced)
        target.KeepVersions({entry.id, {file}}, next, problems);
}

// What the other folder has under that name goes among its deleted ones, and is a version of what
// comes.
bool CopyTo(StyleFolder& target, const StyleFolder& files, const CString& file, Problems& problems)
{
    const auto there = target.Has(file, problems);
    if (!there) return false;
    if (*there && IsSameContent(files.PathOf(file), target.PathOf(file))) return true;
    if (*there) KeepVersions(target, files, file, problems);
    return (!*there || !target.KeepCopy(file, problems).empty()) &&
           CopyFile(files.PathOf(file), target.PathOf(file), problems);
}

// What some work did, with the problems that it adds.
template <class Work> Outcome OutcomeOf(const Work& work)
{
    Outcome outcome;
    outcome.done = work(outcome.problems);
    return outcome;
}

} // namespace

SpecificationFolder::SpecificationFolder(const CString& path)
    : m_files(path, kLibraryName), m_list(std::make_unique<SpecificationList>()),
      m_saving(std::make_unique<SpecificationFiles>(m_files, *m_list))
{
}

SpecificationFolder::~SpecificationFolder() = default;

// The list

int SpecificationFolder::Count() const
{
    return m_list->Count();
}

CDesignSpecification* SpecificationFolder::Item(int index) const
{
    return m_list->Item(index);
}

CDesignSpecification* SpecificationFolder::Find(const GUID& id) const
{
    return m_list->Find(id);
}

CDesignSpecification* SpecificationFolder::Find(const wchar_t* name) const
{
    return m_list->Find(name);
}

int SpecificationFolder::IndexOf(const CDesignSpecification& specification) const
{
    return m_list->IndexOf(specification);
}

CDesignSpecification& SpecificationFolder::Add(std::unique_ptr<CDesignSpecification> specification)
{
    return m_list->Add(std::move(specification));
}

std::unique_ptr<CDesignSpecification> SpecificationFolder::TakeOut(int index)
{
    return m_list->TakeOut(index);
}

void SpecificationFolder::Clear()
{
    m_list->Clear();
    m_saving->Forget();
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

StyleFolder::Held SpecificationFolder::Hold(Problems& problems)
{
    return m_saving->Hold(problems);
}

Outcome SpecificationFolder::Save(const CDesignSpecification& specification)
{
    return OutcomeOf([&](Problems& problems) { return m_saving->Save(specification, problems); });
}

Outcome SpecificationFolder::SaveRenamed(const CDesignSpecification& specification,
                                         const CString& oldName)
{
    return OutcomeOf([&](Problems& problems) {
        return m_saving->SaveRenamed(specification, oldName, problems);
    });
}

Outcome SpecificationFolder::Rename(CDesignSpecification& specification, const CString& newName)
{
    const CString oldName = specification.Name();
    specification.SetName(newName.c_str());
    return SaveRenamed(specification, oldName);
}

Outcome SpecificationFolder::Remove(const CDesignSpecification& specification)
{
    Outcome outcome =
        OutcomeOf([&](Problems& problems) { return m_saving->SetAside(specification, problems); });
    if (outcome.done) TakeOut(IndexOf(specification));
    return outcome;
}

Outcome SpecificationFolder::SetFileAside(const CString& file, const GUID& id)
{
    return OutcomeOf(
        [&](Problems& problems) { return m_saving->SetFileAside(file, id, problems); });
}

Outcome SpecificationFolder::SetAside(const CDesignSpecification& version)
{
    return OutcomeOf(
        [&](Problems& problems) { return m_saving->SetVersionAside(version, problems); });
}

CString SpecificationFolder::FileOf(const CDesignSpecification& specification) const
{
    return m_saving->FileOf(specification);
}

// Files of others

Outcome SpecificationFolder::Export(const CString& path, const CStringArray& names) const
{
    Outcome outcome;
    StyleStore store(path);
    if (store.IsOpen()) {
        if (names.empty())
            for (int i = 0; i < Count(); ++i)
                store.Store(*Item(i));
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

namespace {

ImportOutcome Unread(CXTPPropExchangeXMLNode& root)
{
    ImportOutcome outcome;
    outcome.problems = root.TakeProblems();
    return outcome;
}

CString AnyName(const CString&)
{
    return {};
}

} // namespace

ImportOutcome SpecificationFolder::TakeIn(const CString& path, const CStringArray& names,
                                          bool overwrite)
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!root.LoadFromFile(path.c_str())) return Unread(root);
    return TakeIn(root, path, names, overwrite, &AnyName);
}

ImportOutcome SpecificationFolder::TakeInText(std::string_view text, const CString& name)
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!root.LoadFromBytes(text, name)) return Unread(root);
    return TakeIn(root, name, {}, true, &AnyName);
}

ImportOutcome SpecificationFolder::TakeIn(CXTPPropExchangeXMLNode& root, const CString& path,
                                          const CStringArray& names, bool overwrite,
                                          CString (*nameProblem)(const CString&))
{
    ImportOutcome outcome;
    outcome.read = outcome.done = true;
    std::unordered_set<NoCaseKey, NoCaseKey::Hash> chosen;
    for (const CString& name : names)
        chosen.emplace(name);
    const auto wanted = [&](const CString& name) {
        return names.empty() || chosen.contains(NoCaseKey(name));
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
    CDesignSpecification* taken = m_list->FindLast(id);
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
        m_list->MakeNameUnique(*taken);
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
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!root.LoadFromFile(path.c_str())) return Unread(root);
    ImportOutcome outcome = TakeIn(root, path, names, overwrite, &StyleNameProblem);
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
    ReadSpecification read{std::make_unique<CDesignSpecification>(specification)};
    const TakenSpecification taken =
        TakeIn(std::move(read), m_files.Path(), true, Severity::Note, outcome.problems);
    outcome.done = SaveTaken(taken, outcome.problems);
    return outcome;
}

bool SpecificationFolder::SaveTaken(const TakenSpecification& taken, Problems& problems)
{
    if (!taken.changed) return true;
    const CDesignSpecification& specification = *m_list->FindLast(taken.id);
    return taken.how == Taken::Added ? m_saving->Save(specification, problems)
                                     : m_saving->SaveOver(specification, problems);
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
        outcome.done = CopyTo(target, m_files, file, outcome.problems) && outcome.done;
    if (m_files.Has(L"setting.ini", outcome.problems).value_or(false))
        CopyTo(target, m_files, L"setting.ini", outcome.problems);
    return outcome;
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

namespace {

// A file of the folder, read.
struct ReadFile {
    std::optional<KnownFiles::Content> content; // null: not even its bytes could be read
    ReadDocument document{{}, false};
    Problems problems;
};

ReadFile ReadOne(const StyleFolder& files, const CString& file)
{
    ReadFile read;
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!files.Read(file, root, read.content, read.problems)) return read;
    const auto all = [](const CString&) { return true; };
    read.document = ReadSpecifications(root, files.PathOf(file), all, read.problems);
    for (ReadSpecification& one : read.document.specifications)
        one.section = {}; // the document is not needed any more
    return read;
}

} // namespace

// The files are read side by side, and taken in one after the other: what happens, and what is told
// of it, does not depend on the threads.
Outcome SpecificationFolder::Read(CStringArray& files)
{
    constexpr size_t kFilesOfOneThread = 16;
    Clear();
    Outcome outcome;
    files = m_files.Files(outcome.problems);
    std::vector<ReadFile> read(files.size());
    SideBySide(files.size(), ThreadsFor(files.size(), kFilesOfOneThread),
               [&](size_t i) { read[i] = ReadOne(m_files, files[i]); });
    for (size_t i = 0; i < files.size(); ++i) {
        const CString path = m_files.PathOf(files[i]);
        Append(outcome.problems, std::move(read[i].problems));
        if (read[i].content) m_files.Know(files[i], std::move(*read[i].content));
        if (!read[i].document.isAll) m_saving->AddUnread(files[i]);
        for (ReadSpecification& one : read[i].document.specifications) {
            const bool hasID = one.hasID;
            // Two files of one folder should not hold the same specification, nor one no name.
            const TakenSpecification taken =
                TakeIn(std::move(one), path, true, Severity::Error, outcome.problems);
            m_saving->AddLoaded({taken.id, files[i], hasID});
        }
    }
    outcome.done = !HasError(outcome.problems);
    return outcome;
}

} // namespace designspec
