// Asks which specification curves are compared with.
#pragma once

#include "platform/mfc/Dialog.h"

class CDesignSpecification;

namespace designspec {
class SourceChoice;
} // namespace designspec

class CCompareCurvesDialog : public CDialog {
public:
    static constexpr int kPlace = 106;
    static constexpr int kSource = 241; // list; the button beside it is the next one

    // `edited` is the one whose curves are shown, and is not offered.
    CCompareCurvesDialog(const CDesignSpecification& edited, QWidget* parent);

    // After 确定; never null then. Lives as long as the dialog.
    const CDesignSpecification* Chosen() const;
    CString Title() const; // as the list has it

private:
    designspec::SourceChoice* m_source;
};
