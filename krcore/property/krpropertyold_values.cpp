// Reading and writing the value by its tag.
#include <krcore/property/krpropertyold.h>

#include <krcore/property/krtextreading.h>

bool CKrPropertyOld::GetBool() const { return m_value.IsBool() && m_value.operator bool(); }

int CKrPropertyOld::GetInt() const { return m_value.IsLong() ? m_value.operator int() : -1; }

double CKrPropertyOld::GetDouble() const { return m_value.IsDouble() ? m_value.operator double() : -1.0; }

double CKrPropertyOld::GetAsDouble() const
{
    switch (m_value.GetType())
    {
    case CKrVariant::eDouble:
        return m_value.dblVal;
    case CKrVariant::eFloat:
        return static_cast<double>(m_value.fltVal);
    case CKrVariant::eLong:
        return m_value.lVal;
    case CKrVariant::eShort:
        return m_value.iVal;
    default:
        return -1.0;
    }
}

CString CKrPropertyOld::GetString() const { return m_value.IsString() ? m_value.operator CString() : CString(); }

CKrColor CKrPropertyOld::GetColor() const
{
    return m_value.IsLong() ? CKrColor(static_cast<unsigned long>(m_value.operator int())) : CKrColor();
}

COleDateTime CKrPropertyOld::GetOleDateTime() const
{
    return m_value.IsOleDateTime() ? m_value.operator COleDateTime() : COleDateTime();
}

CString CKrPropertyOld::GetDate() const
{
    return m_value.IsOleDateTime() ? GetOleDateTime().Format(VAR_DATEVALUEONLY, LOCALE_USER_DEFAULT) : CString();
}

CString CKrPropertyOld::GetTime() const
{
    return m_value.IsOleDateTime() ? GetOleDateTime().Format(VAR_TIMEVALUEONLY, LOCALE_USER_DEFAULT) : CString();
}

CKrFileName CKrPropertyOld::GetFileName() const
{
    bool const isDirectory = m_ctrlType == CKrAssCtrlOld::eDirNameCtrl;
    bool const isName = m_ctrlType == CKrAssCtrlOld::eFileNameCtrl || isDirectory;
    return m_value.IsString() && isName ? CKrFileName(GetString(), isDirectory) : CKrFileName();
}

void CKrPropertyOld::SetColor(CKrColor const & color) { SetInt(static_cast<int>(color.GetColorRef())); }

void CKrPropertyOld::SetDate(CString const & text)
{
    if (text.IsEmpty())
        SetDate(CTime::GetCurrentTime());
    else
        SetDate(COleDateTime(kr::detail::ReadDate(text, VAR_DATEVALUEONLY)));
}

void CKrPropertyOld::SetValueFromString(CString const & text)
{
    switch (GetType())
    {
    case CKrAssCtrlOld::eObjBool:
        SetBool(_wtol(text) != 0);
        break;
    case CKrAssCtrlOld::eObjInt:
        SetInt(_wtoi(text));
        break;
    case CKrAssCtrlOld::eObjDouble:
        SetDouble(kr::detail::ReadDouble(text));
        break;
    case CKrAssCtrlOld::eObjDate:
        SetDate(text);
        break;
    default:
        SetString(text);
        break;
    }
}
