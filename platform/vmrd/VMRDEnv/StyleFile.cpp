#include "platform/vmrd/VMRDEnv/StyleFile.h"

#include <algorithm>

#include <pugixml.hpp>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "base/XmlPath.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

CString GroupPath(const CString& groupName)
{
    CString path;
    for (const CString& level : SplitText(groupName, L"/\\")) {
        if (!path.empty()) path += L'/';
        path += L"Group[@Name=\"" + level + L"\"]";
    }
    return path;
}

CString StylesPath(const CString& library)
{
    return GroupPath(library) + L"/Styles[@Name=\"" + library + L"\"]";
}

bool CreateStylesNode(const CString& path, const CString& groupName, const CString& library,
                      CXTPPropExchangeXMLNode& root, CXTPPropExchange& styles)
{
    root = CXTPPropExchangeXMLNode(false, kStyleLibraryRoot);
    if (!path.empty() && !root.OpenFile(path.c_str())) return false;
    styles =
        root.GetSection(Format(L"%s/Styles[@Name=\"%s\"]", GroupPath(groupName), library).c_str());
    return true;
}

namespace {

bool HoldsMore(pugi::xml_node node, std::wstring_view path)
{
    const bool areStyles = path.empty();
    const PathStep step = TakeStep(path);
    return std::any_of(node.begin(), node.end(), [&](pugi::xml_node child) {
        if (child.type() != pugi::node_element) return false;
        const CString name = ToWide(child.name());
        if (areStyles) return name != L"Style";
        const bool leadsOn =
            name == step.name &&
            ToWide(child.attribute(ToUtf8(step.attribute).c_str()).value()) == step.value;
        return !leadsOn || HoldsMore(child, path);
    });
}

} // namespace

bool HoldsMore(const CXTPPropExchange& root, const CString& library)
{
    return HoldsMore(pugi::xml_node(root.Node()), StylesPath(library));
}

bool HasID(const CXTPPropExchange& style, const GUID& id)
{
    GUID found;
    return VMRDPub::ParseGUID(style.Attribute(L"ID"), found) && found == id;
}

void Reduce(const CXTPPropExchange& root, const CString& library, const GUID& id, bool keepIt)
{
    CXTPPropExchangeEnumerator all = root.GetEnumerator((StylesPath(library) + L"/Style").c_str());
    while (all.HasNext()) {
        CXTPPropExchange style = all.GetNext();
        if (HasID(style, id) != keepIt) style.RemoveSection();
    }
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

std::optional<std::vector<StyleEntry>> EntriesOf(const CString& path, const CString& library,
                                                 Problems& problems)
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (root.LoadFromFile(path.c_str())) return StyleEntries(root, library);
    Append(problems, root.TakeProblems());
    return std::nullopt;
}

bool HoldsStyle(const CXTPPropExchange& root, const CString& library, const GUID& id)
{
    const std::vector<StyleEntry> entries = StyleEntries(root, library);
    return entries.size() == 1 ||
           std::any_of(entries.begin(), entries.end(),
                       [&](const StyleEntry& entry) { return entry.id == id; });
}

std::ptrdiff_t CountOf(const GUID& id, const std::vector<StyleEntry>& entries)
{
    return std::count_if(entries.begin(), entries.end(),
                         [&](const StyleEntry& entry) { return entry.id == id; });
}

bool Refuse(const CString& path, const CString& why, Problems& problems)
{
    AddProblem(problems, Severity::Error, path, 0, why);
    return false;
}

} // namespace designspec
