// Says that others have changed what the user is about to store, shows the values that differ, and
// lets the user choose, value by value if wanted.
#pragma once

#include <functional>

#include "compare/DifferenceChoices.h"
#include "platform/mfc/Dialog.h"

namespace designspec {
class DifferenceView;
}

class COthersChangeDialog : public CDialog {
public:
    static constexpr int kPlace = 106;
    static constexpr int kNotice = 119;
    // The choices, and what DoModal returns for them; IDCANCEL goes back to the editor.
    static constexpr int kAsChosen = 11;
    static constexpr int kKeepMine = 12;
    static constexpr int kTakeTheirs = 13;
    static constexpr int kOtherProject = 14;

    COthersChangeDialog(const CString& notice, QWidget* parent);

    // Before DoModal: shows where the three differ and offers kAsChosen, which is for when each
    // conflict is settled. `refused` says what cannot be stored of what was chosen, or nothing.
    void Compare(const CDesignSpecification& base, const CDesignSpecification& mine,
                 const CDesignSpecification& theirs,
                 std::function<CString(const CDesignSpecification& made)> refused);
    // What can be chosen beside going back, and what the button says.
    void Offer(int choice, const CString& text);

    const designspec::DifferenceChoices& Choices() const;

protected:
    bool OnInitDialog() override;

private:
    void Choose(int choice);
    void EnableChosen();

    CString m_notice;
    designspec::DifferenceView* m_view;
    std::function<CString(const CDesignSpecification& made)> m_refused;
};
