// Reading and writing the value by type.
#include <krcore/property/krproperty.h>

#include <krcore/property/krtextreading.h>

namespace
{

CKrColor ReadColor(CString const & text)
{
    long const number = _wtol(text);
    return number < 0 ? CKrColor(static_cast<short>(-static_cast<long long>(number)))
                      : CKrColor(static_cast<unsigned long>(number));
}

} // namespace

COleDateTime CKrProperty::GetOleDateTime() const
{
    if (m_value.vt == VT_DATE)
        return COleDateTime(m_value.date);
    VARIANT converted;
    VariantInit(&converted);
    COleDateTime date;
    if (SUCCEEDED(VariantChangeType(&converted, &m_value, 0, VT_DATE)))
        date.m_dt = converted.date;
    else
        date.SetStatus(COleDateTime::invalid);
    return date;
}

CString CKrProperty::GetDate() const
{
    return HoldsDate() ? GetOleDateTime().Format(VAR_DATEVALUEONLY, LOCALE_USER_DEFAULT) : CString();
}

CString CKrProperty::GetTime() const
{
    return HoldsDate() ? GetOleDateTime().Format(VAR_TIMEVALUEONLY, LOCALE_USER_DEFAULT) : CString();
}

CKrFileName CKrProperty::GetFileName() const
{
    switch (m_type)
    {
    case ePropFile:
    case ePropString:
        return CKrFileName(GetString(), false);
    case ePropDir:
        return CKrFileName(GetString(), true);
    default:
        return CKrFileName();
    }
}

void CKrProperty::StoreDate(double date) { m_value = CKrVariant(COleDateTime(date)); }

void CKrProperty::SetDateFromText(CString const & text, unsigned long flags)
{
    if (IsDateTimeValue())
        StoreDate(text.IsEmpty() ? 0.0 : kr::detail::ReadDate(text, static_cast<ULONG>(flags)));
}

void CKrProperty::SetDate(CString const & text) { SetDateFromText(text, VAR_DATEVALUEONLY); }

void CKrProperty::SetTime(CString const & text) { SetDateFromText(text, VAR_TIMEVALUEONLY); }

void CKrProperty::SetDateTime(CString const & text) { SetDateFromText(text, 0); }

void CKrProperty::SetDateTime(COleDateTime const & date)
{
    if (IsDateTimeValue())
        m_value = CKrVariant(date);
}

void CKrProperty::SetValueFromString(CString const & text)
{
    switch (m_type)
    {
    case ePropBool:
        SetBool(_wtol(text) != 0);
        break;
    case ePropInt:
        SetInt(_wtoi(text));
        break;
    case ePropDouble:
        SetDouble(kr::detail::ReadDouble(text));
        break;
    case ePropString:
        SetString(text);
        break;
    case ePropDate:
        SetDate(text);
        break;
    case ePropTime:
        SetTime(text);
        break;
    case ePropFile:
        SetFileName(CKrFileName(text, false));
        break;
    case ePropDir:
        SetFileName(CKrFileName(text, true));
        break;
    case ePropColor:
        SetColor(ReadColor(text));
        break;
    default:
        SetDateTime(text); // any further date-time type; all others ignore it
        break;
    }
}
