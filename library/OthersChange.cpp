#include "library/OthersChange.h"

#include <algorithm>

namespace designspec {

namespace {

using Kind = OthersChange::Kind;

// Whether all files are as they were loaded or saved here.
bool AreKnown(const StyleFolder& files, Problems& problems)
{
    const CStringArray names = files.Files(problems);
    return std::all_of(names.begin(), names.end(),
                       [&](const CString& file) { return files.IsKnown(file); });
}

// What became of it, as the files of that list have it.
OthersChange Compare(const SpecificationFolder& now, const CDesignSpecification& opened,
                     const CString& file)
{
    OthersChange change;
    const CDesignSpecification* const found = now.Find(opened.ID());
    const CString holder = found ? now.FileOf(*found) : file;
    change.path = holder.empty() ? now.Files().Path() : now.Files().PathOf(holder);
    if (found && !(*found == opened)) {
        change.kind = Kind::Changed;
        change.theirs = *found;
    } else if (!found) {
        change.kind = Kind::Removed;
    }
    return change;
}

} // namespace

OthersChange FindOthersChange(const SpecificationFolder& folder, const CDesignSpecification& opened)
{
    const StyleFolder& files = folder.Files();
    if (!files.HasPlace()) return {Kind::FolderGone, {}, files.Path(), {}};
    const CString file = folder.FileOf(opened);
    if (file.empty() && folder.Find(opened.ID())) return {}; // it was never saved
    Problems problems;
    const bool same = AreKnown(files, problems) && (file.empty() || files.Has(file));
    if (same && problems.empty()) return Compare(folder, opened, file);
    SpecificationFolder now(files.Path());
    Outcome loaded = now.Load();
    OthersChange change = Compare(now, opened, file);
    if (change.kind == Kind::Removed && !file.empty() && files.Has(file))
        change.kind = Kind::Unreadable;
    change.problems = std::move(loaded.problems);
    return change;
}

} // namespace designspec
