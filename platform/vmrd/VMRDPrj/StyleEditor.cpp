#include "platform/vmrd/VMRDPrj/StyleEditor.h"

IMPLEMENT_DYNAMIC(CStyleEditor, CObject)

void CStyleEditor::SetAsDefaultStyle(CStyle* style)
{
    CStyles* styles = GetStyles();
    if (!styles) return;
    for (int i = 0; i < styles->Count(); ++i) {
        if (styles->Item(i) == style) {
            styles->SetDefaultItem(i);
            styles->Refurbish();
            return;
        }
    }
}

bool CStyleEditor::AdjustContextMenu(CMenu*)
{
    return false;
}

bool CStyleEditor::Export(const wchar_t* path, const CStringArray& names)
{
    CStyles* styles = GetStyles();
    return styles && styles->Export(path, names, nullptr);
}

bool CStyleEditor::OnCommand(unsigned, CStyle*)
{
    return false;
}

void CStyleEditor::Refurbish()
{
    CStyles* styles = GetStyles();
    if (!styles) return;
    styles->CStyles::SetDefaultItem(-1);
    styles->Update();
    styles->Refurbish();
}

designspec::Signal<const GUID&>& CStyleEditor::SelectWanted()
{
    static designspec::Signal<const GUID&> wanted;
    return wanted;
}

void CStyleEditor::View(CStyle*) {}

std::optional<CString> CStyleEditor::Find(const CStyle&, const CString&, const CString&)
{
    return std::nullopt;
}

std::vector<std::optional<designspec::StyleChanges>>
CStyleEditor::ChangesFrom(const CString&, const CArray<GUID>& ids)
{
    return std::vector<std::optional<designspec::StyleChanges>>(ids.size());
}

CString CStyleEditor::RunOwn(unsigned, const CArray<GUID>&)
{
    return {};
}

bool CStyleEditor::WriteReport(const CString& path, const CArray<GUID>&, const GUID*,
                               designspec::Problems& problems)
{
    AddProblem(problems, designspec::Severity::Error, path, 0, L"这种样式没有报告");
    return false;
}

designspec::StyleImport CStyleEditor::Import(const CString& path, const CStringArray& names,
                                             bool overwrite)
{
    CStyles* styles = GetStyles();
    return styles ? styles->ImportAndSave(path, names, overwrite) : designspec::StyleImport();
}
