// Holds two specifications against each other, and takes values of one over to the other. Nothing
// is written before 确定.
#pragma once

#include <utility>

#include "model/DesignSpecification.h"
#include "platform/mfc/Dialog.h"
#include "platform/mfc/String.h"

namespace designspec {
class DifferenceView;
class SourceChoice;
} // namespace designspec

class CCompareDialog : public CDialog {
public:
    static constexpr int kPlace = 106;
    static constexpr int kNotice = 119;
    static constexpr int kLeft = 201;  // list; the button beside it is the next one
    static constexpr int kRight = 203; // the same

    explicit CCompareDialog(QWidget* parent);

    // Before DoModal: the specifications of the library to begin with, at most two. Beside a single
    // one stands the default one, beside that the built-in limits.
    void Begin(const CArray<GUID>& selected);

    // The names of what was saved.
    const CStringArray& Saved() const { return m_saved; }

    // Esc and the window's own button ask when values were taken over.
    void reject() override;

protected:
    bool OnInitDialog() override;
    void OnOK() override;

private:
    void Show();
    void Change();
    bool IsChanged() const;
    bool MayLose();
    void ShowOk();
    bool Store(const CDesignSpecification& opened, const CDesignSpecification& made);

    designspec::SourceChoice* m_left;
    designspec::SourceChoice* m_right;
    designspec::DifferenceView* m_view;
    // As they were when they were put side by side.
    CDesignSpecification m_leftOpened, m_rightOpened;
    std::pair<int, int> m_places; // of both in their lists
    CStringArray m_saved;
};

namespace designspec {

// Opens the window with the specifications of the library that are selected, and gives what is to
// be told of it afterwards.
CString CompareSpecifications(const CArray<GUID>& selected, QWidget* owner);

} // namespace designspec
