#include "platform/vmrd/VMRDEnv/Styles.h"

#include <utility>

#include "base/File.h"
#include "base/Format.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "platform/vmrd/VmHFCBaseU/Text.h"

using namespace designspec;

IMPLEMENT_DYNAMIC(CStyles, CObject)

namespace {

CStyles::RefurbishListener& Listener()
{
    static CStyles::RefurbishListener listener;
    return listener;
}

} // namespace

int CStyles::GetDefaultItem() const
{
    return m_nDefaultItem;
}

CStyle* CStyles::DefaultItem() const
{
    return Item(GetDefaultItem());
}

bool CStyles::SetDefaultItem(const GUID& id)
{
    for (int i = 0; i < Count(); ++i) {
        if (Item(i)->ID() == id) {
            SetDefaultItem(i);
            return true;
        }
    }
    return false;
}

void CStyles::SetDefaultItem(int index)
{
    m_nDefaultItem = index;
}

bool CStyles::SaveItem(int)
{
    return false;
}

void CStyles::Refurbish()
{
    const RefurbishListener listener = Listener(); // it may set another one
    if (listener) listener(*this);
}

CStyles::RefurbishListener CStyles::SetRefurbishListener(RefurbishListener listener)
{
    return std::exchange(Listener(), std::move(listener));
}

CString CStyles::GroupPath(const wchar_t* groupName)
{
    CString path;
    for (const CString& level : SplitText(groupName, L"/\\")) {
        if (!path.empty()) path += L'/';
        path += Format(L"Group[@Name=\"%s\"]", level);
    }
    return path;
}

bool CStyles::RemoveFromFile(const wchar_t* path, const GUID& id) const
{
    CXTPPropExchangeXMLNode root(false, kStyleLibraryRoot);
    if (!root.LoadFromFile(path)) return false;
    const CXTPPropExchange styles = root.FindSection(StylesPath().c_str());
    CXTPPropExchangeEnumerator all = styles.GetEnumerator(L"Style");
    while (all.HasNext()) {
        CXTPPropExchange style = all.GetNext();
        if (HasID(style, id)) style.RemoveSection();
    }
    return root.SaveToFile(path);
}

bool CStyles::HasID(const CXTPPropExchange& style, const GUID& id)
{
    GUID found;
    return VMRDPub::ParseGUID(style.Attribute(L"ID"), found) && found == id;
}

CString CStyles::StylesPath() const
{
    const CString name = Name();
    return Format(L"%s/Styles[@Name=\"%s\"]", GroupPath(name.c_str()), name);
}

bool CStyles::CreateStylesNode(const wchar_t* path, const wchar_t* groupName,
                               CXTPPropExchangeXMLNode& root, CXTPPropExchange& styles) const
{
    root = CXTPPropExchangeXMLNode(false, kStyleLibraryRoot);
    if (PathFileExists(path) && !root.LoadFromFile(path)) return false;
    styles =
        root.GetSection(Format(L"%s/Styles[@Name=\"%s\"]", GroupPath(groupName), Name()).c_str());
    return true;
}
