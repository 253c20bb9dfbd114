// A style of the style manager: anything with a name and an identity.
#pragma once

#include "base/Export.h"
#include "platform/mfc/Object.h"
#include "platform/mfc/String.h"
#include "platform/windows/Guid.h"

class AFX_EXT_CLASS CStyle : public CObject {
    DECLARE_DYNAMIC(CStyle)

public:
    virtual CString Name() const = 0;
    virtual GUID ID() const = 0;
};
