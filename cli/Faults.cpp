#include "cli/Faults.h"

#include "model/Rules.h"

using namespace designspec;

namespace {

bool IsError(const Finding& finding)
{
    return finding.severity == Severity::Error;
}

bool IsFault(const Finding& finding)
{
    return finding.IsRefusedWhenTyped();
}

CString LineOf(const Finding& finding)
{
    return finding.path + L": " + finding.Line();
}

void Tell(const std::vector<Finding>& findings, Teller& teller)
{
    Problems notes;
    for (const Finding& finding : findings)
        notes.push_back({Severity::Note, {}, 0, LineOf(finding)});
    teller.Tell(notes);
}

} // namespace

void RefuseFaults(const Arguments& arguments, Teller& teller, const CString& what,
                  const std::vector<Finding>& faults)
{
    if (faults.empty()) return;
    if (arguments.force) return Tell(faults, teller);
    CString text = what + L",编辑器不接受其中的值:";
    for (const Finding& fault : faults)
        text += L"\n  " + LineOf(fault);
    Refuse(text + L"\n用 --force 可以仍然这样做");
}

std::vector<Finding> FaultsAmong(std::vector<Finding> findings)
{
    std::erase_if(findings, [](const Finding& one) { return !IsFault(one); });
    return findings;
}

std::vector<Finding> ErrorsAmong(std::vector<Finding> findings)
{
    std::erase_if(findings, [](const Finding& one) { return !IsError(one); });
    return findings;
}

ValueChange::ValueChange(const CDesignSpecification& specification, const ValuePath& path)
    : m_specification(specification), m_path(path.Text()), m_before(Findings(specification))
{
}

// Its speed is not what is set: one that the editor would not take may be there from a file.
bool ValueChange::IsHere(const Finding& finding) const
{
    return finding.path.starts_with(m_path) && finding.text != SpeedText() &&
           (finding.path.size() == m_path.size() || finding.path[m_path.size()] == L'.');
}

void ValueChange::Check(const Arguments& arguments, Teller& teller) const
{
    const std::vector<Finding> after = Findings(m_specification);
    std::vector<Finding> faults;
    for (const Finding& finding : NewFindings(m_before, after))
        if (IsFault(finding) && !IsHere(finding)) faults.push_back(finding);
    // Here also those of before count: the value was set to another wrong one.
    std::vector<Finding> odd;
    for (const Finding& finding : after)
        if (IsHere(finding)) (IsFault(finding) ? faults : odd).push_back(finding);
    RefuseFaults(arguments, teller, L"没有修改", faults);
    Tell(odd, teller);
}
