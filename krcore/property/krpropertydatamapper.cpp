#include <krcore/property/krpropertydatamapper.h>

#include <krplatform/automation/vartext.h>

namespace
{

// `read` gives the value of the property; without one the data is reset if it shall be.
template <class Data, class Read>
void Transfer(CKrProperty const * property, bool reset, Data & data, Read read)
{
    if (property)
        data = read(*property);
    else if (reset)
        data = Data();
}

CTime TimeOf(CKrProperty const & property)
{
    constexpr WORD firstYear = 1900;
    COleDateTime const date = property.GetOleDateTime();
    SYSTEMTIME fields;
    if (date.GetStatus() != COleDateTime::valid || !VariantTimeToSystemTime(date.m_dt, &fields) ||
        fields.wYear < firstYear)
        return CTime();
    return CTime(fields.wYear, fields.wMonth, fields.wDay, fields.wHour, fields.wMinute, fields.wSecond);
}

} // namespace

CKrPropertyDataMapper::CKrPropertyDataMapper() = default;

CKrPropertyDataMapper::CKrPropertyDataMapper(bool reset) : m_reset(reset) {}

CKrPropertyDataMapper::CKrPropertyDataMapper(CKrPropertyDataMapper const & other) = default;

CKrPropertyDataMapper & CKrPropertyDataMapper::operator=(CKrPropertyDataMapper const & other) = default;

CKrPropertyDataMapper::~CKrPropertyDataMapper() = default;

void CKrPropertyDataMapper::DataFromProp(CKrProperty const * property, int & data) const
{
    Transfer(property, m_reset, data, [](CKrProperty const & source) { return source.GetInt(); });
}

void CKrPropertyDataMapper::DataFromProp(CKrProperty const * property, double & data) const
{
    Transfer(property, m_reset, data, [](CKrProperty const & source) { return source.GetDouble(); });
}

void CKrPropertyDataMapper::DataFromProp(CKrProperty const * property, bool & data) const
{
    Transfer(property, m_reset, data, [](CKrProperty const & source) { return source.GetBool(); });
}

void CKrPropertyDataMapper::DataFromProp(CKrProperty const * property, CString & data) const
{
    Transfer(property, m_reset, data, [](CKrProperty const & source) { return source.GetAsString(); });
}

void CKrPropertyDataMapper::DataFromProp(CKrProperty const * property, COleDateTime & data) const
{
    Transfer(property, m_reset, data, [](CKrProperty const & source) { return source.GetOleDateTime(); });
}

void CKrPropertyDataMapper::DataFromProp(CKrProperty const * property, CTime & data) const
{
    Transfer(property, m_reset, data, TimeOf);
}

void CKrPropertyDataMapper::DataToProp(CKrProperty * property, int data) const
{
    if (property)
        property->SetInt(data);
}

void CKrPropertyDataMapper::DataToProp(CKrProperty * property, double data) const
{
    if (property)
        property->SetDouble(data);
}

void CKrPropertyDataMapper::DataToProp(CKrProperty * property, bool data) const
{
    if (property)
        property->SetBool(data);
}

void CKrPropertyDataMapper::DataToProp(CKrProperty * property, CString const & data) const
{
    if (property)
        property->SetString(data);
}

void CKrPropertyDataMapper::DataToProp(CKrProperty * property, COleDateTime const & data) const
{
    if (property)
        property->SetDateTime(data);
}

void CKrPropertyDataMapper::DataToProp(CKrProperty * property, CTime const & data) const
{
    if (property)
        property->SetDateTime(data.GetTime() == 0 ? COleDateTime() : COleDateTime(data));
}
