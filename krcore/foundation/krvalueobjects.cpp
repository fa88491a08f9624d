#include <krcore/foundation/krvalueobjects.h>

#include <krcore/foundation/krclass.h>
#include <krcore/values/krvariant.h>

constinit std::unique_ptr<CKrClass> CKrStringObject::s_pCls;
constinit std::unique_ptr<CKrClass> CKrStringListObject::s_pCls;
constinit std::unique_ptr<CKrClass> CKrVariantObject::s_pCls;

CKrStringObject::CKrStringObject(CString const & value) : m_strValue(value) {}

CKrStringObject::CKrStringObject(CKrStringObject const &) = default;

CKrStringObject::~CKrStringObject() = default;

CKrStringObject & CKrStringObject::operator=(CKrStringObject const &) = default;

CKrClass * CKrStringObject::Cls() { return s_pCls.get(); }

CKrClass * CKrStringObject::IsA() const { return Cls(); }

CKrStringObject const * CKrStringObject::Cast(CKrObject const * object)
{
    return dynamic_cast<CKrStringObject const *>(object);
}

CKrStringObject * CKrStringObject::Clone() { return new CKrStringObject(*this); }

CString const & CKrStringObject::GetValue() const { return m_strValue; }

void CKrStringObject::SetValue(CString const & value) { m_strValue = value; }

CKrStringListObject::CKrStringListObject(std::vector<CString> const & value) : m_value(value) {}

CKrStringListObject::CKrStringListObject(CKrStringListObject const &) = default;

CKrStringListObject::~CKrStringListObject() = default;

CKrStringListObject & CKrStringListObject::operator=(CKrStringListObject const & other)
{
    SetValue(other.m_value);
    return *this;
}

CKrClass * CKrStringListObject::Cls() { return s_pCls.get(); }

CKrClass * CKrStringListObject::IsA() const { return Cls(); }

CKrStringListObject const * CKrStringListObject::Cast(CKrObject const * object)
{
    return dynamic_cast<CKrStringListObject const *>(object);
}

CKrStringListObject * CKrStringListObject::Clone() { return new CKrStringListObject(*this); }

std::vector<CString> const & CKrStringListObject::GetValue() const { return m_value; }

void CKrStringListObject::SetValue(std::vector<CString> const & value) { std::vector<CString>(value).swap(m_value); }

CKrVariantObject::CKrVariantObject(CKrVariant const & value) : m_value(value) {}

CKrVariantObject::CKrVariantObject(CKrVariantObject const &) = default;

CKrVariantObject::~CKrVariantObject() = default;

CKrVariantObject & CKrVariantObject::operator=(CKrVariantObject const &) = default;

CKrClass * CKrVariantObject::Cls() { return s_pCls.get(); }

CKrClass * CKrVariantObject::IsA() const { return Cls(); }

CKrVariantObject const * CKrVariantObject::Cast(CKrObject const * object)
{
    return dynamic_cast<CKrVariantObject const *>(object);
}

CKrVariantObject * CKrVariantObject::Clone() { return new CKrVariantObject(*this); }

CKrVariant const & CKrVariantObject::GetValue() const { return m_value; }

void CKrVariantObject::SetValue(CKrVariant const & value) { m_value = value; }
