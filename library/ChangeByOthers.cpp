#include "library/ChangeByOthers.h"

namespace designspec {

namespace {

using Kind = ChangeByOthers::Kind;

// What became of it, as the files of that list have it.
ChangeByOthers Compare(const SpecificationFolder& now, const CDesignSpecification& opened,
                       const CString& file)
{
    ChangeByOthers change;
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

std::unique_ptr<SpecificationFolder> ReadIfChanged(const SpecificationFolder& folder)
{
    if (folder.Files().IsAsKnown()) return nullptr;
    auto now = std::make_unique<SpecificationFolder>(folder.Files().Path());
    now->Load();
    return now;
}

ChangeByOthers FindChangeByOthers(const SpecificationFolder& folder,
                                  const CDesignSpecification& opened)
{
    const StyleFolder& files = folder.Files();
    if (!files.HasPlace()) return {Kind::FolderGone, {}, files.Path()};
    const CString file = folder.FileOf(opened);
    if (file.empty() && folder.Find(opened.ID())) return {}; // it was never saved
    const auto now = ReadIfChanged(folder);
    ChangeByOthers change = Compare(now ? *now : folder, opened, file);
    Problems unseen;
    if (now && change.kind == Kind::Removed && !file.empty() &&
        files.Has(file, unseen).value_or(true))
        change.kind = Kind::Unreadable;
    return change;
}

} // namespace designspec
