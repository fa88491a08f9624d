// The platform's class root and the static record of a class.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

class CArchive;
class CDumpContext;
class CObject;

/// The static record of a class derived from `CObject`: its name, size and base.
struct KRPLATFORM_API CRuntimeClass
{
    char const * m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema;                         ///< 0xFFFF: the class is dynamic only, objects cannot be created by name
    CObject * (*m_pfnCreateObject)();       ///< null for a class that is dynamic only
    CRuntimeClass * (*m_pfnGetBaseClass)(); ///< null for `CObject` itself

    /// Whether this class is `base` or derives from it. A null `base` gives false.
    bool IsDerivedFrom(CRuntimeClass const * base) const;
};

/// Root of the classes that have a `CRuntimeClass`. Objects are not copyable unless a derived class says so.
class KRPLATFORM_API CObject
{
public:
    virtual CRuntimeClass * GetRuntimeClass() const;
    virtual ~CObject() = default;
    /// Deliberate: empty here; the classes of this system are not written to archives.
    virtual void Serialize(CArchive & archive);
    virtual void AssertValid() const;
    virtual void Dump(CDumpContext & context) const;

    CObject(CObject const &) = delete;
    CObject & operator=(CObject const &) = delete;

    /// Whether the object's class is `runtimeClass` or derives from it.
    bool IsKindOf(CRuntimeClass const * runtimeClass) const;

    static CRuntimeClass * GetThisClass();
    static CRuntimeClass classCObject;

protected:
    CObject() = default;
};
