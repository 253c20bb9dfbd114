#include "library/SpecificationReading.h"

#include "base/CodePoint.h"
#include "base/Format.h"
#include "base/Text.h"
#include "library/StyleName.h"
#include "model/Criteria.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

constexpr size_t kLongestName = 255; // bytes

// Says what is wrong with the name or the identity that a file gives; it is loaded all the same.
// True when there is an identity.
bool AddOddities(const CXTPPropExchange& style, const CString& path, const CString& name,
                 Problems& problems)
{
    const auto add = [&](const CString& text) {
        AddProblem(problems, Severity::Error, path, style.Line(), text);
    };
    GUID id;
    const CString idText = style.Attribute(L"ID");
    const bool hasID = VMRDPub::ParseGUID(idText, id);
    if (idText.empty())
        add(Format(L"样式“%s”没有 ID,已给予新的标识", name));
    else if (!hasID)
        add(Format(L"样式“%s”的 ID“%s”无效,已给予新的标识", name, idText));
    if (const CString problem = FileNameProblem(name); !problem.empty())
        add(Format(L"样式“%s”的%s", name, problem));
    return hasID;
}

// What loading makes a specification of. It takes out all rows first: here there are none, but
// room for them.
CDesignSpecification WithoutRows()
{
    CDesignSpecification blank;
    for (const CriterionInfo& criterion : Criteria())
        for (const Field& field : criterion.fields)
            if (field.HasRows())
                for (int i = field.RowCount(criterion.get(blank)); i > 0; --i)
                    field.RemoveRow(criterion.get(blank), i - 1);
    return blank;
}

// Without a specification when that one is passed over or refused.
ReadSpecification Read(CXTPPropExchange style, const CString& path,
                       const std::function<bool(const CString&)>& wanted, Problems& problems)
{
    const CString name = style.Attribute(L"Name");
    if (const size_t size = ToUtf8(name).size(); size > kLongestName) {
        AddProblem(problems, Severity::Error, path, style.Line(),
                   Format(L"样式“%s…”未载入: 名称过长(%d 字节,最多 %d 字节)",
                          CString(FirstCharacters<wchar_t>(name, 20)), size, kLongestName));
        return {};
    }
    if (!wanted(name)) {
        AddProblem(problems, Severity::Note, path, style.Line(),
                   Format(L"样式“%s”不在所选之列", name));
        return {};
    }
    // A copy: a new identity for each, which the file's own then replaces, takes its time.
    static const CDesignSpecification blank = WithoutRows();
    auto specification = std::make_unique<CDesignSpecification>(blank);
    specification->DoPropExchange(&style);
    const Problems unreadable = style.TakeProblems();
    for (const Problem& problem : unreadable)
        AddProblem(problems, Severity::Error, path, problem.line,
                   Format(L"样式“%s”未载入: %s", name, problem.text));
    if (!unreadable.empty()) return {};
    const bool hasID = AddOddities(style, path, name, problems);
    return {std::move(specification), style.Line(), hasID, style};
}

size_t CountOf(CXTPPropExchangeEnumerator all)
{
    size_t count = 0;
    for (; all.HasNext(); all.GetNext())
        ++count;
    return count;
}

// A stored specification takes more in its file than in memory; one with nothing in it does not.
bool IsOutOfProportion(size_t specifications, size_t bytes)
{
    constexpr size_t kEach = 11 << 10;
    constexpr size_t kFree = 256 << 20;
    constexpr size_t kTimes = 16;
    return specifications * kEach > kFree + kTimes * bytes;
}

} // namespace

ReadDocument ReadSpecifications(const CXTPPropExchangeXMLNode& root, const CString& path,
                                const std::function<bool(const CString&)>& wanted,
                                Problems& problems)
{
    ReadDocument document;
    const CString stylesPath = StylesPath(kLibraryName);
    if (!root.GetEnumerator(stylesPath.c_str()).HasNext())
        AddProblem(problems, Severity::Error, path, root.Line(),
                   Format(L"文件中没有“%s”的样式", CString(kLibraryName)));
    document.isAll = !HoldsMore(root, kLibraryName);
    CXTPPropExchangeEnumerator all = root.GetEnumerator((stylesPath + L"/Style").c_str());
    if (const size_t count = CountOf(all); IsOutOfProportion(count, root.SourceSize())) {
        AddProblem(problems, Severity::Error, path, root.Line(),
                   Format(L"%d 个样式都未载入: 需要的内存与文件大小不成比例", count));
        document.isAll = false;
        return document;
    }
    while (all.HasNext()) {
        ReadSpecification read = Read(all.GetNext(), path, wanted, problems);
        if (read.specification)
            document.specifications.push_back(std::move(read));
        else
            document.isAll = false;
    }
    return document;
}

} // namespace designspec
