#include "app/ReadSheetDialog.h"

#include <algorithm>

#include <QClipboard>
#include <QComboBox>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "app/SpecificationChange.h"
#include "base/Format.h"
#include "base/Text.h"
#include "compare/DifferenceView.h"
#include "library/DesignSpecifications.h"
#include "library/StyleName.h"
#include "model/Findings.h"
#include "platform/arx/Documents.h"
#include "platform/mfc/FileChoice.h"
#include "platform/mfc/GuideSection.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDPrj/StyleEditor.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 144;
constexpr int kLinesBesideDifferences = 5;

SpecificationFolder& Folder()
{
    return CDesignSpecifications::GetInstance()->Folder();
}

std::vector<const CDesignSpecification*> ByName()
{
    std::vector<const CDesignSpecification*> all;
    for (int i = 0; i < Folder().Count(); ++i)
        all.push_back(Folder().Item(i));
    std::sort(all.begin(), all.end(), [](const auto* a, const auto* b) {
        return QString::localeAwareCompare(ToQString(a->Name()), ToQString(b->Name())) < 0;
    });
    return all;
}

std::ptrdiff_t CountDifferent(const DifferenceChoices& choices)
{
    std::ptrdiff_t count = 0;
    for (std::size_t i = 0; i < choices.Values().size(); ++i)
        if (choices.IsDifferent(i)) ++count;
    return count;
}

} // namespace

CReadSheetDialog::CReadSheetDialog(const CString& path, const CArray<GUID>& selected,
                                   QWidget* parent)
    : CDialog(kDialogResource, parent), m_file(FromQString(QFileInfo(ToQString(path)).fileName())),
      m_reading(SpreadsheetReading::OfFile(path)), m_target(new QComboBox), m_name(new QLineEdit),
      m_namePlace(new QWidget), m_view(new DifferenceView), m_problemsPlace(new QWidget),
      m_problems(new QPlainTextEdit)
{
    setWindowTitle(QStringLiteral("从电子表格导入"));
    SetGuideSection(this, L"电子表格");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* const notice = new QLabel;
    notice->setTextFormat(Qt::PlainText);
    notice->setWordWrap(true);
    notice->setProperty(kControlIdProperty, kNotice);
    auto* const layout = new QVBoxLayout(GetDlgItem(kPlace));
    layout->setContentsMargins({});
    layout->addWidget(MakeChoice());
    layout->addWidget(m_view, 1);
    layout->addWidget(MakeProblems(), 1);
    layout->addWidget(notice);
    const int line = fontMetrics().height();
    resize(line * 60, line * 36);
    FillTargets();
    m_target->setCurrentIndex(FirstTarget(selected));
    m_name->setText(ToQString(ProposedName()));
}

QWidget* CReadSheetDialog::MakeChoice()
{
    m_target->setProperty(kControlIdProperty, kTarget);
    m_target->setMaxVisibleItems(20);
    m_name->setProperty(kControlIdProperty, kName);
    auto* const target = new QLabel(QStringLiteral("写入(&T):"));
    target->setBuddy(m_target);
    auto* const name = new QLabel(QStringLiteral("名称(&N):"));
    name->setBuddy(m_name);
    auto* const named = new QHBoxLayout(m_namePlace);
    named->setContentsMargins(fontMetrics().height(), 0, 0, 0);
    named->addWidget(name);
    named->addWidget(m_name, 1);
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(target);
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addWidget(m_target, 1);
    layout->addWidget(m_namePlace, 1);
    return row;
}

QWidget* CReadSheetDialog::MakeProblems()
{
    m_problems->setProperty(kControlIdProperty, kProblems);
    m_problems->setReadOnly(true);
    m_problems->setTabChangesFocus(true);
    auto* const label = new QLabel(QStringLiteral("文件中的问题(&P):"));
    label->setBuddy(m_problems);
    auto* const copy = new QPushButton(QStringLiteral("复制(&Y)"));
    copy->setProperty(kControlIdProperty, kCopy);
    copy->setAutoDefault(false);
    connect(copy, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(m_problems->toPlainText()); });
    auto* const top = new QHBoxLayout;
    top->addWidget(label, 1);
    top->addWidget(copy);
    auto* const layout = new QVBoxLayout(m_problemsPlace);
    layout->setContentsMargins({});
    layout->addLayout(top);
    layout->addWidget(m_problems);
    return m_problemsPlace;
}

void CReadSheetDialog::FillTargets()
{
    for (const CDesignSpecification* one : ByName()) {
        m_ids.push_back(one->ID());
        m_target->addItem(ToShown(one->Name()));
    }
    m_target->addItem(QStringLiteral("(新建规范)"));
}

int CReadSheetDialog::FirstTarget(const CArray<GUID>& selected) const
{
    const auto place = [this](const GUID& id) {
        return static_cast<int>(std::find(m_ids.begin(), m_ids.end(), id) - m_ids.begin());
    };
    GUID id;
    const bool isKnown = m_reading.Identity() && VMRDPub::ParseGUID(*m_reading.Identity(), id);
    if (isKnown && Folder().Find(id)) return place(id);
    const auto* const namesake =
        m_reading.Name() ? Folder().Find(m_reading.Name()->c_str()) : nullptr;
    if (namesake) return place(namesake->ID());
    return selected.empty() ? static_cast<int>(m_ids.size()) : place(selected.front());
}

CString CReadSheetDialog::ProposedName() const
{
    const CString name =
        m_reading.Name().value_or(FromQString(QFileInfo(ToQString(m_file)).completeBaseName()));
    return StyleNameProblem(Folder(), name, {}).empty() ? name : Folder().ProposedCopyName(name);
}

bool CReadSheetDialog::OnInitDialog()
{
    Show();
    connect(m_target, &QComboBox::currentIndexChanged, this, [this] { Show(); });
    m_view->setFocus();
    return CDialog::OnInitDialog();
}

const CDesignSpecification* CReadSheetDialog::Target() const
{
    const auto place = static_cast<std::size_t>(m_target->currentIndex());
    return place < m_ids.size() ? Folder().Find(m_ids[place]) : nullptr;
}

void CReadSheetDialog::Show()
{
    const CDesignSpecification* const target = Target();
    m_namePlace->setVisible(!target);
    m_opened = target ? *target : CDesignSpecification();
    m_made = m_opened;
    SpreadsheetReading reading = m_reading;
    reading.ApplyTo(m_made);
    m_found = reading.Problems();
    m_isReadable = !HasError(m_found);
    m_view->setVisible(m_isReadable);
    m_view->ShowTwo(m_opened, m_isReadable ? m_made : m_opened,
                    {.left = target ? ToShown(target->Name()) : QStringLiteral("内置限值"),
                     .right = ToShown(m_file),
                     .changeable = {.left = false, .right = false}});
    ShowOk();
}

// What a page would not take if it were typed there.
QStringList CReadSheetDialog::Refused() const
{
    QStringList lines;
    const auto found = NewFindings(Findings(m_opened), Findings(m_made));
    for (const Finding& one : found)
        if (one.IsRefusedWhenTyped())
            lines << QStringLiteral("编辑窗口不接受: ") + ToShown(one.Line());
    return lines;
}

// Which file is meant, the notice says.
void CReadSheetDialog::ShowProblems(const QStringList& lines)
{
    m_problems->setPlainText(lines.join(u'\n'));
    m_problemsPlace->setVisible(!lines.isEmpty());
    const int few = m_problems->fontMetrics().lineSpacing() * kLinesBesideDifferences;
    m_problems->setMaximumHeight(m_isReadable ? few : QWIDGETSIZE_MAX);
}

CString CReadSheetDialog::Verdict(bool isRefused) const
{
    const auto taken = CountDifferent(m_view->Choices());
    if (!m_isReadable) return L"无法读取, 什么也不会改变。";
    if (isRefused) return L"有编辑窗口不接受的值, 不能导入。";
    if (!Target()) return Format(L"新规范与内置限值有 %d 处不同。", taken);
    return taken > 0 ? Format(L"按确定改变 %d 处。", taken) : CString(L"没有要改变的值。");
}

void CReadSheetDialog::ShowOk()
{
    const QStringList refused = m_isReadable ? Refused() : QStringList();
    QStringList lines;
    for (const Problem& problem : m_found)
        lines << ToShown(problem.text);
    ShowProblems(lines + refused);
    const bool isChange = CountDifferent(m_view->Choices()) > 0 || !Target();
    EnableWindow(IDOK, m_isReadable && refused.isEmpty() && isChange);
    const CString from = m_reading.Name() ? Format(L" (写自“%s”)", *m_reading.Name()) : CString();
    SetDlgItemText(kNotice, Printable(m_file + from) + L": " + Verdict(!refused.isEmpty()));
}

bool CReadSheetDialog::CheckName(const CString& name)
{
    const CString problem = StyleNameProblem(Folder(), name, {});
    if (problem.empty()) return true;
    m_name->setFocus();
    m_name->selectAll();
    MessageBox(this, problem, L"提示", MB_ICONINFORMATION);
    return false;
}

bool CReadSheetDialog::Store()
{
    if (Target()) return StoreChanged(m_opened, m_made, this);
    const CString name = Trim(FromQString(m_name->text()));
    if (!CheckName(name)) return false;
    m_made.SetName(name.c_str());
    return StoreNew(m_made, this);
}

void CReadSheetDialog::OnOK()
{
    if (!GetDlgItem(IDOK)->isEnabled() || !Store()) return;
    const CDesignSpecification* const stored = Folder().Find(m_made.ID());
    m_note = Format(L"已从“%s”导入到“%s”。", m_file, stored ? stored->Name() : m_made.Name());
    if (!Target()) CStyleEditor::SelectWanted().Tell(m_made.ID());
    CDialog::OnOK();
}

namespace designspec {

CString ReadSheet(const CArray<GUID>& selected, QWidget* owner)
{
    const AcAxDocLock lock;
    const QString path =
        AskFileToOpen(owner, QStringLiteral("从电子表格导入"),
                      QStringLiteral("电子表格 (*.xlsx *.ods *.csv *.txt);;所有文件 (*)"));
    if (path.isEmpty()) return {};
    CReadSheetDialog dialog(FromQString(path), selected, owner);
    dialog.DoModal();
    return dialog.Note();
}

} // namespace designspec
