#include "app/SavedChanges.h"

#include <algorithm>

#include "app/SpecificationChange.h"
#include "base/Format.h"
#include "library/DesignSpecifications.h"
#include "platform/mfc/MessageBox.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

namespace designspec {

namespace {

ChangeLog* g_log = nullptr;

// Those that were there before.
std::vector<SpecificationChange> Backwards(const std::vector<SavedChange>& changes)
{
    std::vector<SpecificationChange> back;
    for (const SavedChange& change : changes)
        if (change.before) back.push_back({change.after, *change.before});
    return back;
}

std::vector<SpecificationChange> Forwards(const std::vector<SpecificationChange>& changes)
{
    std::vector<SpecificationChange> forth;
    for (const SpecificationChange& change : changes)
        forth.push_back({change.made, change.opened});
    return forth;
}

// Sets the new ones aside. What is wrong; then all are there as before.
CString RemoveNew(const std::vector<SavedChange>& changes)
{
    SpecificationFolder& folder = CDesignSpecifications::GetInstance()->Folder();
    std::vector<const CDesignSpecification*> removed;
    CString cause;
    for (const SavedChange& change : changes) {
        const CDesignSpecification* const found = folder.Find(change.after.ID());
        if (change.before || !found || !cause.empty()) continue;
        const Outcome outcome = folder.Remove(*found);
        TraceProblems(outcome.problems);
        if (outcome.done)
            removed.push_back(&change.after);
        else
            cause = outcome.problems.empty() ? CString(L"文件无法移走")
                                             : outcome.problems.front().Text();
    }
    if (!cause.empty())
        for (const CDesignSpecification* const one : removed)
            TraceProblems(folder.Put(*one).problems);
    return cause;
}

bool Tell(const CString& cause, QWidget* owner)
{
    MessageBox(owner, L"没有撤销。\n\n" + cause, L"提示", MB_ICONINFORMATION);
    return false;
}

} // namespace

ChangeLog::ChangeLog()
{
    g_log = this;
}

ChangeLog::~ChangeLog()
{
    g_log = nullptr;
}

void ChangeLog::Tell(const std::optional<CDesignSpecification>& before,
                     const CDesignSpecification& after)
{
    if (!g_log) return;
    auto& changes = g_log->m_changes;
    const auto known = std::find_if(changes.begin(), changes.end(), [&](const SavedChange& one) {
        return one.after.HasID(after.ID());
    });
    if (known != changes.end())
        known->after = after;
    else
        changes.push_back({before, after});
}

std::vector<SavedChange> ChangeLog::Changes() const
{
    std::vector<SavedChange> changes;
    for (const SavedChange& change : m_changes)
        if (!change.before || !(*change.before == change.after)) changes.push_back(change);
    return changes;
}

bool TakeBack(const std::vector<SavedChange>& changes, QWidget* owner)
{
    const std::vector<SpecificationChange> back = Backwards(changes);
    std::vector<SpecificationChange> all = back;
    for (const SavedChange& change : changes)
        if (!change.before) all.push_back({change.after, change.after});
    if (const CString changed = WhatHasChanged(all); !changed.empty())
        return changes.size() == 1 && !back.empty()
                   ? StoreChanged(back.front().opened, back.front().made, owner)
                   : Tell(changed, owner);
    if (!StoreAllChanged(back, owner)) return false;
    const CString cause = RemoveNew(changes);
    if (cause.empty()) return true;
    StoreAllChanged(Forwards(back), owner);
    return Tell(cause, owner);
}

CString SavedText(const std::vector<SavedChange>& changes)
{
    if (changes.empty()) return {};
    return changes.size() == 1 ? Format(L"已保存“%s”。", changes.front().after.Name())
                               : Format(L"已保存 %d 个规范。", changes.size());
}

CString TakenBackText(const std::vector<SavedChange>& changes)
{
    const std::size_t changed = Backwards(changes).size();
    const std::size_t added = changes.size() - changed;
    if (changes.size() == 1 && changed == 1)
        return Format(L"已撤销, “%s”恢复到编辑之前。", changes.front().before->Name());
    CString text = L"已撤销";
    if (changed > 0) text += Format(L", %d 个规范恢复到原来", changed);
    if (added > 0) text += Format(L", 新增的 %d 个规范移到“已删除”", added);
    return text + L"。";
}

} // namespace designspec
