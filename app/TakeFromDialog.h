// Fills what is edited from another specification: a page, its group or everything. Shows before
// what would change; nothing is stored.
#pragma once

#include "model/Criteria.h"
#include "platform/mfc/Dialog.h"

class QComboBox;

namespace designspec {
class DifferenceView;
class SourceChoice;
} // namespace designspec

class CTakeFromDialog : public CDialog {
public:
    static constexpr int kPlace = 106;
    static constexpr int kSource = 221; // list; the button beside it is the next one
    static constexpr int kRange = 223;  // list: the page, its group, everything

    // `entered` is what is edited, `page` the label of the page that is shown.
    CTakeFromDialog(const CDesignSpecification& entered, const CString& page, QWidget* parent);

    // What was edited, with the values that were taken.
    CDesignSpecification Made() const;

protected:
    bool OnInitDialog() override;

private:
    // The other one as far as the range goes.
    CDesignSpecification InRange(const CDesignSpecification& source) const;
    bool IsInRange(const designspec::CriterionInfo& criterion) const;
    void Show();
    void EnableOk();

    const CDesignSpecification m_entered;
    const designspec::CriterionInfo* m_page = nullptr;
    designspec::SourceChoice* m_source;
    QComboBox* m_range;
    designspec::DifferenceView* m_view;
};
