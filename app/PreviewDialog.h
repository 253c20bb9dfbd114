// A report of specifications as it will be printed, also with the values of another one beside
// those that differ. It is printed and written to files from here.
#pragma once

#include <memory>
#include <vector>

#include <QPrinter>

#include "platform/mfc/Dialog.h"
#include "report/ReportContents.h"

class QCheckBox;
class QLabel;
class QPrintPreviewWidget;

namespace designspec {
class PaperReport;
class SourceChoice;
} // namespace designspec

class CPreviewDialog : public CDialog {
public:
    static constexpr int kPlace = 106;
    static constexpr int kCompare = 401; // check box
    static constexpr int kOther = 402;   // list; the button beside it is the next one
    static constexpr int kSheets = 404;  // the preview
    static constexpr int kBack = 405;    // buttons
    static constexpr int kNext = 406;
    static constexpr int kNumber = 407; // label
    static constexpr int kWhole = 408;  // buttons
    static constexpr int kWide = 409;
    static constexpr int kLarger = 410;
    static constexpr int kSmaller = 411;
    static constexpr int kExport = 412;

    CPreviewDialog(std::vector<CDesignSpecification> specifications, QWidget* parent);
    ~CPreviewDialog() override;

    // What was printed or written last, for the user; empty when nothing was.
    const CString& Told() const { return m_told; }

protected:
    bool OnInitDialog() override;
    void OnOK() override;

private:
    void MakeControls();
    QWidget* MakeChoice();
    QWidget* MakeButtons();
    void Go(int pages);
    void ShowNumber();
    void ShowAnew();
    designspec::ReportOptions Options() const;
    void Export();

    const std::vector<CDesignSpecification> m_specifications;
    QPrinter m_printer{QPrinter::HighResolution};
    std::unique_ptr<designspec::PaperReport> m_report; // for the printer's paper
    QCheckBox* m_compare;
    designspec::SourceChoice* m_other;
    QPrintPreviewWidget* m_sheets;
    QLabel* m_number;
    CString m_told;
};
