#include "app/PreviewDialog.h"

#include <algorithm>

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "app/ReportCommands.h"
#include "compare/SourceChoice.h"
#include "library/DesignSpecifications.h"
#include "platform/mfc/GuideSection.h"
#include "print/ReportPrinter.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 145;
constexpr int kFirst = -1000000, kLast = 1000000; // further than there are sheets

QPushButton* MakeButton(const char* text, int id)
{
    auto* const button = new QPushButton(QString::fromUtf8(text));
    button->setProperty(kControlIdProperty, id);
    button->setAutoDefault(false);
    return button;
}

} // namespace

CPreviewDialog::CPreviewDialog(std::vector<CDesignSpecification> specifications, QWidget* parent)
    : CDialog(kDialogResource, parent), m_specifications(std::move(specifications)),
      m_compare(new QCheckBox(QStringLiteral("标出与另一规范不同的值(&M)"))),
      m_other(new SourceChoice(QString(), kOther)), m_sheets(new QPrintPreviewWidget(&m_printer)),
      m_number(new QLabel)
{
    setWindowTitle(QStringLiteral("打印预览"));
    SetGuideSection(this, L"打印与报告");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_printer.setPageSize(QPageSize(QPageSize::A4));
    MakeControls();
    SetDlgItemText(IDOK, L"打印(&P)…");
    SetDlgItemText(IDCANCEL, L"关闭");
    const int line = fontMetrics().height();
    resize(line * 50, line * 44);
    m_other->Fill(CDesignSpecifications::GetInstance()->Folder());
}

CPreviewDialog::~CPreviewDialog() = default;

void CPreviewDialog::MakeControls()
{
    m_sheets->setProperty(kControlIdProperty, kSheets);
    auto* const layout = new QVBoxLayout(GetDlgItem(kPlace));
    layout->setContentsMargins({});
    layout->addWidget(MakeChoice());
    layout->addWidget(m_sheets, 1);
    layout->addWidget(MakeButtons());
    connect(m_sheets, &QPrintPreviewWidget::previewChanged, this, [this] { ShowNumber(); });
    connect(m_sheets, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* printer) {
        std::vector<const CDesignSpecification*> all;
        for (const CDesignSpecification& one : m_specifications)
            all.push_back(&one);
        m_report = std::make_unique<PaperReport>(ContentsOf(all, Options()), PaperOf(*printer));
        std::vector<int> sheets;
        for (int sheet = 0; sheet < m_report->CountSheets(); ++sheet)
            sheets.push_back(sheet);
        PrintSheets(*printer, *m_report, sheets);
    });
}

QWidget* CPreviewDialog::MakeChoice()
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    m_compare->setProperty(kControlIdProperty, kCompare);
    layout->addWidget(m_compare);
    layout->addWidget(m_other, 1);
    return row;
}

QWidget* CPreviewDialog::MakeButtons()
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    const auto add = [&](const char* text, int id, const QList<QKeySequence>& keys, auto action) {
        QPushButton* const button = MakeButton(text, id);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, action);
        for (const QKeySequence& key : keys)
            connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    };
    add("上一页(&B)", kBack, {Qt::Key_PageUp}, [this] { Go(-1); });
    m_number->setProperty(kControlIdProperty, kNumber);
    layout->addWidget(m_number);
    add("下一页(&N)", kNext, {Qt::Key_PageDown}, [this] { Go(1); });
    layout->addStretch(1);
    add("整页(&A)", kWhole, {}, [this] { m_sheets->fitInView(); });
    add("页宽(&W)", kWide, {}, [this] { m_sheets->fitToWidth(); });
    add("放大(&L)", kLarger, {QKeySequence::ZoomIn, Qt::CTRL | Qt::Key_Equal},
        [this] { m_sheets->zoomIn(); });
    add("缩小(&S)", kSmaller, {QKeySequence::ZoomOut}, [this] { m_sheets->zoomOut(); });
    layout->addStretch(1);
    add("导出(&E)…", kExport, {}, [this] { Export(); });
    connect(new QShortcut(Qt::CTRL | Qt::Key_Home, this), &QShortcut::activated, this,
            [this] { Go(kFirst); });
    connect(new QShortcut(Qt::CTRL | Qt::Key_End, this), &QShortcut::activated, this,
            [this] { Go(kLast); });
    return row;
}

bool CPreviewDialog::OnInitDialog()
{
    m_other->setEnabled(false);
    connect(m_compare, &QCheckBox::toggled, this, [this](bool isOn) {
        m_other->setEnabled(isOn);
        ShowAnew();
    });
    connect(m_other, &SourceChoice::Changed, this, [this] { ShowAnew(); });
    m_sheets->fitToWidth();
    m_sheets->setFocus();
    return CDialog::OnInitDialog();
}

ReportOptions CPreviewDialog::Options() const
{
    ReportOptions options;
    if (m_compare->isChecked()) options.comparedWith = m_other->Chosen();
    return options;
}

void CPreviewDialog::ShowAnew()
{
    m_sheets->updatePreview();
}

void CPreviewDialog::Go(int pages)
{
    m_sheets->setCurrentPage(
        std::clamp(m_sheets->currentPage() + pages, 1, std::max(1, m_sheets->pageCount())));
    ShowNumber();
}

void CPreviewDialog::ShowNumber()
{
    m_number->setText(
        QStringLiteral("%1 / %2").arg(m_sheets->currentPage()).arg(m_sheets->pageCount()));
}

// 打印: the window stays when nothing was printed.
void CPreviewDialog::OnOK()
{
    const CString told = PrintReport(m_specifications, Options(), this);
    if (told.empty()) return;
    m_told = told;
    CDialog::OnOK();
}

void CPreviewDialog::Export()
{
    const CString told = ExportReport(m_specifications, Options(), this);
    if (!told.empty()) m_told = told;
}
