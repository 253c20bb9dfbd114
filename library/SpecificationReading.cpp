#include "library/SpecificationReading.h"

#include "base/Format.h"
#include "library/StyleName.h"
#include "platform/vmrd/VMRDEnv/StyleFile.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

// Says what is wrong with the name or the identity that a file gives; it is loaded all the same.
void AddOddities(const CXTPPropExchange& style, const CString& path, const CString& name,
                 Problems& problems)
{
    const auto add = [&](const CString& text) {
        AddProblem(problems, Severity::Error, path, style.Line(), text);
    };
    GUID id;
    const CString idText = style.Attribute(L"ID");
    if (idText.empty())
        add(Format(L"样式“%s”没有 ID,已给予新的标识", name));
    else if (!VMRDPub::ParseGUID(idText, id))
        add(Format(L"样式“%s”的 ID“%s”无效,已给予新的标识", name, idText));
    if (name.empty()) add(L"样式没有名称");
    if (const CString problem = FileNameProblem(name); !problem.empty())
        add(Format(L"样式“%s”的%s", name, problem));
}

} // namespace

std::vector<ReadSpecification> ReadSpecifications(const CXTPPropExchange& root, const CString& path,
                                                  const std::function<bool(const CString&)>& wanted,
                                                  Problems& problems)
{
    std::vector<ReadSpecification> read;
    const CXTPPropExchange styles = root.FindSection(StylesPath(kLibraryName).c_str());
    if (!styles.IsSectionExists())
        AddProblem(problems, Severity::Error, path, root.Line(),
                   Format(L"文件中没有“%s”的样式", CString(kLibraryName)));
    CXTPPropExchangeEnumerator all = styles.GetEnumerator(L"Style");
    while (all.HasNext()) {
        CXTPPropExchange style = all.GetNext();
        // A copy: a new identity for each, which the file's own then replaces, takes its time.
        static const CDesignSpecification blank;
        auto specification = std::make_unique<CDesignSpecification>(blank);
        specification->DoPropExchange(&style);
        const Problems unreadable = style.TakeProblems();
        const CString name = specification->Name();
        if (!wanted(name)) {
            AddProblem(problems, Severity::Note, path, style.Line(),
                       Format(L"样式“%s”不在所选之列", name));
            continue;
        }
        for (const Problem& problem : unreadable)
            AddProblem(problems, Severity::Error, path, problem.line,
                       Format(L"样式“%s”未载入: %s", name, problem.text));
        if (!unreadable.empty()) continue;
        AddOddities(style, path, name, problems);
        read.push_back({std::move(specification), style.Line()});
    }
    return read;
}

} // namespace designspec
