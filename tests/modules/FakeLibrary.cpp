#include "tests/modules/FakeLibrary.h"

#include <algorithm>

#include "base/File.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "platform/vmrd/VMRDEnv/DeletedStyles.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "platform/vmrd/VmHFCBaseU/Files.h"
#include "platform/windows/Profile.h"

using namespace designspec;

namespace {

bool Has(const CStringArray& names, const CString& name)
{
    return std::any_of(names.begin(), names.end(),
                       [&](const CString& one) { return EqualNoCase(one, name); });
}

CString SettingsFile()
{
    return StylesFolder() + L"\\setting.ini";
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
    if (!CreateStylesNode(path, Name().c_str(), root, styles)) return false;
    for (const auto& item : m_items) {
        if (!names.empty() && !Has(names, item->name)) continue;
        const CString id = VMRDPub::GUIDToStr(item->id);
        CXTPPropExchange style = styles.GetSection(Format(L"Style[@ID=\"%s\"]", id).c_str());
        item->DoPropExchange(&style);
    }
    return root.SaveToFile(path);
}

template <class Each> bool CFakeStyles::ForEachIn(const wchar_t* path, Each each) const
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!PathFileExists(path) || !root.LoadFromFile(path)) return false;
    const CString way = Format(L"%s/Styles[@Name=\"%s\"]/Style", GroupPath(Name().c_str()), Name());
    CXTPPropExchangeEnumerator all = root.GetEnumerator(way.c_str());
    while (all.HasNext()) {
        CXTPPropExchange section = all.GetNext();
        CFakeStyle style;
        style.DoPropExchange(&section);
        each(style);
    }
    return true;
}

bool CFakeStyles::Import(const wchar_t* path, const CStringArray& names, const wchar_t*,
                         bool overwrite)
{
    return ForEachIn(path, [&](const CFakeStyle& style) {
        if (!names.empty() && !Has(names, style.name)) return;
        CFakeStyle* const known = Item(style.id);
        if (!known)
            m_items.push_back(std::make_unique<CFakeStyle>(style));
        else if (overwrite)
            *known = style;
    });
}

bool CFakeStyles::StyleNames(const wchar_t* path, CStringArray& names, CArray<GUID>& ids) const
{
    return ForEachIn(path, [&](const CFakeStyle& style) {
        names.push_back(style.name);
        ids.push_back(style.id);
    });
}

bool CFakeStyles::SaveAsTemplate(const wchar_t* folder)
{
    const CString target = CString(folder) + L"\\规范";
    bool done = CreateFolder(target);
    for (const CString& file : FindFiles(StylesFolder(), L".hds"))
        done = CopyFile(StylesFolder() + L"\\" + file, target + L"\\" + file) && done;
    return done;
}

void CFakeStyles::Update()
{
    m_items.clear();
    for (const CString& file : FindFiles(StylesFolder(), L".hds"))
        Import((StylesFolder() + L"\\" + file).c_str(), {}, nullptr, true);
    GUID id;
    if (VMRDPub::ParseGUID(GetPrivateProfileString(L"设置", L"默认样式", L"", SettingsFile()), id))
        SetDefaultItem(id);
}

void CFakeStyles::SetDefaultItem(int index)
{
    CStyles::SetDefaultItem(index);
    WritePrivateProfileString(L"设置", L"默认样式", VMRDPub::GUIDToStr(Item(index)->id).c_str(),
                              SettingsFile());
}

CString CFakeStyles::FilePath(const CFakeStyle& style) const
{
    return Format(L"%s\\%s%s.hds", StylesFolder(), style.name, VMRDPub::GUIDToStr(style.id));
}

bool CFakeStyles::SaveItem(int index)
{
    const CFakeStyle* const style = Item(index);
    return style && CreateFolder(StylesFolder()) &&
           Export(FilePath(*style).c_str(), {style->name}, nullptr);
}

CFakeStyle* CFakeStyles::Add(const CString& name)
{
    m_items.push_back(std::make_unique<CFakeStyle>());
    m_items.back()->name = name;
    m_items.back()->id = CoCreateGuid();
    SaveItem(Count() - 1);
    return m_items.back().get();
}

void CFakeStyles::Rename(CFakeStyle& style, const CString& name)
{
    DeleteFile(FilePath(style));
    style.name = name;
    Export(FilePath(style).c_str(), {name}, nullptr);
}

bool CFakeStyles::Remove(const CStyle* style)
{
    return std::erase_if(m_items, [&](const auto& item) { return item.get() == style; }) > 0;
}
