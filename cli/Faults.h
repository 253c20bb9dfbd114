// The editor's rules, kept by the commands that change specifications: what a page of it refuses is
// refused here too, unless --force is given.
#pragma once

#include "cli/Project.h"
#include "model/Findings.h"

// Ends with kWrongCall when there are faults, each told in its words; with --force they are told
// alone. `what` is what was not done.
void RefuseFaults(const Arguments& arguments, Teller& teller, const CString& what,
                  const std::vector<designspec::Finding>& faults);

// Those that the editor does not take from the keyboard.
std::vector<designspec::Finding> FaultsAmong(std::vector<designspec::Finding> findings);

// Those that make the editor refuse to store.
std::vector<designspec::Finding> ErrorsAmong(std::vector<designspec::Finding> findings);

// The findings of one specification around a change of one value.
class ValueChange {
public:
    // Before the change.
    ValueChange(const CDesignSpecification& specification, const designspec::ValuePath& path);

    // After it: refuses a value that the editor would not take, and what keeps the editor from
    // storing and was not there before. Odd values at the path are told.
    void Check(const Arguments& arguments, Teller& teller) const;

private:
    bool IsHere(const designspec::Finding& finding) const;

    const CDesignSpecification& m_specification;
    CString m_path;
    std::vector<designspec::Finding> m_before;
};
