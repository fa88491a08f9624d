// The text forms.
#include <krcore/property/krproperty.h>

#include <krplatform/automation/vartext.h>
#include <krplatform/text/takebstr.h>

bool CKrProperty::IsNoDate() const noexcept
{
    return m_type == ePropDateTime && m_value.vt == VT_DATE && m_value.date == 0.0;
}

CString CKrProperty::GetAsString() const
{
    if (m_type == ePropDate)
        return GetDate();
    if (m_type == ePropTime)
        return GetTime();
    return IsNoDate() ? CString() : m_value.GetAsString();
}

CString CKrProperty::GetAsInvariantString() const
{
    if (m_type == ePropDate)
        return GetOleDateTime().Format(OLESTR("%Y-%m-%d"));
    if (m_type == ePropTime)
        return GetOleDateTime().Format(OLESTR("%H:%M:%S"));
    return IsNoDate() ? CString() : m_value.GetAsInvariantString();
}

CString CKrProperty::GetAsLocaleString() const
{
    if (m_type != ePropDouble)
        return GetAsString();
    BSTR text = nullptr;
    if (VarBstrFromR8(GetDouble(), LOCALE_USER_DEFAULT, 0, &text) != S_OK)
        AfxThrowMemoryException(); // every number has a text
    return kr::detail::TakeBstr(text);
}
