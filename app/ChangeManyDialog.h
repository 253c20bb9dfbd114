// Changes one limit in several specifications alike, with a preview of old and new values: all of
// them, or none.
#pragma once

#include "app/SpecificationChange.h"
#include "model/ManyChange.h"
#include "platform/mfc/Dialog.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

class CChangeManyDialog : public CDialog {
public:
    static constexpr int kPlace = 106;
    static constexpr int kPage = 211; // lists
    static constexpr int kLimit = 212;
    static constexpr int kSpeed = 213;   // all speeds, those that there are, or one that is typed
    static constexpr int kKind = 214;    // set, add, scale
    static constexpr int kOperand = 215; // edit field
    static constexpr int kPreview = 216; // a specification's name, its values below it
    static constexpr int kNotice = 119;

    // Specifications of the library.
    CChangeManyDialog(const CArray<GUID>& selected, QWidget* parent);

    CString Note() const { return m_note; }

protected:
    bool OnInitDialog() override;
    void OnOK() override;

private:
    struct Limit {
        designspec::ValuePath path; // of a table by design speed without a speed
        CString title;
        CString unit;
        CStringArray speeds = {}; // that any of the specifications has, highest first
    };

    void FindLimits();
    void AddLimit(const designspec::Change& value);
    QWidget* MakeChoices();
    void ShowLimits();
    void ShowSpeeds();
    void Preview();
    void ShowChanged(const CDesignSpecification& opened, const designspec::Changed& changed);
    const Limit* Chosen() const;
    // Nothing, with what is wrong, when it is not whole.
    std::optional<designspec::ManyChange> Wanted(CString& problem) const;

    std::vector<CDesignSpecification> m_opened;
    std::vector<Limit> m_limits;
    std::vector<std::size_t> m_shown; // of the page, as they are listed
    std::vector<designspec::SpecificationChange> m_changes;
    bool m_isWhole = false; // nothing is wrong
    CString m_note;
    QComboBox *m_page, *m_limit, *m_speed, *m_kind;
    QLineEdit* m_operand;
    QTreeWidget* m_preview;
    QLabel* m_notice;
};

namespace designspec {

// Opens the window for the selected specifications of the library, and gives what is to be told of
// it afterwards.
CString ChangeManySpecifications(const CArray<GUID>& selected, QWidget* owner);

} // namespace designspec
