#include "print/ReportFile.h"

#include <exception>
#include <memory>

#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDFWriter.hh>

#include "base/File.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "platform/mfc/QtText.h"
#include "print/PdfLinks.h"
#include "print/PdfText.h"
#include "report/SpecificationReport.h"

namespace designspec {

namespace {

QByteArray Painted(const PaperReport& report, const QString& title)
{
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    QPdfWriter writer(&bytes);
    writer.setResolution(kUnitsPerInch);
    writer.setPageSize(QPageSize(report.Paper(), QPageSize::Point));
    writer.setPageMargins({});
    writer.setTitle(title);
    writer.setCreator(QCoreApplication::applicationName());
    QPainter painter(&writer);
    for (int sheet = 0; sheet < report.CountSheets(); ++sheet) {
        if (sheet > 0) writer.newPage();
        report.Draw(painter, sheet);
    }
    painter.end();
    return bytes.data();
}

std::string PdfBytes(const std::vector<const CDesignSpecification*>& specifications,
                     const ReportOptions& options)
{
    const PaperReport report(ContentsOf(specifications, options),
                             QPageSize::size(QPageSize::A4, QPageSize::Point));
    return PdfOf(report, ToShown(specifications.size() == 1 ? specifications.front()->Name()
                                                            : CString(kReportTitle)));
}

} // namespace

std::string PdfOf(const PaperReport& report, const QString& title)
{
    const QByteArray painted = Painted(report, title);
    QPDF pdf;
    pdf.processMemoryFile("report.pdf", painted.constData(), static_cast<size_t>(painted.size()));
    AddLinks(pdf, report.Targets());
    CorrectTexts(pdf, MistakenCharacters(report.Characters(), QGuiApplication::font()));
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.write();
    const std::shared_ptr<Buffer> bytes = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize()};
}

bool WriteReport(const CString& path,
                 const std::vector<const CDesignSpecification*>& specifications,
                 const ReportOptions& options, Problems& problems)
try {
    if (EndsInNoCase(path, L".html") || EndsInNoCase(path, L".htm"))
        return WriteWholeFile(path, HtmlReport(specifications, options), problems);
    if (EndsInNoCase(path, L".pdf"))
        return WriteWholeFile(path, PdfBytes(specifications, options), problems);
    AddProblem(problems, Severity::Error, path, 0, L"报告的扩展名不是 .pdf 或 .html");
    return false;
} catch (const std::exception& error) {
    AddProblem(problems, Severity::Error, path, 0, L"报告无法生成: " + ToWide(error.what()));
    return false;
}

} // namespace designspec
