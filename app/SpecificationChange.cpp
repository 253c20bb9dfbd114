#include "app/SpecificationChange.h"

#include "app/EditStore.h"
#include "app/SavedChanges.h"
#include "base/Format.h"
#include "library/ChangeByOthers.h"
#include "library/DesignSpecifications.h"
#include "library/SpecificationHistory.h"
#include "model/Findings.h"
#include "platform/mfc/MessageBox.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

namespace designspec {

namespace {

constexpr int kMostLines = 10;

bool Save(CDesignSpecification& now, const CDesignSpecification& made, CString& cause)
{
    const Connection trace = ConnectTrace([&cause](const TraceLine& line) {
        if (line.severity == TraceLevel::Error && cause.empty()) cause = line.Text();
    });
    const CDesignSpecification before = now;
    CDesignSpecifications& library = *CDesignSpecifications::GetInstance();
    now = made;
    const bool isSaved = before.Name() == made.Name() ? library.Save(&now)
                                                      : library.SaveRenamed(&now, before.Name());
    if (!isSaved) now = before;
    return isSaved;
}

bool Tell(const CDesignSpecification& made, const CString& cause, QWidget* owner)
{
    MessageBox(owner, Format(L"“%s”没有保存。\n\n%s", made.Name(), cause), L"提示",
               MB_ICONINFORMATION);
    return false;
}

} // namespace

CString WhatHasChanged(const std::vector<SpecificationChange>& changes)
{
    const SpecificationFolder& folder = CDesignSpecifications::GetInstance()->Folder();
    if (!folder.Files().HasPlace()) return L"项目文件夹已不存在: " + folder.Files().Path();
    const auto read = ReadIfChanged(folder);
    const SpecificationFolder& now = read ? *read : folder;
    for (const SpecificationChange& change : changes) {
        const CDesignSpecification* const found = now.Find(change.opened.ID());
        if (!found || !(*found == change.opened))
            return Format(L"“%s”已被别人修改或删除。请重新加载(F5)之后再试。",
                          change.opened.Name());
    }
    return {};
}

CString RefusedBy(const CDesignSpecification& before, const CDesignSpecification& made)
{
    CString text;
    int lines = 0;
    for (const Finding& finding : NewFindings(Findings(before), Findings(made)))
        if (finding.severity == Severity::Error && ++lines <= kMostLines)
            text += (text.empty() ? L"" : L"\n") + finding.Line();
    return text;
}

namespace {

// True with a message.
bool IsRefused(const CDesignSpecification& before, const CDesignSpecification& made, QWidget* owner)
{
    const CString refused = RefusedBy(before, made);
    if (refused.empty()) return false;
    MessageBox(owner, Format(L"“%s”没有保存, 编辑窗口不接受其中的值:\n%s", made.Name(), refused),
               L"提示", MB_ICONINFORMATION);
    return true;
}

} // namespace

bool StoreChanged(const CDesignSpecification& opened, const CDesignSpecification& made,
                  QWidget* owner)
{
    if (IsRefused(opened, made, owner)) return false;
    const CEditStore::Result settled = CEditStore(opened, opened, made, owner).Settle();
    if (settled != CEditStore::Result::AsUsual) return settled == CEditStore::Result::Done;
    CDesignSpecification* const now = CDesignSpecifications::GetInstance()->Item(made.ID());
    CString cause;
    // `opened` may be the one in the library.
    const CDesignSpecification before = CDesignSpecification(opened);
    if (!now || !Save(*now, made, cause)) return Tell(made, cause, owner);
    ChangeLog::Tell(before, *now);
    return true;
}

bool StoreNew(const CDesignSpecification& made, QWidget* owner)
{
    return !IsRefused(CDesignSpecification(), made, owner) && PutBack(made, owner);
}

bool PutBack(const CDesignSpecification& specification, QWidget* owner)
{
    CDesignSpecifications& library = *CDesignSpecifications::GetInstance();
    const Outcome outcome = BringBack(library.Folder(), specification);
    TraceProblems(outcome.problems);
    library.Refurbish();
    if (outcome.done) {
        ChangeLog::Tell(std::nullopt, *library.Item(specification.ID()));
        return true;
    }
    CString cause;
    for (const Problem& problem : outcome.problems)
        if (problem.severity == Severity::Error) cause += problem.Text() + L"\n";
    return Tell(specification, cause, owner);
}

bool StoreAllChanged(const std::vector<SpecificationChange>& changes, QWidget* owner)
{
    CDesignSpecifications& library = *CDesignSpecifications::GetInstance();
    SpecificationFolder& folder = library.Folder();
    Problems problems;
    std::optional<StyleFolder::Held> held(folder.Hold(problems));
    TraceProblems(problems);
    CString cause = *held ? CString() : problems.empty() ? CString() : problems.front().Text();
    if (*held) cause = WhatHasChanged(changes);
    std::size_t saved = 0;
    for (; cause.empty() && saved < changes.size(); ++saved) {
        CDesignSpecification* const now = library.Item(changes[saved].made.ID());
        if (!now || !Save(*now, changes[saved].made, cause)) break;
    }
    if (*held && cause.empty() && saved == changes.size()) {
        for (const SpecificationChange& change : changes)
            ChangeLog::Tell(change.opened, *library.Item(change.made.ID()));
        return true;
    }
    CString unused;
    while (saved-- > 0)
        Save(*library.Item(changes[saved].opened.ID()), changes[saved].opened, unused);
    held.reset();
    MessageBox(owner, L"一个规范也没有修改。\n\n" + cause, L"提示", MB_ICONINFORMATION);
    return false;
}

} // namespace designspec
