// What the style manager can do with design specifications.
#pragma once

#include <optional>
#include <utility>

#include "model/DesignSpecification.h"
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
    CString UndoText() const override;
    CString Undo() override;
    bool EnableViewDeleted() const override { return true; }
    void ViewDeleted(const GUID& id) override;

private:
    // Of what was edited last: what it was, and what was saved.
    std::optional<std::pair<CDesignSpecification, CDesignSpecification>> m_undo;
};
