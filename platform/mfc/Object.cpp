#include "platform/mfc/Object.h"

const CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), 0xFFFF, nullptr, nullptr};

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const
{
    for (const CRuntimeClass* c = this; c; c = c->m_pBaseClass)
        if (c == base) return true;
    return false;
}

const CRuntimeClass* CObject::GetRuntimeClass() const
{
    return &classCObject;
}

bool CObject::IsKindOf(const CRuntimeClass* runtimeClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}
