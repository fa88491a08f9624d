#include <krcore/foundation/krnamedobject.h>

CKrNamedObject::CKrNamedObject() : CKrNamedObject(-1, false) {}

CKrNamedObject::CKrNamedObject(long id, bool makeName) : m_nID(id)
{
    if (makeName)
        m_strName = IDToString();
}

CKrNamedObject::CKrNamedObject(CKrNamedObject const &) = default;

CKrNamedObject::~CKrNamedObject() = default;

CKrNamedObject & CKrNamedObject::operator=(CKrNamedObject const &) = default;

long CKrNamedObject::GetID() const { return m_nID; }

void CKrNamedObject::SetID(long id) { m_nID = id; }

CString const & CKrNamedObject::GetName() const { return m_strName; }

void CKrNamedObject::SetName(CString const & name) { m_strName = name; }

CString CKrNamedObject::IDToString() const
{
    CString text;
    text.Format(OLESTR("%d"), static_cast<int>(m_nID));
    return text;
}
