#include <krcore/foundation/krobject.h>

#include <krcore/foundation/krclass.h>

constinit std::unique_ptr<CKrClass> CKrObject::s_pCls;

CKrObject::CKrObject() = default;

CKrObject::CKrObject(CKrObject const &) = default;

CKrObject::~CKrObject() = default;

CKrObject & CKrObject::operator=(CKrObject const &) { return *this; }

CKrClass * CKrObject::Cls() { return s_pCls.get(); }

CKrClass * CKrObject::IsA() const { return Cls(); }

CString const & CKrObject::ClsName() const { return IsA()->ClsName(); }

CKrObject * CKrObject::Clone() const { return new CKrObject; }

bool CKrObject::IsKindOf(CKrClass const * cls) const
{
    CKrClass const * const own = IsA();
    return !own || own->IsDerivedFrom(cls);
}

CKrObject * CKrObject::Cast(CKrObject const * object)
{
    return object && object->IsKindOf(Cls()) ? const_cast<CKrObject *>(object) : nullptr;
}
