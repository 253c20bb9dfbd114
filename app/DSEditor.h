// What the style manager can do with design specifications.
#pragma once

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
};
