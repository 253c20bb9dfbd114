#include "app/EditStore.h"

#include <algorithm>

#include <QDir>

#include "app/OthersChangeDialog.h"
#include "app/SpecificationChange.h"
#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "library/DesignSpecifications.h"
#include "library/StyleName.h"
#include "platform/mfc/FileChoice.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

using Kind = ChangeByOthers::Kind;

SpecificationFolder& Folder()
{
    return CDesignSpecifications::GetInstance()->Folder();
}

bool HasChangeBy(const std::vector<Change>& changes, ChangedBy by)
{
    return std::any_of(changes.begin(), changes.end(),
                       [by](const Change& one) { return one.by == by; });
}

// What the pages would not take, for the user.
CString RefusalOf(const CDesignSpecification& made)
{
    const CString refused = RefusedBy(CDesignSpecification(), made);
    return refused.empty() ? CString() : L"这样选择不能保存, 编辑窗口不接受其中的值:\n" + refused;
}

CString NativeText(const CString& path)
{
    return ToWide(NativePath(path));
}

// What is there now becomes what the library holds.
void Reread()
{
    CDesignSpecifications& library = *CDesignSpecifications::GetInstance();
    library.Update();
    library.Refurbish();
}

// The specifications of the project that was chosen, or the folder that holds them: it is chosen as
// easily.
CString LibraryOf(const QString& chosen)
{
    const QDir folder(chosen);
    const QString name = ToQString(kStylesFolder);
    const bool isLibrary = folder.dirName() == name && !folder.exists(name);
    return isLibrary ? FromQString(folder.path()) : StylesFolderOf(FromQString(folder.path()));
}

// Nobody comes between reading the folder and writing to it.
Outcome PutInto(SpecificationFolder& folder, const CDesignSpecification& specification)
{
    Outcome outcome;
    const auto held = folder.Hold(outcome.problems);
    if (!held) return outcome;
    TraceProblems(folder.Load().problems);
    return folder.Put(specification);
}

} // namespace

CEditStore::CEditStore(const CDesignSpecification& opened, const CDesignSpecification& filled,
                       const CDesignSpecification& entered, QWidget* owner)
    : m_opened(opened), m_isEdited(!(entered == filled)),
      // What the pages read in another way than it stood there was not entered.
      m_mine(Merged(filled, entered, opened)), m_owner(owner)
{
}

CEditStore::Result CEditStore::Settle()
{
    const ChangeByOthers change = FindChangeByOthers(Folder(), m_opened);
    if (change.kind == Kind::None) return Result::AsUsual;
    if (change.kind == Kind::FolderGone)
        return m_isEdited ? SaveElsewhere(m_mine, m_owner) : Result::Done;
    if (!m_isEdited) {
        if (Folder().Find(m_opened.ID())) Reread();
        return Result::Done;
    }
    return change.kind == Kind::Changed ? SettleChanged(change) : SettleGone(change);
}

CEditStore::Result CEditStore::SettleChanged(const ChangeByOthers& change)
{
    const auto changes = Changes(m_opened, m_mine, *change.theirs);
    // Where one has done all that the other has there is nothing to choose.
    if (!HasConflict(changes) &&
        (!HasChangeBy(changes, ChangedBy::Me) || !HasChangeBy(changes, ChangedBy::Them)))
        return Keep(Merged(m_opened, m_mine, *change.theirs), change, {});
    COthersChangeDialog dialog(
        Format(L"“%s”打开之后, 它的文件被别人修改了:\n%s\n\n"
               L"下面是不同的值, 可以逐个选择用谁的。没有保留的一方移至“规范/已删除”, 可以恢复。",
               m_opened.Name(), NativeText(change.path)),
        m_owner);
    dialog.Compare(m_opened, m_mine, *change.theirs, RefusalOf);
    dialog.Offer(COthersChangeDialog::kKeepMine, L"保留我的(&M)");
    dialog.Offer(COthersChangeDialog::kTakeTheirs, L"采用对方的(&T)");
    switch (dialog.DoModal()) {
    case COthersChangeDialog::kAsChosen:
        return Keep(dialog.Choices().Made(), change,
                    {.theirs = !dialog.Choices().IsAllOf(Choice::Right),
                     .mine = !dialog.Choices().IsAllOf(Choice::Left)});
    case COthersChangeDialog::kKeepMine:
        return Keep(m_mine, change, {.theirs = true});
    case COthersChangeDialog::kTakeTheirs:
        return TakeTheirs();
    default:
        return Result::Back;
    }
}

CEditStore::Result CEditStore::SettleGone(const ChangeByOthers& change)
{
    const bool isRemoved = change.kind == Kind::Removed;
    COthersChangeDialog dialog(Format(isRemoved
                                          ? L"“%s”打开之后, 它的文件被别人删除或移走了:\n%s"
                                          : L"“%s”打开之后, 它的文件被别人修改, 现在无法读取:\n%s",
                                      m_opened.Name(), NativeText(change.path)),
                               m_owner);
    dialog.Offer(COthersChangeDialog::kKeepMine, isRemoved ? L"重新保存我的(&M)" : L"保留我的(&M)");
    dialog.Offer(COthersChangeDialog::kTakeTheirs, L"不保存, 我的移至“已删除”(&T)");
    switch (dialog.DoModal()) {
    case COthersChangeDialog::kKeepMine:
        return Keep(m_mine, change, {.theirs = !isRemoved});
    case COthersChangeDialog::kTakeTheirs:
        return TakeTheirs();
    default:
        return Result::Back;
    }
}

CEditStore::Result CEditStore::Keep(const CDesignSpecification& wanted,
                                    const ChangeByOthers& change, Aside aside)
{
    SpecificationFolder& folder = Folder();
    Outcome outcome;
    // Not while a window is open.
    std::optional<StyleFolder::Held> held(folder.Hold(outcome.problems));
    if (!*held) return Told(outcome);
    Reread();
    CDesignSpecification* const now = folder.Find(wanted.ID());
    // It may have gone on while the user was thinking.
    const bool isAsShown = now ? change.theirs && *now == *change.theirs : !change.theirs;
    const CString oldName = now ? now->Name() : CString();
    const CString problem =
        isAsShown ? StyleNameProblem(folder, wanted.Name(), oldName) : CString();
    if (!isAsShown || !problem.empty()) {
        held.reset();
        return isAsShown ? Tell(problem) : Settle();
    }

    const CString file = change.path.substr(change.path.find_last_of(L"\\/") + 1);
    if (aside.theirs && folder.Files().KeepCopy(file, outcome.problems).empty()) {
        held.reset();
        return Told(outcome);
    }
    if (aside.mine) {
        outcome = folder.SetAside(m_mine);
        if (!outcome.done) {
            held.reset();
            return Told(outcome);
        }
    }
    if (!now) {
        if (aside.theirs) folder.Files().Delete(file, outcome.problems);
        CDesignSpecification& added = folder.Add(std::make_unique<CDesignSpecification>(wanted));
        outcome = folder.Save(added);
        if (!outcome.done) folder.TakeOut(folder.IndexOf(added));
    } else {
        *now = wanted;
        outcome = oldName == wanted.Name() ? folder.Save(*now) : folder.SaveRenamed(*now, oldName);
        if (!outcome.done) *now = *change.theirs;
    }
    held.reset();
    CDesignSpecifications::GetInstance()->Refurbish();
    return Told(outcome);
}

CEditStore::Result CEditStore::TakeTheirs()
{
    const Outcome outcome = Folder().SetAside(m_mine);
    if (outcome.done) Reread();
    return Told(outcome);
}

CEditStore::Result CEditStore::SaveElsewhere(const CDesignSpecification& entered, QWidget* owner)
{
    COthersChangeDialog dialog(Format(L"项目文件夹已不存在, “%s”没有保存:\n%s\n\n"
                                      L"文件夹不会重新建立。可以把规范另存为文件, 存入另一个项目, "
                                      L"或者等文件夹恢复之后再按确定。",
                                      entered.Name(), NativeText(Folder().Files().Path())),
                               owner);
    dialog.SetWindowText(L"项目文件夹已不存在");
    dialog.Offer(COthersChangeDialog::kKeepMine, L"另存为文件...(&S)");
    dialog.Offer(COthersChangeDialog::kOtherProject, L"存入另一个项目...(&P)");
    switch (dialog.DoModal()) {
    case COthersChangeDialog::kKeepMine:
        return SaveAsFile(entered, owner);
    case COthersChangeDialog::kOtherProject:
        return SaveToProject(entered, owner);
    default:
        return Result::Back;
    }
}

CEditStore::Result CEditStore::SaveAsFile(const CDesignSpecification& entered, QWidget* owner)
{
    const QString path =
        AskFileToSave(owner, QStringLiteral("另存为文件"), QStringLiteral("设计规范文件 (*.hds)"),
                      QStringLiteral("hds"), ToQString(entered.Name()), IfThere::Ask);
    if (path.isEmpty()) return Result::Back;
    SpecificationFolder elsewhere(L"");
    elsewhere.Add(std::make_unique<CDesignSpecification>(entered));
    return Told(elsewhere.Export(FromQString(path), {}), owner);
}

CEditStore::Result CEditStore::SaveToProject(const CDesignSpecification& entered, QWidget* owner)
{
    const QString project = AskFolder(owner, QStringLiteral("存入另一个项目: 选择项目文件夹"));
    if (project.isEmpty()) return Result::Back;
    SpecificationFolder folder(LibraryOf(project));
    const Result result = Told(PutInto(folder, entered), owner);
    const CDesignSpecification* const put = folder.Find(entered.ID());
    if (result == Result::Done && put)
        MessageBox(owner,
                   Format(L"“%s”已存入:\n%s", put->Name(),
                          NativeText(folder.Files().PathOf(folder.FileOf(*put)))),
                   L"提示", MB_ICONINFORMATION);
    return result;
}

CEditStore::Result CEditStore::Told(const Outcome& outcome) const
{
    return Told(outcome, m_owner);
}

CEditStore::Result CEditStore::Told(const Outcome& outcome, QWidget* owner)
{
    TraceProblems(outcome.problems);
    if (outcome.done) return Result::Done;
    CString text = L"没有保存, 输入的内容还在。";
    for (const Problem& problem : outcome.problems)
        if (problem.severity == Severity::Error) text += L"\n" + problem.Text();
    MessageBox(owner, text, L"提示", MB_ICONINFORMATION);
    return Result::Back;
}

CEditStore::Result CEditStore::Tell(const CString& text) const
{
    MessageBox(m_owner, text, L"提示", MB_ICONINFORMATION);
    return Result::Back;
}
