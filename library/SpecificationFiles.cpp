#include "library/SpecificationFiles.h"

#include <algorithm>
#include <utility>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "library/SpecificationReading.h"
#include "library/StyleName.h"
#include "library/StyleStore.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

CString FileNameFor(const CString& name, const GUID& id)
{
    return name + VMRDPub::GUIDToStr(id) + kStyleFileEnding;
}

CString FileNameFor(const CDesignSpecification& specification)
{
    return FileNameFor(specification.Name(), specification.ID());
}

bool HasFileName(const CString& name, const CString& folder, Problems& problems)
{
    const CString problem = FileNameProblem(name);
    if (problem.empty()) return true;
    AddProblem(problems, Severity::Error, folder, 0, Format(L"“%s”无法保存: %s", name, problem));
    return false;
}

} // namespace

SpecificationFiles::SpecificationFiles(StyleFolder& files, const SpecificationList& list)
    : m_files(files), m_list(list)
{
}

StyleFolder::Held SpecificationFiles::Hold(Problems& problems)
{
    if (!m_files.IsHeld()) m_strangers.reset();
    return m_files.Hold(problems);
}

void SpecificationFiles::Forget()
{
    m_origins.Clear();
    m_unread.clear();
    m_strangers.reset();
    m_files.Forget();
}

CString SpecificationFiles::FileOf(const CDesignSpecification& specification) const
{
    const auto origin = m_origins.LastOf(specification.ID());
    return origin ? origin->file : CString();
}

// Saving

bool SpecificationFiles::Save(const CDesignSpecification& specification, Problems& problems)
{
    return Save(specification, Saving{}, problems);
}

bool SpecificationFiles::Save(const CDesignSpecification& specification, const Saving& how,
                              Problems& problems)
{
    if (!HasFileName(specification.Name(), m_files.Path(), problems)) return false;
    const CString file = FileNameFor(specification);
    const auto held = Hold(problems);
    if (!held) return false;
    FindStrangers(specification.ID());
    // Where files ignore case, it may be the old one, which is known by the old name.
    const bool isOld =
        !how.oldFile.empty() &&
        IsSameFile(m_files.PathOf(how.oldFile), m_files.PathOf(file), problems).value_or(false);
    return MoveOthersOut(file, specification.ID(), problems) &&
           PartFromOthers(specification.ID(), problems) &&
           (how.isKept || KeepOthers(isOld ? how.oldFile : file, problems)) &&
           Write(specification, how.oldFile, problems) &&
           SetOthersAside(specification.ID(), file, problems);
}

// Whatever held it before is a version of it from now on.
bool SpecificationFiles::Write(const CDesignSpecification& specification, const CString& oldFile,
                               Problems& problems)
{
    const CString file = FileNameFor(specification);
    StyleFolder::Replaced replaced{specification.ID(), {}};
    for (const Origin& origin : m_origins.Of(specification.ID()))
        replaced.files.push_back(origin.file);
    for (const CString& one : {oldFile, file})
        if (!one.empty() && std::ranges::find(replaced.files, one) == replaced.files.end())
            replaced.files.push_back(one);
    StyleStore store;
    store.Store(specification);
    return m_files.Save(file, store.Root(), replaced, problems);
}

// The new content comes in place of the old one, a copy of which is kept first. It stays even when
// saving failed: that may have been after the new content was in place.
bool SpecificationFiles::SaveOver(const CDesignSpecification& specification, Problems& problems)
{
    const CString file = FileNameFor(specification);
    if (!FileNameProblem(specification.Name()).empty()) return Save(specification, problems);
    const auto there = m_files.Has(file, problems);
    if (!there) return false;
    if (!*there) return Save(specification, problems);
    return !m_files.KeepCopy(file, problems).empty() && Save(specification, {true}, problems);
}

// The new file is there before the old one goes: at no moment is there none.
bool SpecificationFiles::SaveRenamed(const CDesignSpecification& specification,
                                     const CString& oldName, Problems& problems)
{
    if (!FileNameProblem(oldName).empty()) return Save(specification, problems);
    const auto held = Hold(problems);
    if (!held) return false;
    const Origin old{specification.ID(), FileNameFor(oldName, specification.ID())};
    if (!MoveOthersOut(old.file, old.id, problems)) return false;
    // It is deleted below, not set aside.
    m_origins.Remove(old.id, old.file);
    const bool done = Save(specification, {false, old.file}, problems) &&
                      DeleteOld(old.file, FileNameFor(specification), problems);
    if (!done) m_origins.Add(old);
    return done;
}

// Both names may lead to one file, which stays.
bool SpecificationFiles::DeleteOld(const CString& file, const CString& newFile, Problems& problems)
{
    const auto there = m_files.Has(file, problems);
    if (!there || !*there) return there.has_value();
    const auto isSame = IsSameFile(m_files.PathOf(file), m_files.PathOf(newFile), problems);
    return isSame && (*isSame || (KeepOthers(file, problems) && m_files.Delete(file, problems)));
}

// Keeping what others have

// Files that others have put into the folder since it was read are files of the specification, too,
// when they hold it.
void SpecificationFiles::FindStrangers(const GUID& id)
{
    Problems unheard;
    if (!m_strangers) {
        m_strangers.emplace();
        for (const CString& file : m_files.Strangers(unheard))
            if (const auto entries = m_files.Entries(file, unheard))
                for (const StyleEntry& entry : *entries)
                    (*m_strangers)[entry.id].push_back(file);
    }
    const auto found = m_strangers->find(id);
    if (found == m_strangers->end()) return;
    for (const CString& file : found->second)
        if (!m_origins.Has(id, file)) m_origins.Add({id, file});
}

// What others wrote into a file goes among the deleted ones before it is written over or deleted.
bool SpecificationFiles::KeepOthers(const CString& file, Problems& problems)
{
    const auto there = m_files.Has(file, problems);
    if (!there || !*there || m_files.IsKnown(file)) return there.has_value();
    const CString copy = m_files.KeepCopy(file, problems);
    if (copy.empty()) return false;
    AddProblem(problems, Severity::Note, m_files.PathOf(file), 0,
               Format(L"已被他人修改,其内容已移至“已删除”中的 %s", copy));
    return true;
}

// A file that goes or gets a single content may be the only one that holds another specification
// as well: that gets its own file first.
bool SpecificationFiles::MoveOthersOut(const CString& file, const GUID& id, Problems& problems)
{
    for (const GUID& its : m_origins.In(file)) {
        if (its == id || m_origins.HasElsewhere(its, file)) continue;
        const CDesignSpecification* other = m_list.Find(its);
        if (!other) continue;
        if (!HasFileName(other->Name(), m_files.Path(), problems) || !Write(*other, {}, problems))
            return false;
        m_origins.Move(its, file, FileNameFor(*other));
    }
    return KeepUnread(file, id, problems);
}

// Nothing tells one without an identity from the others in its file: all get files of their own.
// That may fail, and so comes before anything of it is written.
bool SpecificationFiles::PartFromOthers(const GUID& id, Problems& problems)
{
    for (const Origin& origin : m_origins.Of(id)) {
        if (origin.hasID) continue;
        const auto there = m_files.Has(origin.file, problems);
        if (!there || (*there && !MoveOthersOut(origin.file, id, problems))) return false;
    }
    return true;
}

// Takes out of a file's document that specification and those that stand in other files too.
void SpecificationFiles::DropKept(const CXTPPropExchangeXMLNode& root, const CString& file,
                                  const GUID& id) const
{
    Problems told; // when the folder was loaded
    const auto all = [](const CString&) { return true; };
    ReadDocument document = ReadSpecifications(root, file, all, told);
    const bool isLoaded = !m_origins.In(file).empty();
    for (ReadSpecification& read : document.specifications) {
        const GUID its = read.specification->ID();
        // Those without an identity got files of their own if the file was loaded.
        if (its == id || (read.hasID ? m_origins.HasElsewhere(its, file) : isLoaded))
            read.section.RemoveSection();
    }
}

// What a file holds that would be nowhere without it: styles that were not loaded get a file of
// their own, of anything else a copy is kept.
bool SpecificationFiles::KeepUnread(const CString& file, const GUID& id, Problems& problems)
{
    const bool isLoaded = !m_origins.In(file).empty();
    if (isLoaded && !m_unread.contains(file) && m_files.IsKnown(file)) return true;
    const auto there = m_files.Has(file, problems);
    if (!there || !*there) return there.has_value();
    const CString path = m_files.PathOf(file);
    std::string bytes;
    if (!ReadWholeFile(path, bytes, problems)) return false;
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

// Setting aside

// The file no longer holds the specification that was loaded from it; one without an identity has
// parted from the others there.
bool SpecificationFiles::TakeFrom(const Origin& origin, Problems& problems)
{
    const auto there = m_files.Has(origin.file, problems);
    if (!there || !*there) return there.has_value();
    if (!origin.hasID) return m_files.SetAside(origin.file, problems);
    const auto held = m_files.Holds(origin.file, origin.id, problems);
    return held && (!*held || m_files.SetAside(origin.file, origin.id, problems));
}

// Whatever else held the specification would be read as well the next time, and could win over
// the file just written.
bool SpecificationFiles::SetOthersAside(const GUID& id, const CString& file, Problems& problems)
{
    bool done = true;
    const std::vector<Origin> its = m_origins.Of(id);
    for (const Origin& origin : its) {
        if (origin.file == file) continue;
        const auto isIt = IsSameFile(m_files.PathOf(origin.file), m_files.PathOf(file), problems);
        done = isIt && (*isIt || TakeFrom(origin, problems)) && done;
    }
    // The file holds this specification alone now.
    m_origins.RemoveFile(file);
    if (done) m_origins.Remove(id);
    m_origins.Add({id, file});
    return done;
}

bool SpecificationFiles::SetAside(const CDesignSpecification& specification, Problems& problems)
{
    const auto held = Hold(problems);
    if (!held) return false;
    const GUID id = specification.ID();
    // The file that it was read from may give no identity to find it by.
    const std::vector<Origin> its = m_origins.Of(id);
    const bool moved =
        its.empty() || (PartFromOthers(id, problems) && TakeFrom(its.back(), problems));
    const bool done = m_files.SetAside(id, problems) && moved;
    if (done) m_origins.Remove(id);
    return done;
}

bool SpecificationFiles::SetFileAside(const CString& file, const GUID& id, Problems& problems)
{
    const auto there = m_files.Has(file, problems);
    bool done = there && !*there;
    if (there && *there) {
        // Nobody may come between reading the file and its going.
        const auto held = Hold(problems);
        done = held && TakeFileApart(file, id, problems);
    }
    if (done) m_origins.RemoveFile(file);
    return done;
}

bool SpecificationFiles::TakeFileApart(const CString& file, const GUID& id, Problems& problems)
{
    const CString path = m_files.PathOf(file);
    std::string bytes;
    if (!ReadWholeFile(path, bytes, problems)) return false;
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!root.LoadFromBytes(bytes, path)) return m_files.SetAside(file, problems);
    if (!MoveOthersOut(file, id, problems)) return false;
    if (!HoldsStyle(root, kLibraryName, id)) return m_files.SetAside(file, problems);
    // What is left of a file of several stands in other files now.
    const auto left =
        m_files.SetAside(file, id, problems) ? m_files.Has(file, problems) : std::nullopt;
    return left && (!*left || m_files.Delete(file, problems));
}

bool SpecificationFiles::SetVersionAside(const CDesignSpecification& version, Problems& problems)
{
    StyleStore store;
    store.Store(version);
    return !m_files.SaveDeleted(FileNameFor(version), store.Root(), problems).empty();
}

} // namespace designspec
