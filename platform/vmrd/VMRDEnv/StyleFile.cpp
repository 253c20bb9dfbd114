#include "platform/vmrd/VMRDEnv/StyleFile.h"

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

CString GroupPath(const CString& groupName)
{
    CString path;
    for (const CString& level : SplitText(groupName, L"/\\")) {
        if (!path.empty()) path += L'/';
        path += Format(L"Group[@Name=\"%s\"]", level);
    }
    return path;
}

CString StylesPath(const CString& library)
{
    return Format(L"%s/Styles[@Name=\"%s\"]", GroupPath(library), library);
}

bool CreateStylesNode(const CString& path, const CString& groupName, const CString& library,
                      CXTPPropExchangeXMLNode& root, CXTPPropExchange& styles)
{
    root = CXTPPropExchangeXMLNode(false, kStyleLibraryRoot);
    if (!path.empty() && PathFileExists(path) && !root.LoadFromFile(path.c_str())) return false;
    styles =
        root.GetSection(Format(L"%s/Styles[@Name=\"%s\"]", GroupPath(groupName), library).c_str());
    return true;
}

bool HasID(const CXTPPropExchange& style, const GUID& id)
{
    GUID found;
    return VMRDPub::ParseGUID(style.Attribute(L"ID"), found) && found == id;
}

std::vector<StyleEntry> StyleEntries(const CXTPPropExchange& root, const CString& library)
{
    std::vector<StyleEntry> entries;
    CXTPPropExchangeEnumerator all = root.GetEnumerator((StylesPath(library) + L"/Style").c_str());
    while (all.HasNext()) {
        const CXTPPropExchange style = all.GetNext();
        entries.push_back({style.Attribute(L"Name"), VMRDPub::StrToGUID(style.Attribute(L"ID"))});
    }
    return entries;
}

} // namespace designspec
