// The text forms of a value.
#include <krcore/values/krvariant.h>

#include <krplatform/automation/vartext.h>
#include <krplatform/text/numbers.h>
#include <krplatform/text/takebstr.h>

namespace
{

constexpr std::size_t decimalSize = 32;

CString const s_false(OLESTR("0"));
CString const s_true(OLESTR("1"));

CString TextOfDouble(double value)
{
    BSTR text = nullptr;
    if (VarBstrFromR8(value, LOCALE_INVARIANT, 0, &text) != S_OK)
        AfxThrowMemoryException(); // every number has a text
    return kr::detail::TakeBstr(text);
}

CString TextOfInteger(int value)
{
    WCHAR text[decimalSize];
    _itow_s(value, text, decimalSize, 10);
    return CString(text);
}

CString TextOfCurrency(VARIANT const & value)
{
    COleCurrency amount;
    amount = value;
    return amount.Format(0, LOCALE_USER_DEFAULT);
}

CString TextOfDate(VARIANT const & value)
{
    COleDateTime moment;
    VARIANT converted;
    VariantInit(&converted);
    if (value.vt == VT_DATE)
        moment.m_dt = value.date;
    else if (SUCCEEDED(VariantChangeType(&converted, &value, 0, VT_DATE)))
        moment.m_dt = converted.date;
    else
        moment.SetStatus(COleDateTime::invalid);
    return moment.Format(0, LOCALE_USER_DEFAULT);
}

} // namespace

CString CKrVariant::GetAsString() const
{
    switch (m_type)
    {
    case eString:
        return operator CString();
    case eFloat:
        return TextOfDouble(static_cast<double>(operator float()));
    case eDouble:
        return TextOfDouble(operator double());
    case eShort:
        return TextOfInteger(operator short());
    case eLong:
    case eColor:
        return TextOfInteger(operator int());
    case eBool:
        return operator bool() ? s_true : s_false;
    case eOleCurrency:
        return TextOfCurrency(*this);
    case eOleDateTime:
        return TextOfDate(*this);
    default:
        return CString();
    }
}

CString CKrVariant::GetAsInvariantString() const { return vt == VT_DATE ? InvariantTextOf(date) : GetAsString(); }

CString CKrVariant::InvariantTextOf(DATE date) { return COleDateTime(date).Format(OLESTR("%Y-%m-%d %H:%M:%S")); }

CString CKrVariant::GetAsLocaleString() const { return CString(static_cast<VARIANT const &>(*this)); }
