#include <krcore/foundation/krwrappedobj.h>

#include <functional>

namespace
{

// What tells automation objects apart; null for none. The reference is given back at once: the address alone counts.
void const * IdentityOf(IDispatchPtr const & object)
{
    if (!object)
        return nullptr;
    void * identity = nullptr;
    HRESULT const result = object->QueryInterface(IID_IUnknown, &identity);
    if (FAILED(result))
        _com_issue_error(result);
    static_cast<IUnknown *>(identity)->Release();
    return identity;
}

} // namespace

CKrWrappedObj::CKrWrappedObj() = default;

CKrWrappedObj::CKrWrappedObj(IDispatchPtr const & object) : m_type(eObjDisp), m_object(object) {}

CKrWrappedObj::CKrWrappedObj(void * pointer) : m_type(eObjPtr), m_pointer(pointer) {}

CKrWrappedObj::CKrWrappedObj(int id) : m_type(eObjId), m_id(id) {}

CKrWrappedObj::CKrWrappedObj(CString const & name) : m_type(eObjName), m_name(name) {}

CKrWrappedObj CKrWrappedObj::ObjDisp(IDispatchPtr object) { return CKrWrappedObj(object); }

CKrWrappedObj CKrWrappedObj::ObjPtr(void * pointer) { return CKrWrappedObj(pointer); }

CKrWrappedObj CKrWrappedObj::ObjId(int id) { return CKrWrappedObj(id); }

CKrWrappedObj CKrWrappedObj::ObjName(CString const & name) { return CKrWrappedObj(name); }

CKrWrappedObj::CKrWrappedObj(CKrWrappedObj const & other) = default;

CKrWrappedObj & CKrWrappedObj::operator=(CKrWrappedObj const & other) = default;

CKrWrappedObj::~CKrWrappedObj() = default;

bool CKrWrappedObj::operator==(CKrWrappedObj const & other) const
{
    switch (m_type)
    {
    case eObjDisp:
        return m_object.GetInterfacePtr() == other.m_object.GetInterfacePtr();
    case eObjPtr:
        return m_pointer == other.m_pointer;
    case eObjId:
        return m_id == other.m_id;
    case eObjName:
        return m_name == other.m_name;
    default:
        return true;
    }
}

bool CKrWrappedObj::operator<(CKrWrappedObj const & other) const
{
    if (this == &other)
        return false;
    switch (m_type)
    {
    case eObjDisp:
        return std::less<>()(IdentityOf(m_object), IdentityOf(other.m_object));
    case eObjPtr:
        return std::less<>()(m_pointer, other.m_pointer);
    case eObjId:
        return m_id < other.m_id;
    case eObjName:
        return m_name < other.m_name;
    default:
        return false;
    }
}

CKrWrappedObjList::CKrWrappedObjList() = default;

CKrWrappedObjList::CKrWrappedObjList(CKrWrappedObjList const & other) = default;

CKrWrappedObjList & CKrWrappedObjList::operator=(CKrWrappedObjList const & other) = default;

CKrWrappedObjList::~CKrWrappedObjList() = default;
