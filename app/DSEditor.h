// What the style manager can do with design specifications.
#pragma once

#include <optional>
#include <vector>

#include "app/SavedChanges.h"
#include "app/SpecificationSearch.h"
#include "platform/vmrd/VMRDPrj/StyleEditor.h"

class CDSEditor : public CStyleEditor {
    DECLARE_DYNAMIC(CDSEditor)

public:
    CStyles* GetStyles() const override;
    CStyle* New(CStyle* from) override;
    bool Delete(CStyle* style) override;
    void Edit(CStyle* style) override;
    void SetAsDefaultStyle(CStyle* style) override;
    bool AdjustContextMenu(CMenu* menu) override;

    void View(CStyle* style) override;
    bool EnableView() const override { return true; }
    std::span<const designspec::EditorCommand> OwnCommands() const override;
    CString RunOwn(unsigned command, const CArray<GUID>& selected) override;
    bool WriteReport(const CString& path, const CArray<GUID>& styles, const GUID* comparedWith,
                     designspec::Problems& problems) override;
    std::span<const designspec::StyleColumn> Columns() const override;
    CStringArray ColumnTexts(const CStyle& style) const override;
    std::optional<CString> Find(const CStyle& style, const CString& told,
                                const CString& words) override;
    std::vector<std::optional<designspec::StyleChanges>>
    ChangesFrom(const CString& path, const CArray<GUID>& ids) override;
    designspec::StyleImport Import(const CString& path, const CStringArray& names,
                                   bool overwrite) override;
    void BeginUndo() override;
    void EndUndo(const CString& text) override;
    CString UndoText() const override { return m_undoText; }
    CString Undo() override;
    bool EnableViewDeleted() const override { return true; }
    void ViewDeleted(const GUID& id) override;

private:
    CString DoOwn(unsigned command, const CArray<GUID>& selected);

    designspec::SpecificationSearch m_search;
    std::optional<designspec::ChangeLog> m_log;  // while a command is at work
    std::vector<designspec::SavedChange> m_undo; // by the last one
    CString m_undoText;
};
