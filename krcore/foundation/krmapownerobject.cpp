#include <krcore/foundation/krmapownerobject.h>

#include <krcore/foundation/krclass.h>

constinit std::unique_ptr<CKrClass> CKrMapOwnerObject::s_pCls;

CKrMapOwnerObject::CKrMapOwnerObject() = default;

CKrMapOwnerObject::CKrMapOwnerObject(CKrMapOwnerObject const & other) : CKrObject(other) { CopyChildrenFrom(other); }

CKrMapOwnerObject::~CKrMapOwnerObject() = default;

CKrMapOwnerObject & CKrMapOwnerObject::operator=(CKrMapOwnerObject const & other)
{
    if (this != &other)
    {
        CKrMapOwnerObject copy(other);
        m_children.GetMap().swap(copy.m_children.GetMap());
    }
    return *this;
}

CKrClass * CKrMapOwnerObject::Cls() { return s_pCls.get(); }

CKrClass * CKrMapOwnerObject::IsA() const { return Cls(); }

CKrMapOwnerObject const * CKrMapOwnerObject::Cast(CKrObject const * object)
{
    return dynamic_cast<CKrMapOwnerObject const *>(object);
}

void CKrMapOwnerObject::AddChild(CString const & name, CKrObject * child) { m_children.AddObject(name, child); }

void CKrMapOwnerObject::DeleteChild(CString const & name) { m_children.DeleteObject(name); }

void CKrMapOwnerObject::DeleteChildren() { m_children.Clear(); }

CKrObject * CKrMapOwnerObject::GetChild(CString const & name) const { return m_children.GetObjectW(name); }

CKrObject * CKrMapOwnerObject::GetChildAt(unsigned int index) const { return m_children.GetObjectAt(index); }

unsigned int CKrMapOwnerObject::GetChildCount() const { return m_children.GetCount(); }

kr::ownermap<CString, CKrObject> & CKrMapOwnerObject::GetChildren() { return m_children; }

kr::ownermap<CString, CKrObject> const & CKrMapOwnerObject::GetChildren() const { return m_children; }

void CKrMapOwnerObject::CopyChildrenFrom(CKrMapOwnerObject const & other)
{
    for (auto const & [name, child] : other.m_children.GetMap())
        m_children.AddObject(name, child ? child->Clone() : nullptr);
}
