#include "app/ViewDesignSpecification.h"

#include <exception>

#include <QApplication>

#include "app/DSMainDialog.h"
#include "base/Format.h"
#include "base/Text.h"
#include "platform/arx/Documents.h"
#include "platform/arx/Frame.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

// Over the window that asks, which may be another module's.
void View(const CStyle* specification, const wchar_t* page)
{
    if (!specification) return;
    QWidget* const asking = QApplication::activeWindow();
    const AcAxDocLock lock;
    CDSMainDialog dialog(specification->Name(), false, nullptr,
                         asking ? asking : acedGetAcadFrame());
    dialog.SetViewMode(page);
    dialog.DoModal();
}

} // namespace

void ViewDesignSpecification(const wchar_t* page)
try {
    const CStyles& library = *CDesignSpecifications::GetInstance();
    View(library.Item(library.GetDefaultItem()), page);
} catch (const std::exception& error) {
    Trace(L"默认规范无法查看: " + ToWide(error.what()));
}

void ViewDesignSpecificationOf(const wchar_t* name, const wchar_t* page)
try {
    View(CDesignSpecifications::GetInstance()->Item(name), page);
} catch (const std::exception& error) {
    Trace(Format(L"规范“%s”无法查看: %s", CString(name), ToWide(error.what())));
}
