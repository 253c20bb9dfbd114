#include "tests/modules/FakeLibrary.h"

#include <algorithm>

#include "base/File.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

bool Has(const CStringArray& names, const CString& name)
{
    return std::any_of(names.begin(), names.end(),
                       [&](const CString& one) { return EqualNoCase(one, name); });
}

bool Traced(const Problems& problems, bool done)
{
    TraceProblems(problems);
    return done;
}

// Calls each(style) for the styles of a document.
template <class Each> void ForEach(const CXTPPropExchange& root, const CString& library, Each each)
{
    CXTPPropExchangeEnumerator all = root.GetEnumerator((StylesPath(library) + L"/Style").c_str());
    while (all.HasNext()) {
        CXTPPropExchange section = all.GetNext();
        CFakeStyle style;
        style.DoPropExchange(&section);
        each(style);
    }
}

} // namespace

void CFakeStyle::DoPropExchange(CXTPPropExchange* pPX)
{
    CString text = VMRDPub::GUIDToStr(id);
    pPX->EnableCompactMode(true);
    PX_String(pPX, L"ID", text);
    PX_String(pPX, L"Name", name);
    PX_Int(pPX, L"Value", value);
    id = VMRDPub::StrToGUID(text);
}

CFakeStyle* CFakeStyles::Item(const GUID& id) const
{
    for (const auto& item : m_items)
        if (item->id == id) return item.get();
    return nullptr;
}

CFakeStyle* CFakeStyles::Item(int index) const
{
    return index >= 0 && index < Count() ? m_items[static_cast<size_t>(index)].get() : nullptr;
}

CFakeStyle* CFakeStyles::Item(const CString& name) const
{
    for (const auto& item : m_items)
        if (EqualNoCase(item->name, name)) return item.get();
    return nullptr;
}

bool CFakeStyles::Export(const wchar_t* path, const CStringArray& names, const wchar_t*)
{
    CXTPPropExchangeXMLNode root;
    CXTPPropExchange styles;
    if (!CreateStylesNode(path, Name(), Name(), root, styles))
        return Traced(root.TakeProblems(), false);
    for (const auto& item : m_items) {
        if (!names.empty() && !Has(names, item->name)) continue;
        const CString id = VMRDPub::GUIDToStr(item->id);
        CXTPPropExchange style = styles.GetSection(Format(L"Style[@ID=\"%s\"]", id).c_str());
        item->DoPropExchange(&style);
    }
    const bool saved = root.SaveToFile(path);
    return Traced(root.TakeProblems(), saved);
}

void CFakeStyles::TakeIn(const CFakeStyle& style, bool overwrite)
{
    CFakeStyle* const known = Item(style.id);
    if (!known)
        m_items.push_back(std::make_unique<CFakeStyle>(style));
    else if (overwrite)
        *known = style;
}

bool CFakeStyles::Import(const wchar_t* path, const CStringArray& names, const wchar_t*,
                         bool overwrite)
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!PathFileExists(path) || !root.LoadFromFile(path))
        return Traced(root.TakeProblems(), false);
    ForEach(root, Name(), [&](const CFakeStyle& style) {
        if (names.empty() || Has(names, style.name)) TakeIn(style, overwrite);
    });
    return true;
}

StyleImport CFakeStyles::ImportAndSave(const CString& path, const CStringArray& names,
                                       bool overwrite)
{
    StyleImport result;
    CStringArray all;
    CArray<GUID> ids;
    StyleNames(path.c_str(), all, ids);
    std::vector<GUID> before;
    for (const auto& item : m_items)
        before.push_back(item->id);
    result.read = Import(path.c_str(), names, nullptr, overwrite);
    for (size_t i = 0; i < ids.size(); ++i) {
        CFakeStyle* const style = Item(ids[i]);
        if (!style || !(names.empty() || Has(names, all[i]))) continue;
        const bool known = std::find(before.begin(), before.end(), ids[i]) != before.end();
        if (known && !overwrite) continue;
        ++(known ? result.overwritten : result.added);
        result.ids.push_back(ids[i]);
        Problems problems;
        const bool aside = !known || Files().SetAside(ids[i], problems);
        TraceProblems(problems);
        if (!aside || !Save(*style)) ++result.failed;
    }
    return result;
}

bool CFakeStyles::StyleNames(const wchar_t* path, CStringArray& names, CArray<GUID>& ids) const
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!PathFileExists(path) || !root.LoadFromFile(path))
        return Traced(root.TakeProblems(), false);
    for (const StyleEntry& entry : StyleEntries(root, Name())) {
        names.push_back(entry.name);
        ids.push_back(entry.id);
    }
    return true;
}

bool CFakeStyles::SaveAsTemplate(const wchar_t* folder)
{
    const StyleFolder target(StylesFolderOf(folder), Name());
    Problems problems;
    bool done = CreateFolder(target.Path(), problems);
    for (const CString& file : Files().Files(problems))
        done = CopyFile(Files().PathOf(file), target.PathOf(file), problems) && done;
    return Traced(problems, done);
}

void CFakeStyles::Update()
{
    m_items.clear();
    Problems problems;
    for (const CString& file : Files().Files(problems)) {
        CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
        if (m_files.Load(file, root, problems))
            ForEach(root, Name(), [&](const CFakeStyle& style) { TakeIn(style, true); });
    }
    GUID id;
    if (VMRDPub::ParseGUID(m_files.Setting(L"设置", L"默认样式", problems), id)) SetDefaultItem(id);
    TraceProblems(problems);
}

void CFakeStyles::SetDefaultItem(int index)
{
    CStyles::SetDefaultItem(index);
    Problems problems;
    Files().SetSetting(L"设置", L"默认样式", VMRDPub::GUIDToStr(Item(index)->id), problems);
    TraceProblems(problems);
}

StyleFolder& CFakeStyles::Files()
{
    m_files.MoveTo(CurrentStylesFolder());
    return m_files;
}

CString CFakeStyles::FileName(const CFakeStyle& style)
{
    return style.name + VMRDPub::GUIDToStr(style.id) + kStyleFileEnding;
}

bool CFakeStyles::Save(CFakeStyle& style)
{
    CXTPPropExchangeXMLNode root;
    CXTPPropExchange styles;
    CreateStylesNode(L"", Name(), Name(), root, styles);
    CXTPPropExchange section = styles.AppendSection(L"Style");
    style.DoPropExchange(&section);
    Problems problems;
    const bool saved = Files().Save(FileName(style), root, problems);
    return Traced(problems, saved);
}

CFakeStyle* CFakeStyles::Add(const CString& name)
{
    m_items.push_back(std::make_unique<CFakeStyle>());
    m_items.back()->name = name;
    m_items.back()->id = CoCreateGuid();
    Save(*m_items.back());
    return m_items.back().get();
}

void CFakeStyles::Rename(CFakeStyle& style, const CString& name)
{
    Problems problems;
    Files().Delete(FileName(style), problems);
    style.name = name;
    Save(style);
}

bool CFakeStyles::Remove(const CStyle* style)
{
    return std::erase_if(m_items, [&](const auto& item) { return item.get() == style; }) > 0;
}
