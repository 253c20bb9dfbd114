// What a specification was before, also one that was deleted: its versions with what each changed,
// the selected one beside what there is now, to bring it back in its place or as a new one.
#pragma once

#include <vector>

#include "library/SpecificationHistory.h"
#include "platform/mfc/Dialog.h"
#include "platform/mfc/String.h"

class QComboBox;
class QTreeWidget;

namespace designspec {
class DifferenceView;
}

class CHistoryDialog : public CDialog {
public:
    static constexpr int kPlace = 106;
    static constexpr int kSpecifications = 301; // list to choose from
    static constexpr int kVersions = 302;       // list
    static constexpr int kBringBack = 303;
    static constexpr int kAsNew = 304;
    static constexpr int kNotice = 305;

    explicit CHistoryDialog(QWidget* parent);

    // Before DoModal: the specification to begin with, in the library or deleted.
    void Begin(const GUID& id);

    // What was brought back, for the user; empty when nothing was.
    const CString& Told() const { return m_told; }

protected:
    bool OnInitDialog() override;

private:
    void MakeControls();
    QWidget* MakeChoice();
    QWidget* MakeButtons();
    void FillSpecifications();
    void FillVersions();
    void ShowVersion();
    const designspec::SpecificationState* Selected() const;
    bool IsThere() const;
    void BringBack();
    void BringBackAsNew();
    void Done(const CString& text);

    QComboBox* m_specifications;
    QTreeWidget* m_versions;
    designspec::DifferenceView* m_view;
    std::vector<GUID> m_ids;                              // as they are listed
    std::vector<designspec::SpecificationState> m_states; // of the chosen one, as listed
    CString m_told;
};

namespace designspec {

// Opens the window with the specification that is selected, or the first there is, and gives what
// is to be told of it afterwards.
CString ShowHistory(const CArray<GUID>& selected, QWidget* owner);

} // namespace designspec
