#include <krcore/values/krattrlist.h>

#include <krcore/diagnostics/krexception.h>

#include <iterator>

namespace
{

[[noreturn]] void ThrowMissing(CString const & key)
{
    throw CKrException(OLESTR("Attribute ") + key + OLESTR(" nicht enthalten"), CString(), 0,
                       CKrException::eLevelNormal);
}

// A copy of the value as the platform converts it, raising its failure where it cannot.
COleVariant ReadAs(VARIANT const & value, VARTYPE type)
{
    COleVariant copy(value);
    copy.ChangeType(type);
    return copy;
}

} // namespace

CRuntimeClass CKrAttrList::classCKrAttrList = {"CKrAttrList", sizeof(CKrAttrList), 0xFFFF, nullptr,
                                               &CObject::GetThisClass};

CKrAttrList::CKrAttrList() = default;

CKrAttrList::CKrAttrList(CKrAttrList const & other) : m_attributes(other.m_attributes) {}

CKrAttrList & CKrAttrList::operator=(CKrAttrList const & other)
{
    if (this != &other)
        std::map(other.m_attributes).swap(m_attributes); // whole or not at all
    return *this;
}

CKrAttrList::~CKrAttrList() = default;

CRuntimeClass * CKrAttrList::GetRuntimeClass() const { return &classCKrAttrList; }

CRuntimeClass * CKrAttrList::GetThisClass() { return &classCKrAttrList; }

CKrAttrData const * CKrAttrList::Find(CString const & key) const
{
    auto const place = m_attributes.find(key);
    return place == m_attributes.end() ? nullptr : &place->second;
}

bool CKrAttrList::Includes(CString const & key) const { return Find(key) != nullptr; }

bool CKrAttrList::Includes(CKrAttrData const & attribute) const { return Includes(attribute.m_name); }

CKrAttrData const & CKrAttrList::At(int index) const
{
    if (index >= size() || m_attributes.empty())
        throw CKrException(OLESTR("Attributindex ueberschreitet Map-size!"), CString(), 0, CKrException::eLevelNormal);
    return std::next(m_attributes.begin(), index < 0 ? 0 : index)->second;
}

CKrAttrData const & CKrAttrList::GetAttr(CString const & key) const
{
    CKrAttrData const * const attribute = Find(key);
    if (!attribute)
        ThrowMissing(key);
    return *attribute;
}

CString CKrAttrList::GetDescription(CString const & key) const { return GetAttr(key).m_description; }

CKrVariant CKrAttrList::GetValue(CString const & key) const { return GetAttr(key).m_value; }

void CKrAttrList::SetValue(CString const & key, CKrVariant const & value)
{
    auto const place = m_attributes.find(key);
    if (place == m_attributes.end())
        ThrowMissing(key);
    place->second.SetValue(value);
}

void CKrAttrList::AddAttr(CKrAttrData const & attribute) { SetAttr(attribute.m_name, attribute); }

void CKrAttrList::SetAttr(CString const & key, CKrAttrData const & attribute)
{
    m_attributes.insert_or_assign(key, attribute);
}

void CKrAttrList::AppendAttrList(CKrAttrList const & other)
{
    for (auto const & [key, attribute] : other.m_attributes)
        AddAttr(attribute);
}

void CKrAttrList::ClearKey(CString const & key) { m_attributes.erase(key); }

void CKrAttrList::SetBool(CString const & key, bool value, CString const & description)
{
    AddAttr(CKrAttrData(key, value, description));
}

void CKrAttrList::SetDouble(CString const & key, double value, CString const & description)
{
    AddAttr(CKrAttrData(key, value, description));
}

void CKrAttrList::SetLong(CString const & key, long value, CString const & description)
{
    AddAttr(CKrAttrData(key, value, description));
}

void CKrAttrList::SetPtr(CString const & key, void * value, CString const & description)
{
    AddAttr(CKrAttrData(key, value, description));
}

void CKrAttrList::SetString(CString const & key, CString const & value, CString const & description)
{
    AddAttr(CKrAttrData(key, value, description));
}

void CKrAttrList::AddBool(CString const & key, bool value) { SetBool(key, value, CString()); }

void CKrAttrList::AddDouble(CString const & key, double value) { SetDouble(key, value, CString()); }

void CKrAttrList::AddLong(CString const & key, long value) { SetLong(key, value, CString()); }

void CKrAttrList::AddPtr(CString const & key, void * value) { SetPtr(key, value, CString()); }

void CKrAttrList::AddString(CString const & key, CString const & value) { SetString(key, value, CString()); }

bool CKrAttrList::GetBool(CString const & key, bool defaultValue) const
{
    CKrAttrData const * const attribute = Find(key);
    return attribute ? ReadAs(attribute->m_value, VT_BOOL).boolVal == VARIANT_TRUE : defaultValue;
}

double CKrAttrList::GetDouble(CString const & key, double defaultValue) const
{
    CKrAttrData const * const attribute = Find(key);
    return attribute ? ReadAs(attribute->m_value, VT_R8).dblVal : defaultValue;
}

long CKrAttrList::GetLong(CString const & key, long defaultValue) const
{
    CKrAttrData const * const attribute = Find(key);
    return attribute ? ReadAs(attribute->m_value, VT_I4).lVal : defaultValue;
}

CString CKrAttrList::GetString(CString const & key, CString const & defaultValue) const
{
    CKrAttrData const * const attribute = Find(key);
    return attribute ? CString(ReadAs(attribute->m_value, VT_BSTR)) : defaultValue;
}

void * CKrAttrList::GetPtr(CString const & key, void * defaultValue) const
{
    CKrAttrData const * const attribute = Find(key);
    return attribute ? ReadAs(attribute->m_value, VT_PTR).byref : defaultValue;
}

bool CKrAttrList::GetBoolAdd(CString const & key, bool defaultValue, CString const & description)
{
    if (!Includes(key))
        SetBool(key, defaultValue, description);
    return GetBool(key, defaultValue);
}

double CKrAttrList::GetDoubleAdd(CString const & key, double defaultValue, CString const & description)
{
    if (!Includes(key))
        SetDouble(key, defaultValue, description);
    return GetDouble(key, defaultValue);
}

long CKrAttrList::GetLongAdd(CString const & key, long defaultValue, CString const & description)
{
    if (!Includes(key))
        SetLong(key, defaultValue, description);
    return GetLong(key, defaultValue);
}

CString CKrAttrList::GetStringAdd(CString const & key, CString const & defaultValue, CString const & description)
{
    if (Includes(key))
        return GetString(key, defaultValue);
    SetString(key, defaultValue, description);
    return defaultValue; // as it would be read, which could fail
}

void * CKrAttrList::GetPtrAdd(CString const & key, void * defaultValue, CString const & description)
{
    if (!Includes(key))
        SetPtr(key, defaultValue, description);
    return GetPtr(key, defaultValue);
}
