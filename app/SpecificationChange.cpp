#include "app/SpecificationChange.h"

#include "app/EditStore.h"
#include "base/Format.h"
#include "library/DesignSpecifications.h"
#include "model/Findings.h"
#include "platform/mfc/MessageBox.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

namespace designspec {

namespace {

constexpr int kMostLines = 10;

bool Save(CDesignSpecification& now, const CDesignSpecification& made, CString& cause)
{
    const Connection trace = ConnectTrace([&cause](const TraceLine& line) {
        if (line.severity == TraceLevel::Error && cause.empty()) cause = line.Text();
    });
    const CDesignSpecification before = now;
    now.CopyCriteria(made);
    if (CDesignSpecifications::GetInstance()->Save(&now)) return true;
    now.CopyCriteria(before);
    return false;
}

} // namespace

CString RefusedBy(const CDesignSpecification& before, const CDesignSpecification& made)
{
    CString text;
    int lines = 0;
    for (const Finding& finding : NewFindings(Findings(before), Findings(made)))
        if (finding.severity == Severity::Error && ++lines <= kMostLines)
            text += (text.empty() ? L"" : L"\n") + finding.Line();
    return text;
}

bool StoreChanged(const CDesignSpecification& opened, const CDesignSpecification& made,
                  QWidget* owner)
{
    const CString refused = RefusedBy(opened, made);
    if (!refused.empty()) {
        MessageBox(owner,
                   Format(L"“%s”没有保存, 编辑窗口不接受其中的值:\n%s", made.Name(), refused),
                   L"提示", MB_ICONINFORMATION);
        return false;
    }
    const CEditStore::Result settled = CEditStore(opened, opened, made, owner).Settle();
    if (settled != CEditStore::Result::AsUsual) return settled == CEditStore::Result::Done;
    CDesignSpecification* const now = CDesignSpecifications::GetInstance()->Item(made.ID());
    CString cause;
    if (now && Save(*now, made, cause)) return true;
    MessageBox(owner, Format(L"“%s”没有保存。\n\n%s", made.Name(), cause), L"提示",
               MB_ICONINFORMATION);
    return false;
}

} // namespace designspec
