// CObject and its run-time classes: the name, base and size of a class, looked up at run time.
#pragma once

#include <cstdint>

#include "base/Export.h"

class CArchive;
class CDumpContext;
class CObject;

struct AFX_EXT_CLASS CRuntimeClass {
    const char* m_lpszClassName;
    int m_nObjectSize;                 // bytes
    std::uint32_t m_wSchema;           // 0xFFFF: not written to archives
    CObject* (*m_pfnCreateObject)();   // null: cannot be created by name
    const CRuntimeClass* m_pBaseClass; // null: the root, CObject

    // A new object, or null when the class cannot be created by name.
    CObject* CreateObject() const { return m_pfnCreateObject ? m_pfnCreateObject() : nullptr; }
    bool IsDerivedFrom(const CRuntimeClass* base) const;
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

class AFX_EXT_CLASS CObject {
public:
    static const CRuntimeClass classCObject;

    virtual const CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = default;
    // The module writes no archives and dumps no objects; these keep their places.
    virtual void Serialize(CArchive&) {}
    virtual void AssertValid() const {}
    virtual void Dump(CDumpContext&) const {}

    bool IsKindOf(const CRuntimeClass* runtimeClass) const;

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

#define DECLARE_DYNAMIC(class_name)                                                                \
public:                                                                                            \
    static const CRuntimeClass class##class_name;                                                  \
    const CRuntimeClass* GetRuntimeClass() const override;

#define IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, create)                                \
    const CRuntimeClass class_name::class##class_name = {#class_name, sizeof(class_name), 0xFFFF,  \
                                                         create, RUNTIME_CLASS(base_class_name)};  \
    const CRuntimeClass* class_name::GetRuntimeClass() const                                       \
    {                                                                                              \
        return RUNTIME_CLASS(class_name);                                                          \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                             \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, nullptr)

#define DECLARE_DYNCREATE(class_name)                                                              \
    DECLARE_DYNAMIC(class_name)                                                                    \
    static CObject* CreateObject();

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                           \
    CObject* class_name::CreateObject()                                                            \
    {                                                                                              \
        return new class_name; /* NOLINT(bugprone-macro-parentheses): a type */                    \
    }                                                                                              \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, class_name::CreateObject)
