#include "app/DSEditor.h"

#include <algorithm>
#include <utility>

#include <QApplication>

#include "app/ChangeManyDialog.h"
#include "app/CompareDialog.h"
#include "app/DSMainDialog.h"
#include "app/HistoryDialog.h"
#include "app/ImportChanges.h"
#include "app/NameWaitDialog.h"
#include "app/ReadSheetDialog.h"
#include "app/ReportCommands.h"
#include "app/SpecificationChange.h"
#include "app/StyleColumns.h"
#include "app/WriteSheetsDialog.h"
#include "base/Format.h"
#include "library/DesignSpecifications.h"
#include "platform/arx/Documents.h"
#include "platform/arx/Frame.h"
#include "platform/mfc/Menu.h"
#include "print/ReportFile.h"

using namespace designspec;

IMPLEMENT_DYNAMIC(CDSEditor, CStyleEditor)

namespace {

enum OwnCommand : unsigned {
    kCompare = kCommandsOfEditor,
    kChangeMany,
    kHistory,
    kWriteSheets,
    kReadSheet,
    kPreview,
    kPrint,
    kExportReport,
};

constexpr EditorCommand kOwnCommands[] = {
    {kCompare, L"比较…", "Ctrl+Shift+C", 0, 2},
    {kChangeMany, L"批量修改…", "Ctrl+Shift+B", 1},
    {kHistory, L"历史…", "Ctrl+Shift+H", 0, 1},
    {kWriteSheets, L"导出到电子表格…", "Ctrl+Shift+E", 1},
    {kReadSheet, L"从电子表格导入…", "Ctrl+Shift+I", 0, 1},
    {kPreview, L"打印预览…", "Ctrl+Shift+P", 1},
    {kPrint, L"打印…", "Ctrl+P", 1},
    {kExportReport, L"导出报告…", "Ctrl+Shift+R", 1},
};

std::vector<CDesignSpecification> CopiesOf(const CArray<GUID>& ids)
{
    std::vector<CDesignSpecification> copies;
    for (const GUID& id : ids)
        if (const auto* const one = CDesignSpecifications::GetInstance()->Item(id))
            copies.push_back(*one);
    return copies;
}

// The name that a new specification is proposed; empty when it is taken and stays so.
CString NameForNew(const CStyle* from)
{
    const designspec::SpecificationFolder& folder = CDesignSpecifications::GetInstance()->Folder();
    if (from) return folder.ProposedCopyName(from->Name());
    CString name = folder.ProposedName();
    if (!CNameWaitDialog::IsTaken(name)) return name;
    const int answer = CNameWaitDialog(name, acedGetAcadFrame()).DoModal();
    const CStyle* const taken = CDesignSpecifications::GetInstance()->Item(name.c_str());
    if (answer == CNameWaitDialog::kGoTo && taken) CStyleEditor::SelectWanted().Tell(taken->ID());
    return answer == IDOK ? name : CString();
}

} // namespace

CStyles* CDSEditor::GetStyles() const
{
    return CDesignSpecifications::GetInstance();
}

CStyle* CDSEditor::New(CStyle* from)
{
    const CString name = NameForNew(from);
    if (name.empty()) return nullptr;
    const CString source = from ? from->Name() : CString();
    const AcAxDocLock lock;
    CDSMainDialog dialog(name, true, from ? source.c_str() : nullptr, acedGetAcadFrame());
    if (dialog.DoModal() != IDOK) return nullptr;
    CStyles& library = *GetStyles();
    library.Refurbish();
    return library.Item(library.Count() - 1);
}

bool CDSEditor::Delete(CStyle* style)
{
    CDesignSpecifications& library = *CDesignSpecifications::GetInstance();
    for (int i = library.Count() - 1; i >= 0; --i) {
        if (library.Item(i) != style) continue;
        library.Remove(i, true);
        library.Refurbish();
        return true;
    }
    return false;
}

void CDSEditor::Edit(CStyle* style)
{
    const AcAxDocLock lock;
    const CString name = style->Name();
    const GUID id = style->ID();
    const auto& library = *CDesignSpecifications::GetInstance();
    const CDesignSpecification* const opened = library.Item(id);
    const auto before = opened ? std::optional(*opened) : std::nullopt;
    BeginUndo();
    CDSMainDialog dialog(name, false, nullptr, acedGetAcadFrame());
    if (dialog.DoModal() == IDOK) {
        // The library may have been read anew meanwhile: the object is looked for again.
        const CDesignSpecification* const edited = library.Item(id);
        if (edited && before) ChangeLog::Tell(before, *edited);
        if (edited && edited->Name() != name) GetStyles()->Refurbish();
    }
    EndUndo({});
}

void CDSEditor::SetAsDefaultStyle(CStyle* style)
{
    CStyleEditor::SetAsDefaultStyle(style);
}

bool CDSEditor::AdjustContextMenu(CMenu* menu)
{
    menu->ModifyMenu(kCommandSetAsDefaultStyle,
                     MF_BYCOMMAND | menu->GetMenuState(kCommandSetAsDefaultStyle),
                     kCommandSetAsDefaultStyle, L"设为默认规范");
    return true;
}

void CDSEditor::View(CStyle* style)
{
    const AcAxDocLock lock;
    CDSMainDialog dialog(style->Name(), false, nullptr, acedGetAcadFrame());
    dialog.SetViewMode(L"");
    dialog.DoModal();
}

std::span<const EditorCommand> CDSEditor::OwnCommands() const
{
    return kOwnCommands;
}

bool CDSEditor::WriteReport(const CString& path, const CArray<GUID>& styles,
                            const GUID* comparedWith, Problems& problems)
{
    const auto& library = *CDesignSpecifications::GetInstance();
    std::vector<const CDesignSpecification*> reported;
    for (const GUID& id : styles)
        if (const CDesignSpecification* const one = library.Item(id)) reported.push_back(one);
    ReportOptions options;
    if (comparedWith) options.comparedWith = library.Item(*comparedWith);
    return designspec::WriteReport(path, reported, options, problems);
}

std::span<const StyleColumn> CDSEditor::Columns() const
{
    return SpecificationColumns();
}

CStringArray CDSEditor::ColumnTexts(const CStyle& style) const
{
    const auto* const specification = CDesignSpecifications::GetInstance()->Item(style.ID());
    return specification ? SpecificationColumnTexts(*specification) : CStringArray();
}

std::optional<CString> CDSEditor::Find(const CStyle& style, const CString& told,
                                       const CString& words)
{
    const auto* const specification = CDesignSpecifications::GetInstance()->Item(style.ID());
    return specification ? m_search.Find(*specification, told, words) : std::nullopt;
}

std::vector<std::optional<StyleChanges>> CDSEditor::ChangesFrom(const CString& path,
                                                                const CArray<GUID>& ids)
{
    return ChangesOfImport(CDesignSpecifications::GetInstance()->Folder(), path, ids);
}

// Told of each that is as in the file now and was not before.
StyleImport CDSEditor::Import(const CString& path, const CStringArray& names, bool overwrite)
{
    const auto& library = *CDesignSpecifications::GetInstance();
    std::vector<CDesignSpecification> before;
    for (int i = 0; i < library.Count(); ++i)
        before.push_back(*library.Item(i));
    StyleImport import = CStyleEditor::Import(path, names, overwrite);
    for (const GUID& id : import.ids) {
        const CDesignSpecification* const taken = library.Item(id);
        if (!taken) continue;
        const auto known = std::find_if(before.begin(), before.end(),
                                        [&](const auto& one) { return one.HasID(id); });
        ChangeLog::Tell(known == before.end() ? std::nullopt : std::optional(*known), *taken);
    }
    return import;
}

void CDSEditor::BeginUndo()
{
    m_undo.clear();
    m_undoText.clear();
    m_log.emplace();
}

void CDSEditor::EndUndo(const CString& text)
{
    if (m_log) m_undo = m_log->Changes();
    m_log.reset();
    m_undoText = m_undo.empty() || text.empty() ? SavedText(m_undo) : text;
}

CString CDSEditor::Undo()
{
    const auto undo = std::exchange(m_undo, {});
    m_undoText.clear();
    const AcAxDocLock lock;
    if (undo.empty() || !TakeBack(undo, acedGetAcadFrame())) return {};
    GetStyles()->Refurbish();
    return TakenBackText(undo);
}

void CDSEditor::ViewDeleted(const GUID& id)
{
    ShowHistory({id}, QApplication::activeModalWidget());
}

CString CDSEditor::RunOwn(unsigned command, const CArray<GUID>& selected)
{
    BeginUndo();
    CString note = DoOwn(command, selected);
    EndUndo(note);
    return note;
}

CString CDSEditor::DoOwn(unsigned command, const CArray<GUID>& selected)
{
    switch (command) {
    case kCompare:
        return CompareSpecifications(selected, acedGetAcadFrame());
    case kChangeMany:
        return ChangeManySpecifications(selected, acedGetAcadFrame());
    case kHistory:
        return ShowHistory(selected, acedGetAcadFrame());
    case kWriteSheets:
        return WriteSheets(selected, acedGetAcadFrame());
    case kReadSheet:
        return ReadSheet(selected, acedGetAcadFrame());
    case kPreview:
        return PreviewReport(CopiesOf(selected), acedGetAcadFrame());
    case kPrint:
        return PrintReport(CopiesOf(selected), {}, acedGetAcadFrame());
    case kExportReport:
        return ExportReport(CopiesOf(selected), {}, acedGetAcadFrame());
    default:
        return {};
    }
}
