// Conversion in place: two rules of the library before the platform's own.
#include <krcore/values/krvariant.h>

CKrVariant & CKrVariant::ConvertType(EType type)
{
    if (int const target = SwapType(type); target != VT_EMPTY)
        ConvertTypeImpl(target, this);
    return *this;
}

CKrVariant & CKrVariant::ConvertTypeLocale(EType type)
{
    if (int const target = SwapType(type); target != VT_EMPTY)
        ConvertTypeLocaleImpl(target, this);
    return *this;
}

// A truth value is converted by way of the number 1 or 0, so that true is never minus one.
VARIANT CKrVariant::NumberOfBool(VARIANT const & source) noexcept
{
    VARIANT number{};
    number.vt = VT_I2;
    number.iVal = source.boolVal == VARIANT_TRUE ? 1 : 0;
    return number;
}

bool CKrVariant::ConvertTypeImpl(int target, CKrVariant const * source)
{
    VARIANT const & from = source ? *source : *this;
    if (from.vt != VT_DATE || target != VT_BSTR)
        return ConvertUnder(LOCALE_INVARIANT, target, from);
    // Deliberate: the date is that of this value, which for all callers is the source.
    COleVariant::operator=(InvariantTextOf(date));
    m_type = SwapType(vt);
    return true;
}

bool CKrVariant::ConvertTypeLocaleImpl(int target, CKrVariant const * source)
{
    return ConvertUnder(LOCALE_USER_DEFAULT, target, source ? *source : *this);
}

bool CKrVariant::ConvertUnder(LCID locale, int target, VARIANT const & source)
{
    if (&source == this && vt == target)
        return true;
    if (source.vt == VT_BOOL)
        return ConvertUnder(locale, target, NumberOfBool(source));
    HRESULT const result = VariantChangeTypeEx(this, &source, locale, 0, static_cast<VARTYPE>(target));
    if (result == E_OUTOFMEMORY)
        AfxThrowMemoryException();
    if (FAILED(result))
        return false;
    m_type = SwapType(vt);
    return true;
}
