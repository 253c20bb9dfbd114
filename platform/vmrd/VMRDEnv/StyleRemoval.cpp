#include "platform/vmrd/VMRDEnv/StyleRemoval.h"

#include <algorithm>
#include <utility>

#include "base/File.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

// Puts a file with that style of the file alone among the deleted ones, under a name by which it
// can come back beside the file; the name, empty after a failure.
CString StyleRemoval::KeepStyle(const CString& file, const GUID& id, Problems& problems)
{
    CXTPPropExchangeXMLNode root(false, kStyleLibraryRoot);
    const bool read = root.LoadFromFile(m_folder.PathOf(file).c_str());
    Append(problems, root.TakeProblems());
    if (!read) return {};
    const CString name = m_folder.FreeName(file, problems);
    if (name.empty()) return {};
    Reduce(root, m_folder.Library(), id, true);
    return m_folder.Aside().Save(root, name, problems);
}

// Leaves in the file what else it holds.
bool StyleRemoval::TakeOut(const CString& file, const GUID& id, Problems& problems)
{
    CXTPPropExchangeXMLNode root(false, kStyleLibraryRoot);
    if (!m_folder.Load(file, root, problems)) return false;
    Reduce(root, m_folder.Library(), id, false);
    return m_folder.Save(file, root, problems);
}

bool StyleRemoval::TakeApart(const CString& file, const GUID& id, Problems& problems)
{
    const CString aside = KeepStyle(file, id, problems);
    if (aside.empty()) return false;
    if (!TakeOut(file, id, problems)) {
        // Where the style has left the file all the same, the copy is the only one.
        const auto left = m_folder.Entries(file, problems);
        if (left && CountOf(id, *left) > 0) m_folder.DropCopy(aside, problems);
        return false;
    }
    m_folder.Aside().Tell(m_folder.PathOf(file), aside, problems);
    return true;
}

bool StyleRemoval::FromFile(const CString& file, const GUID& id, Problems& problems)
{
    if (!IsFileName(file)) return Refuse(m_folder.Path(), L"文件名无效", problems);
    const auto held = m_folder.Hold(problems);
    if (!held) return false;
    const CString path = m_folder.PathOf(file);
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!root.LoadFromFile(path.c_str())) {
        Append(problems, root.TakeProblems());
        return false;
    }
    const auto entries = StyleEntries(root, m_folder.Library());
    const auto its = CountOf(id, entries);
    const bool alone = entries.size() == 1 || its == std::ssize(entries);
    if (entries.empty() || (!alone && its == 0))
        return Refuse(path, L"文件中没有要删除的样式", problems);
    // The only style need not bear the identity, and then cannot be taken out by it.
    const bool isTheWhole = alone && (its == 0 || !HoldsMore(root, m_folder.Library()));
    return isTheWhole ? m_folder.SetAside(file, problems) : TakeApart(file, id, problems);
}

bool StyleRemoval::FromAll(const GUID& id, Problems& problems)
{
    const auto held = m_folder.Hold(problems);
    if (!held) return false;
    Problems unlisted;
    const CStringArray files = m_folder.Files(unlisted);
    bool done = !files.empty() || !HasError(unlisted);
    Append(problems, std::move(unlisted));
    for (const CString& file : files) {
        const auto entries = m_folder.Entries(file, problems);
        if (!entries) {
            // What is known of it, or its name, says that the style is there.
            if (m_folder.HeldBefore(file, id) || file.find(VMRDPub::GUIDToStr(id)) != CString::npos)
                done = false;
        } else if (CountOf(id, *entries) > 0) {
            done = FromFile(file, id, problems) && done;
        }
    }
    return done;
}

} // namespace designspec
