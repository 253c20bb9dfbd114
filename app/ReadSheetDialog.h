// Takes values from a spreadsheet file, into a specification of the library or a new one. Shows
// before what will change, or what is wrong with the file: it is taken whole or not at all.
#pragma once

#include <vector>

#include <QStringList>

#include "platform/mfc/Dialog.h"
#include "sheets/SpreadsheetReading.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;

namespace designspec {
class DifferenceView;
}

class CReadSheetDialog : public CDialog {
public:
    static constexpr int kPlace = 106;
    static constexpr int kNotice = 119;
    static constexpr int kTarget = 231; // list: the specifications by name, then a new one
    static constexpr int kName = 232;   // edit field, of the new one
    static constexpr int kProblems = 233;
    static constexpr int kCopy = 234; // button

    // At first the specification is chosen that the file was written from, or else the selected
    // one.
    CReadSheetDialog(const CString& path, const CArray<GUID>& selected, QWidget* parent);

    // What was saved, for the user; empty when nothing was.
    const CString& Note() const { return m_note; }

protected:
    bool OnInitDialog() override;
    void OnOK() override;

private:
    QWidget* MakeChoice();
    QWidget* MakeProblems();
    void FillTargets();
    int FirstTarget(const CArray<GUID>& selected) const;
    CString ProposedName() const;
    const CDesignSpecification* Target() const; // null: a new one
    void Show();
    void ShowOk();
    void ShowProblems(const QStringList& lines);
    QStringList Refused() const;
    CString Verdict(bool isRefused) const;
    bool CheckName(const CString& name);
    bool Store();

    const CString m_file; // without its folder
    const designspec::SpreadsheetReading m_reading;
    std::vector<GUID> m_ids; // as they are listed
    CDesignSpecification m_opened, m_made;
    designspec::Problems m_found; // when it was read for the one that is chosen
    bool m_isReadable = false;
    CString m_note;

    QComboBox* m_target;
    QLineEdit* m_name;
    QWidget* m_namePlace;
    designspec::DifferenceView* m_view;
    QWidget* m_problemsPlace;
    QPlainTextEdit* m_problems;
};

namespace designspec {

// Asks for a file, opens the window and gives what is to be told of it afterwards.
CString ReadSheet(const CArray<GUID>& selected, QWidget* owner);

} // namespace designspec
