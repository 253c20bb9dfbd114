#include "app/ViewDesignSpecification.h"

#include <exception>

#include "app/DSMainDialog.h"
#include "base/Text.h"
#include "platform/arx/Documents.h"
#include "platform/arx/Frame.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

void ViewDesignSpecification(const wchar_t* page)
try {
    const CStyles& library = *CDesignSpecifications::GetInstance();
    const CStyle* const standard = library.Item(library.GetDefaultItem());
    if (!standard) return;
    const AcAxDocLock lock;
    CDSMainDialog dialog(standard->Name(), false, nullptr, acedGetAcadFrame());
    dialog.SetViewMode(page);
    dialog.DoModal();
} catch (const std::exception& error) {
    Trace(L"默认规范无法查看: " + ToWide(error.what()));
}
