#include "app/WriteSheetsDialog.h"

#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "library/DesignSpecifications.h"
#include "platform/arx/Documents.h"
#include "platform/mfc/FileChoice.h"
#include "platform/mfc/GuideSection.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"
#include "sheets/WorkbookWriting.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 143;
constexpr std::size_t kMostNames = 10; // in a question

using Specifications = std::vector<const CDesignSpecification*>;

WorkbookStamp Stamp()
{
    return StampOf(ToWide("designspec " DESIGNSPEC_VERSION));
}

Specifications OfLibrary(const CArray<GUID>& ids)
{
    Specifications found;
    for (const GUID& id : ids)
        if (const auto* const one = CDesignSpecifications::GetInstance()->Item(id))
            found.push_back(one);
    return found;
}

CString Told(bool isWritten, const CString& path, const Problems& problems, QWidget* owner)
{
    const CString native = ToWide(NativePath(path));
    if (isWritten) return L"已导出: " + native;
    CString text = L"没有全部导出到: " + native;
    for (const Problem& problem : problems)
        text += L"\n" + problem.Text();
    MessageBox(owner, text, L"提示", MB_ICONINFORMATION);
    return {};
}

CString WriteFile(const Specifications& specifications, QWidget* owner)
{
    const CString proposed =
        specifications.size() == 1 ? specifications.front()->Name() : L"设计规范对照";
    const CString path = FromQString(AskFileToSave(
        owner, QStringLiteral("导出到电子表格"), QStringLiteral("Excel 工作簿 (*.xlsx)"),
        QStringLiteral("xlsx"), ToQString(proposed), IfThere::Ask));
    if (path.empty()) return {};
    Problems problems;
    return Told(WriteWorkbook(path, specifications, Stamp(), problems), path, problems, owner);
}

// Files that are there are not lost unasked.
bool MayReplace(const CString& folder, const Specifications& specifications, QWidget* owner)
{
    CString names;
    std::size_t count = 0;
    for (const CDesignSpecification* one : specifications) {
        const CString path = WorkbookIn(folder, *one);
        if (path.empty() || !PathFileExists(path)) continue;
        if (++count <= kMostNames) names += L"\n" + one->Name() + kWorkbookEnding;
    }
    return count == 0 ||
           MessageBox(owner, Format(L"文件夹中已有其中 %d 个文件, 要覆盖吗?%s", count, names),
                      L"提示", MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

CString WriteFiles(const Specifications& specifications, QWidget* owner)
{
    const CString folder =
        FromQString(AskFolder(owner, QStringLiteral("导出到电子表格: 选择文件夹")));
    if (folder.empty() || !MayReplace(folder, specifications, owner)) return {};
    Problems problems;
    return Told(WriteWorkbooks(folder, specifications, Stamp(), problems), folder, problems, owner);
}

QRadioButton* MakeRadio(int id, const QString& text)
{
    auto* const button = new QRadioButton(text);
    button->setProperty(kControlIdProperty, id);
    return button;
}

} // namespace

CWriteSheetsDialog::CWriteSheetsDialog(std::size_t count, QWidget* parent)
    : CDialog(kDialogResource, parent)
{
    setWindowTitle(QStringLiteral("导出到电子表格"));
    SetGuideSection(this, L"电子表格");
    auto* const layout = new QVBoxLayout(GetDlgItem(kPlace));
    layout->setContentsMargins({});
    layout->addWidget(new QLabel(QStringLiteral("选中 %1 个规范, 导出为:").arg(count)));
    layout->addWidget(MakeRadio(kEach, QStringLiteral("每个规范一个工作簿, 存入一个文件夹(&E)")));
    layout->addWidget(
        MakeRadio(kTogether, QStringLiteral("一个对照工作簿, 各规范的值并排(&T) — 只供查看, "
                                            "不能再导入")));
    layout->addStretch();
    CheckDlgButton(kEach, true);
}

namespace designspec {

CString WriteSheets(const CArray<GUID>& selected, QWidget* owner)
{
    const AcAxDocLock lock;
    const Specifications specifications = OfLibrary(selected);
    if (specifications.empty()) return {};
    if (specifications.size() == 1) return WriteFile(specifications, owner);
    CWriteSheetsDialog dialog(specifications.size(), owner);
    if (dialog.DoModal() != IDOK) return {};
    return dialog.IsTogether() ? WriteFile(specifications, owner)
                               : WriteFiles(specifications, owner);
}

} // namespace designspec
