#include "platform/vmrd/VMRDEnv/StyleReturn.h"

#include <algorithm>

#include "base/File.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

bool IsNamed(const CString& name, const std::vector<StyleEntry>& entries)
{
    return std::any_of(entries.begin(), entries.end(),
                       [&](const StyleEntry& entry) { return EqualNoCase(entry.name, name); });
}

// The name that a file had before it got a number behind it among the deleted ones: files are
// called by name and identity of their style.
CString NameBefore(const CString& file, const std::vector<StyleEntry>& entries)
{
    for (const StyleEntry& entry : entries) {
        const CString id = VMRDPub::GUIDToStr(entry.id);
        const size_t at = file.find(id);
        if (at != CString::npos) return file.substr(0, at + id.size()) + kStyleFileEnding;
    }
    return file;
}

} // namespace

// The one that the file had if that is free, else its own; empty when that cannot be told or both
// are taken.
CString StyleReturn::NameFor(const CString& file, const std::vector<StyleEntry>& entries,
                             Problems& problems) const
{
    for (const CString& name : {NameBefore(file, entries), file}) {
        const auto there = m_folder.Has(name, problems);
        if (!there) return {};
        if (!*there) return name;
    }
    Refuse(m_folder.PathOf(file), L"无法恢复: 同名文件已存在", problems);
    return {};
}

bool StyleReturn::BringBack(const CString& file, std::vector<StyleEntry>& present,
                            Problems& problems)
{
    if (!IsFileName(file)) return Refuse(m_folder.DeletedPath(), L"文件名无效", problems);
    const auto held = m_folder.Hold(problems);
    const auto coming = held ? m_folder.Aside().Entries(file, problems) : std::nullopt;
    if (!coming) return false;
    const auto isPresent = [&](const StyleEntry& one) { return CountOf(one.id, present) > 0; };
    if (!coming->empty() && std::all_of(coming->begin(), coming->end(), isPresent))
        return Refuse(m_folder.Aside().PathOf(file), L"无法恢复: 库中已有同一标识的样式", problems);
    const auto isTaken = [&](const StyleEntry& one) { return IsNamed(one.name, present); };
    if (std::any_of(coming->begin(), coming->end(), isTaken))
        return BringBackRenamed(file, present, problems);
    const CString name = NameFor(file, *coming, problems);
    if (name.empty() || !m_folder.MoveIn(m_folder.Aside().PathOf(file), name, problems))
        return false;
    present.insert(present.end(), coming->begin(), coming->end());
    return true;
}

// Written anew under the free name before it leaves the deleted ones.
bool StyleReturn::BringBackRenamed(const CString& file, std::vector<StyleEntry>& present,
                                   Problems& problems)
{
    const CString path = m_folder.Aside().PathOf(file);
    CXTPPropExchangeXMLNode root(false, kStyleLibraryRoot);
    if (!root.LoadFromFile(path.c_str())) return Append(problems, root.TakeProblems()), false;
    CString newFile = file;
    CXTPPropExchangeEnumerator all =
        root.GetEnumerator((StylesPath(m_folder.Library()) + L"/Style").c_str());
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
    const auto isTaken = [&](const CString& name) { return m_folder.Has(name, problems); };
    newFile = IsFileName(newFile) ? DeletedStyles::FreeName(newFile, isTaken) : CString();
    return !newFile.empty() && m_folder.Save(newFile, root, problems) && DeleteFile(path, problems);
}

} // namespace designspec
