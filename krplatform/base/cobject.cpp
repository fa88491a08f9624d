#include <krplatform/base/cobject.h>

CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), 0xFFFF, nullptr, nullptr};

bool CRuntimeClass::IsDerivedFrom(CRuntimeClass const * base) const
{
    CRuntimeClass const * link = this;
    while (link && link != base)
        link = link->m_pfnGetBaseClass ? link->m_pfnGetBaseClass() : nullptr;
    return link != nullptr;
}

CRuntimeClass * CObject::GetThisClass() { return &classCObject; }

CRuntimeClass * CObject::GetRuntimeClass() const { return &classCObject; }

void CObject::Serialize(CArchive &) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext &) const {}

bool CObject::IsKindOf(CRuntimeClass const * runtimeClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}
