#include <krplatform/automation/colevariant.h>

#include <krplatform/automation/owned_variant.h>
#include <krplatform/datetime/colecurrency.h>
#include <krplatform/datetime/coledatetime.h>
#include <krplatform/text/copybstr.h>

using namespace kr::detail;

namespace
{

VARIANT TextVariant(BSTR text)
{
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = text;
    return value;
}

/// Takes over a text just made; null is want of memory.
VARIANT NewTextVariant(BSTR text)
{
    if (!text)
        AfxThrowMemoryException();
    return TextVariant(text);
}

VARIANT MakeText(WCHAR const * text, UINT length)
{
    return text ? NewTextVariant(SysAllocStringLen(text, length)) : TextVariant(nullptr);
}

VARIANT MakeText(WCHAR const * text) { return MakeText(text, text ? static_cast<UINT>(TextView(text).size()) : 0); }

VARIANT MakeText(CString const & text) { return MakeText(text.GetString(), static_cast<UINT>(text.GetLength())); }

VARIANT MakeCurrency(CY amount)
{
    VARIANT value{};
    value.vt = VT_CY;
    value.cyVal = amount;
    return value;
}

VARIANT MakeDate(DATE date)
{
    VARIANT value{};
    value.vt = VT_DATE;
    value.date = date;
    return value;
}

} // namespace

COleVariant::COleVariant(VARIANT const * source) : VARIANT{} { Check(VariantCopy(this, source)); }

COleVariant::COleVariant(WCHAR const * text) : VARIANT(MakeText(text)) {}

COleVariant::COleVariant(CString const & text) : VARIANT(MakeText(text)) {}

COleVariant::COleVariant(COleCurrency const & value) noexcept : VARIANT(MakeCurrency(value.m_cur)) {}

COleVariant::COleVariant(COleDateTime const & value) noexcept : VARIANT(MakeDate(value.m_dt)) {}

COleVariant & COleVariant::operator=(COleVariant && source) noexcept
{
    ForceVariant(*this, source);
    return *this;
}

COleVariant & COleVariant::operator=(WCHAR const * text)
{
    Replace(MakeText(text));
    return *this;
}

COleVariant & COleVariant::operator=(CString const & text)
{
    Replace(MakeText(text));
    return *this;
}

COleVariant & COleVariant::operator=(COleCurrency const & value) { return Store(MakeCurrency(value.m_cur)); }

COleVariant & COleVariant::operator=(COleDateTime const & value) { return Store(MakeDate(value.m_dt)); }

void COleVariant::ChangeType(VARTYPE type, VARIANT * source)
{
    if (!source)
        source = this;
    if (source != this || vt != type)
        Check(VariantChangeType(this, source, 0, type));
}

void COleVariant::Attach(VARIANT & source) { MoveVariant(*this, source); }

VARIANT COleVariant::Detach() noexcept { return DetachVariant(*this); }

VARIANT COleVariant::MakeOther(long value, VARTYPE type, VARTYPE other)
{
    VARIANT result{};
    result.vt = type;
    if (type == VT_BOOL)
        result.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    else if (type == VT_ERROR && other == VT_ERROR)
        result.scode = static_cast<SCODE>(value);
    else
        AfxThrowOleException(E_INVALIDARG);
    return result;
}

void COleVariant::Replace(VARIANT value)
{
    COleVariant owner;
    static_cast<VARIANT &>(owner) = value;
    MoveVariant(*this, owner);
}

void COleVariant::ReplaceByCopy(VARIANT const & source) { Check(VariantCopy(this, &source)); }

VARIANT COleVariant::OwnedCopyOf(VARIANT const & source)
{
    if (source.vt == VT_BSTR)
        return NewTextVariant(CopyText(source.bstrVal));
    VARIANT copy{};
    Check(VariantCopy(&copy, &source));
    return copy;
}
