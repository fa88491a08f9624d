// Reading a value as one of the scalar types.
#include <krcore/values/krvariant.h>

#include <krplatform/text/bstr.h>

namespace
{

CString TextOf(VARIANT const & value)
{
    return value.bstrVal ? CString(value.bstrVal, static_cast<int>(SysStringLen(value.bstrVal))) : CString();
}

} // namespace

CKrVariant::operator CString() const
{
    if (vt == VT_BSTR)
        return TextOf(*this);
    CKrVariant converted;
    return converted.ConvertTypeLocaleImpl(VT_BSTR, this) ? TextOf(converted) : CString();
}

CKrVariant::operator short() const
{
    if (vt == VT_I2)
        return iVal;
    CKrVariant converted;
    return converted.ConvertTypeLocaleImpl(VT_I2, this) ? converted.iVal : short(0);
}

CKrVariant::operator int() const
{
    if (vt == VT_I4)
        return lVal;
    CKrVariant converted;
    return converted.ConvertTypeLocaleImpl(VT_I4, this) ? converted.lVal : 0;
}

CKrVariant::operator long() const { return operator int(); }

CKrVariant::operator float() const
{
    if (vt == VT_R4)
        return fltVal;
    CKrVariant converted;
    return converted.ConvertTypeLocaleImpl(VT_R4, this) ? converted.fltVal : 0.0f;
}

CKrVariant::operator double() const
{
    if (vt == VT_R8)
        return dblVal;
    CKrVariant converted;
    return converted.ConvertTypeLocaleImpl(VT_R8, this) ? converted.dblVal : 0.0;
}

CKrVariant::operator bool() const
{
    if (vt == VT_BOOL)
        return boolVal == VARIANT_TRUE;
    CKrVariant converted;
    return converted.ConvertTypeLocaleImpl(VT_BOOL, this) && converted.boolVal == VARIANT_TRUE;
}

CKrVariant::operator void *() const
{
    CKrVariant converted;
    CKrVariant const * source = this;
    if (vt != VT_UI8)
    {
        if (!converted.ConvertTypeLocaleImpl(VT_UI8, this))
            return nullptr;
        source = &converted;
    }
    return reinterpret_cast<void *>(static_cast<std::uintptr_t>(source->ullVal));
}

CKrVariant::operator COleDateTime() const
{
    if (vt == VT_DATE)
        return COleDateTime(date);
    CKrVariant converted;
    return converted.ConvertTypeLocaleImpl(VT_DATE, this) ? COleDateTime(converted.date) : COleDateTime();
}

CKrVariant::operator COleCurrency() const noexcept { return COleCurrency(cyVal); }

CKrVariant::operator IDispatch *() const noexcept { return pdispVal; }

CKrVariant::operator CKrColor() const
{
    CKrColor color;
    GetValue(color);
    return color;
}

bool CKrVariant::GetValue(CKrColor & color) const
{
    int const number = operator int();
    if (number < 0)
        color.SetColorIndex(static_cast<short>(-static_cast<short>(number)));
    else
        color.SetColorRef(static_cast<unsigned long>(number));
    return true;
}
