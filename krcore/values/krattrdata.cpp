#include <krcore/values/krattrlist.h>

CKrAttrData::CKrAttrData() = default;

CKrAttrData::CKrAttrData(CString const & name, CKrVariant const & value, CString const & description)
    : m_name(name), m_description(description), m_value(value)
{
}

CKrAttrData::CKrAttrData(CKrAttrData const & other)
    : m_name(other.m_name), m_description(other.m_description), m_value(other.m_value)
{
}

CKrAttrData & CKrAttrData::operator=(CKrAttrData const & other)
{
    m_value = other.m_value;
    m_name = other.m_name;
    m_description = other.m_description;
    return *this;
}

CKrAttrData::~CKrAttrData() = default;

bool CKrAttrData::operator==(CKrAttrData const & other) const
{
    return m_name == other.m_name && m_value == other.m_value;
}

CString CKrAttrData::GetValueAsString() const
{
    COleVariant text(static_cast<VARIANT const &>(m_value));
    text.ChangeType(VT_BSTR);
    return CString(text);
}
