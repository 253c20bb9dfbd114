#include "app/ReportCommands.h"

#include <QPrintDialog>

#include "app/PreviewDialog.h"
#include "base/Format.h"
#include "platform/arx/Documents.h"
#include "platform/mfc/FileChoice.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"
#include "print/ReportFile.h"
#include "print/ReportPrinter.h"

namespace designspec {

namespace {

using Specifications = std::vector<const CDesignSpecification*>;

Specifications All(const std::vector<CDesignSpecification>& specifications)
{
    Specifications all;
    for (const CDesignSpecification& one : specifications)
        all.push_back(&one);
    return all;
}

CString NameOf(const Specifications& specifications)
{
    return specifications.size() == 1 ? specifications.front()->Name() : CString(kReportTitle);
}

CString Write(const CString& path, const Specifications& specifications,
              const ReportOptions& options, QWidget* owner)
{
    Problems problems;
    if (WriteReport(path, specifications, options, problems)) return L"已导出: " + path;
    CString text = L"报告没有导出。";
    for (const Problem& problem : problems)
        text += L"\n" + problem.Text();
    MessageBox(owner, text, L"提示", MB_ICONINFORMATION);
    return {};
}

// The printer of a PDF file knows no links, and leaves half a file when it fails.
bool IsWholeFile(const QPrinter& printer)
{
    return printer.outputFormat() == QPrinter::PdfFormat && printer.pageRanges().isEmpty() &&
           printer.outputFileName().endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive) &&
           printer.pageLayout().pageSize().id() == QPageSize::A4 &&
           printer.pageLayout().orientation() == QPageLayout::Portrait;
}

} // namespace

CString PrintReport(const std::vector<CDesignSpecification>& specifications,
                    const ReportOptions& options, QWidget* owner)
{
    const AcAxDocLock lock;
    const Specifications all = All(specifications);
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setDocName(ToShown(NameOf(all)));
    QPrintDialog asking(&printer, owner);
    asking.setWindowTitle(QStringLiteral("打印"));
    asking.setOption(QAbstractPrintDialog::PrintPageRange);
    asking.setMinMax(1, PaperReport(ContentsOf(all, options), PaperOf(printer)).CountSheets());
    if (asking.exec() != QDialog::Accepted) return {};
    if (IsWholeFile(printer))
        return Write(FromQString(printer.outputFileName()), all, options, owner);
    const PaperReport report(ContentsOf(all, options), PaperOf(printer));
    const std::vector<int> sheets = SheetsAskedFor(printer, report.CountSheets());
    if (!sheets.empty() && PrintSheets(printer, report, sheets))
        return Format(L"已打印 %d 页。", sheets.size());
    MessageBox(owner, L"没有打印: " + FromQString(printer.printerName()), L"提示",
               MB_ICONINFORMATION);
    return {};
}

CString ExportReport(const std::vector<CDesignSpecification>& specifications,
                     const ReportOptions& options, QWidget* owner)
{
    const AcAxDocLock lock;
    const Specifications all = All(specifications);
    const CString path = FromQString(AskFileToSave(
        owner, QStringLiteral("导出报告"), QStringLiteral("PDF 文件 (*.pdf);;网页 (*.html *.htm)"),
        QStringLiteral("pdf"), ToQString(NameOf(all)), IfThere::Ask));
    return path.empty() ? CString() : Write(path, all, options, owner);
}

CString PreviewReport(const std::vector<CDesignSpecification>& specifications, QWidget* owner)
{
    const AcAxDocLock lock;
    CPreviewDialog dialog(specifications, owner);
    dialog.DoModal();
    return dialog.Told();
}

} // namespace designspec
