#include "pages/framework/FamilyIcon.h"

#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "platform/windows/gui/ResourceLibrary.h"

QIcon FamilyIcon(const CString& name)
{
    const HRESLIB library = LoadResourceLibrary(VMRDPub::GetInstallPath() + L"\\VMRDRes.dll");
    QIcon icon = LoadIcon(library, name, kFamilyIconSize, kFamilyIconSize);
    FreeResourceLibrary(library);
    return icon;
}
