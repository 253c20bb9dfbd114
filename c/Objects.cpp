#include "c/Objects.h"

#include "model/Findings.h"

namespace designspec {

namespace {

[[noreturn]] void NoAnswer(const CString& cause)
{
    throw CallFailure{DESIGNSPEC_NO_ANSWER, cause};
}

} // namespace

CDesignSpecification& SpecificationObject::Get() const
{
    if (own) return *own;
    CDesignSpecification* const found = library->folder->Find(id);
    if (!found) NoAnswer(L"设计规范已不在库中");
    return *found;
}

ValuePlace TableObject::Get() const
{
    ValuePlace place;
    const CString problem = FindValue(specification->Get(), path, place);
    if (!problem.empty()) RefuseCall(problem);
    if (!place.field) NoAnswer(L"表所在的行已不在设计规范中");
    return place;
}

ValuePath PathOf(const char* text)
{
    ParsedPath parsed = ParseValuePath(TextOf(text));
    if (!parsed.problem.empty()) RefuseCall(parsed.problem);
    if (parsed.path.steps.empty()) RefuseCall(L"路径没有指定字段");
    return std::move(parsed.path);
}

void ChangeTo(CDesignSpecification& specification, const CDesignSpecification& changed)
{
    const std::wstring fault = NewFault(specification, changed);
    if (!fault.empty()) RefuseCall(fault);
    specification.CopyCriteria(changed);
}

} // namespace designspec
