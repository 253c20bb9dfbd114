// A cell of the report grid.
#pragma once

#include <vector>

#include "base/Export.h"
#include "platform/mfc/Object.h"
#include "platform/mfc/String.h"

class CXTPReportControl;
class QPainter;
class QPalette;
class QRect;

namespace designspec {

// All that a cell holds, for undo.
struct ReportItemState {
    CString caption;
    unsigned itemData = 0;
    std::vector<double> values; // what a derived cell keeps, in an order of its own

    bool operator==(const ReportItemState&) const = default;
};

} // namespace designspec

class AFX_EXT_CLASS CXTPReportRecordItem : public CObject {
    DECLARE_DYNCREATE(CXTPReportRecordItem)

public:
    CXTPReportRecordItem() = default;
    explicit CXTPReportRecordItem(const CString& caption) : m_caption(caption) {}

    // The text that the cell shows, copies and offers for editing.
    const CString& GetCaption() const { return m_caption; }
    void SetCaption(const CString& caption) { m_caption = caption; }

    // The same with all decimals of its numbers, where the caption rounds them.
    virtual CString GetExactText() const { return m_caption; }

    // A number that the cell's owner may keep here.
    unsigned GetItemData() const { return m_itemData; }
    void SetItemData(unsigned itemData) { m_itemData = itemData; }
    bool IsEditable() const { return m_editable; }
    void SetEditable(bool editable) { m_editable = editable; }

    // What may be wrong with the value, for people: a corner of the cell shows that there is
    // something, and the tool tip what. Empty: nothing. No part of the state that undo keeps.
    const CString& GetMark() const { return m_mark; }
    void SetMark(const CString& mark) { m_mark = mark; }

    // The user has entered `newText`, by editing, pasting or deleting; full-width digits and
    // signs are ASCII already. The cell decides what becomes of it; here it is the caption.
    virtual void OnEditChanged(CXTPReportControl* control, const CString& newText);

    // `text` comes from another program, with a unit perhaps; what the user would type for it. Here
    // and where it has no meaning for the cell: the text itself.
    virtual CString ReadPasted(const CString& text) const { return text; }

    // The cell's whole state, and back. A derived cell adds its values.
    virtual designspec::ReportItemState SaveState() const;
    virtual void RestoreState(const designspec::ReportItemState& state);

    // `rect` is the cell without its grid lines. Here: the caption in the middle, cut short with an
    // ellipsis when it does not fit; the selection's colour behind it when the cell is selected.
    virtual void Draw(QPainter& painter, const QRect& rect, const QPalette& palette,
                      bool selected) const;

private:
    CString m_caption;
    CString m_mark;
    unsigned m_itemData = 0;
    bool m_editable = true;
};
