#include "library/FileMerge.h"

#include <algorithm>

#include "base/File.h"
#include "library/SpecificationReading.h"
#include "library/StyleStore.h"

namespace designspec {

namespace {

// The specifications of one of the files.
class MergedFile {
public:
    MergedFile(const CString& path, Problems& problems) : m_path(path)
    {
        std::string bytes;
        m_isRead = ReadWholeFile(path, bytes, problems);
        m_isBlank = bytes.empty();
        if (!m_isRead || m_isBlank) return;
        CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
        m_isRead = root.LoadFromBytes(bytes, path);
        Append(problems, root.TakeProblems());
        if (!m_isRead) return;
        Problems told;
        const auto all = [](const CString&) { return true; };
        m_specifications = ReadSpecifications(root, path, all, told).specifications;
        m_isRead = !designspec::HasError(told);
        Append(problems, std::move(told));
        m_hasMore = HoldsMore(root, kLibraryName);
    }

    bool IsRead() const { return m_isRead; }
    bool HasMore() const { return m_hasMore; }
    // To begin the merged document with.
    CString PathToOpen() const { return m_isBlank ? CString() : m_path; }
    const CDesignSpecification* Find(const GUID& id) const
    {
        // Of several the last one counts, as in a library.
        const auto found =
            std::find_if(m_specifications.rbegin(), m_specifications.rend(),
                         [&](const auto& one) { return one.specification->HasID(id); });
        return found == m_specifications.rend() ? nullptr : found->specification.get();
    }
    std::vector<GUID> Ids() const
    {
        std::vector<GUID> ids;
        for (const ReadSpecification& one : m_specifications)
            if (std::find(ids.begin(), ids.end(), one.specification->ID()) == ids.end())
                ids.push_back(one.specification->ID());
        return ids;
    }

private:
    CString m_path;
    std::vector<ReadSpecification> m_specifications;
    bool m_isRead = false;
    bool m_isBlank = false;
    bool m_hasMore = false;
};

// Both have added it: there is nothing that would tell who is right.
std::vector<Change> ChangesWithoutBase(const CDesignSpecification& mine,
                                       const CDesignSpecification& theirs)
{
    std::vector<Change> changes;
    for (Difference& one : Differences(mine, theirs)) {
        DifferingValue& value = one;
        Change& change = changes.emplace_back();
        static_cast<DifferingValue&>(change) = std::move(value);
        change.mine = std::move(one.left);
        change.theirs = std::move(one.right);
    }
    return changes;
}

Side SideOf(const Change& change, Side preferred)
{
    if (change.by == ChangedBy::Conflict) return preferred;
    return change.by == ChangedBy::Them ? Side::Theirs : Side::Mine;
}

class Merging {
public:
    Merging(const MergedFile& base, const MergedFile& mine, const MergedFile& theirs,
            std::optional<Side> prefer)
        : m_base(base), m_mine(mine), m_theirs(theirs), m_prefer(prefer.value_or(Side::Mine)),
          m_store(mine.PathToOpen())
    {
        std::vector<GUID> ids = mine.Ids();
        for (const GUID& id : theirs.Ids())
            if (!mine.Find(id)) ids.push_back(id);
        for (const GUID& id : ids)
            Merge(id);
    }

    std::vector<MergedSpecification> TakeResult() { return std::move(m_result); }
    const CXTPPropExchangeXMLNode& Root() { return m_store.Root(); }

private:
    void Merge(const GUID& id)
    {
        const CDesignSpecification* const base = m_base.Find(id);
        const CDesignSpecification* const mine = m_mine.Find(id);
        const CDesignSpecification* const theirs = m_theirs.Find(id);
        if (mine && theirs)
            MergeValues(base, *mine, *theirs);
        else
            MergeWhole(base, mine, theirs);
    }

    void MergeValues(const CDesignSpecification* base, const CDesignSpecification& mine,
                     const CDesignSpecification& theirs)
    {
        const CDesignSpecification& before = base ? *base : mine;
        std::vector<Change> changes =
            base ? Changes(*base, mine, theirs) : ChangesWithoutBase(mine, theirs);
        if (changes.empty()) return;
        std::vector<Side> sides;
        for (const Change& change : changes)
            sides.push_back(SideOf(change, m_prefer));
        m_store.Store(Merged(before, mine, theirs, sides));
        m_result.push_back({mine.Name(), mine.ID(), std::move(changes)});
    }

    // One side does not have it.
    void MergeWhole(const CDesignSpecification* base, const CDesignSpecification* mine,
                    const CDesignSpecification* theirs)
    {
        const CDesignSpecification* const present = mine ? mine : theirs;
        if (!present) return;
        Change change;
        change.label = L"整个设计规范";
        if (base) change.base = L"有";
        const CString now = base ? L"已修改" : L"有";
        (mine ? change.mine : change.theirs) = now;
        const bool isChanged = base && !(*base == *present);
        if (!isChanged)
            change.by = (mine != nullptr) == (base == nullptr) ? ChangedBy::Me : ChangedBy::Them;
        const bool takesTheirs = SideOf(change, m_prefer) == Side::Theirs;
        if (takesTheirs && theirs) m_store.Store(*theirs);
        if (takesTheirs && mine) m_store.Remove(mine->ID());
        m_result.push_back({present->Name(), present->ID(), {std::move(change)}});
    }

    const MergedFile& m_base;
    const MergedFile& m_mine;
    const MergedFile& m_theirs;
    Side m_prefer;
    StyleStore m_store;
    std::vector<MergedSpecification> m_result;
};

} // namespace

FileMerge MergeFiles(const CString& base, const CString& mine, const CString& theirs,
                     std::optional<Side> prefer)
{
    FileMerge merge;
    const MergedFile before(base, merge.problems);
    const MergedFile ours(mine, merge.problems);
    const MergedFile others(theirs, merge.problems);
    merge.done = before.IsRead() && ours.IsRead() && others.IsRead();
    if (!merge.done) return merge;
    if (others.HasMore())
        AddProblem(merge.problems, Severity::Note, theirs, 0, L"其中设计规范以外的内容没有合并");
    Merging merging(before, ours, others, prefer);
    merge.specifications = merging.TakeResult();
    merge.root = merging.Root();
    return merge;
}

} // namespace designspec
