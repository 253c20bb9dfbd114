// Says that others have changed what the user is about to store, shows the values that differ, and
// lets the user choose.
#pragma once

#include "model/Differences.h"
#include "platform/mfc/Dialog.h"

class COthersChangeDialog : public CDialog {
public:
    static constexpr int kList = 100;
    static constexpr int kNotice = 119;
    // The choices, and what DoModal returns for them; IDCANCEL goes back to the editor.
    static constexpr int kKeepBoth = 11;
    static constexpr int kKeepMine = 12;
    static constexpr int kTakeTheirs = 13;
    static constexpr int kOtherProject = 14;

    // Without changes there is no list.
    COthersChangeDialog(const CString& notice, const std::vector<designspec::Change>& changes,
                        QWidget* parent);

    // Before DoModal: what can be chosen beside going back, and what the button says.
    void Offer(int choice, const CString& text);

protected:
    bool OnInitDialog() override;

private:
    void FillList();

    CString m_notice;
    std::vector<designspec::Change> m_changes;
};
