#include <krcore/foundation/krlistownerobject.h>

#include <krcore/foundation/krclass.h>

#include <algorithm>

constinit std::unique_ptr<CKrClass> CKrListOwnerObject::s_pCls;

CKrListOwnerObject::CKrListOwnerObject() = default;

CKrListOwnerObject::CKrListOwnerObject(CKrListOwnerObject const & other) : CKrObject(other) { CopyChildrenFrom(other); }

CKrListOwnerObject::~CKrListOwnerObject() = default;

CKrListOwnerObject & CKrListOwnerObject::operator=(CKrListOwnerObject const & other)
{
    if (this != &other)
    {
        CKrListOwnerObject copy(other);
        m_children.swap(copy.m_children);
    }
    return *this;
}

CKrClass * CKrListOwnerObject::Cls() { return s_pCls.get(); }

CKrClass * CKrListOwnerObject::IsA() const { return Cls(); }

CKrListOwnerObject const * CKrListOwnerObject::Cast(CKrObject const * object)
{
    return dynamic_cast<CKrListOwnerObject const *>(object);
}

void CKrListOwnerObject::AddChild(CKrObject * child)
{
    std::unique_ptr<CKrObject> owner(child);
    m_children.push_back(child);
    owner.release();
}

void CKrListOwnerObject::DeleteChild(CKrObject * child)
{
    auto const place = std::find(m_children.begin(), m_children.end(), child);
    if (place == m_children.end())
        return;
    m_children.erase(place);
    delete child;
}

void CKrListOwnerObject::DeleteChildren()
{
    kr::ownervector<CKrObject> children;
    children.swap(m_children);
}

CKrObject * CKrListOwnerObject::GetChildAt(unsigned int index) const
{
    return index < m_children.size() ? m_children[index] : nullptr;
}

unsigned int CKrListOwnerObject::GetChildCount() const { return static_cast<unsigned int>(m_children.size()); }

kr::ownervector<CKrObject> & CKrListOwnerObject::GetChildren() { return m_children; }

kr::ownervector<CKrObject> const & CKrListOwnerObject::GetChildren() const { return m_children; }

void CKrListOwnerObject::CopyChildrenFrom(CKrListOwnerObject const & other)
{
    // with the room made first, no clone can be lost between its making and its keeping
    m_children.reserve(m_children.size() + other.m_children.size());
    for (CKrObject const * const child : other.m_children)
        m_children.push_back(child ? child->Clone() : nullptr);
}
