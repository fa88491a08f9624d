// The variant that clears itself.
#pragma once

#include <krplatform/automation/plain_tags.h>
#include <krplatform/automation/variant.h>
#include <krplatform/text/bstr.h>
#include <krplatform/text/cstring.h>

class COleCurrency;
class COleDateTime;

/// A `VARIANT` with ownership: copies are deep, the destructor clears the value. Failures are thrown as `COleException
/// *`, want of memory as `CMemoryException *`; the value then stays as it was.
///
///     COleVariant value(OLESTR("2.5"));
///     value.ChangeType(VT_R8);               -> value.dblVal is 2.5 under a locale with a decimal point
///     COleVariant(long(5)) == COleVariant(5.0)   -> false: the tags differ
///
/// A value that holds a locked array cannot be replaced (DISP_E_ARRAYISLOCKED); the destructor and the moves, which do
/// not throw, leave such an array to whoever locked it. Numbers are copied without a call.
class KRPLATFORM_API COleVariant : public VARIANT
{
public:
    COleVariant() noexcept : VARIANT{} {}
    /// A text without text becomes an empty one; a tag that cannot be copied raises DISP_E_BADVARTYPE.
    COleVariant(VARIANT const & source) : VARIANT(CopyOf(source)) {}
    /// Null raises E_INVALIDARG.
    COleVariant(VARIANT const * source);
    COleVariant(COleVariant const & source) : VARIANT(CopyOf(source)) {}
    COleVariant(COleVariant && source) noexcept : VARIANT(source) { static_cast<VARIANT &>(source) = VARIANT{}; }
    /// VT_BSTR; a null pointer gives a null text.
    COleVariant(WCHAR const * text);
    COleVariant(CString const & text);
    /// A long of more than 32 bits keeps its low 32. `type` is VT_I4, VT_ERROR or VT_BOOL, which is stored as -1 or 0;
    /// others raise E_INVALIDARG.
    COleVariant(long value, VARTYPE type = VT_I4) : VARIANT(MakeLong(value, type)) {}
    /// `type` is VT_I2 or VT_BOOL; others raise E_INVALIDARG.
    COleVariant(short value, VARTYPE type = VT_I2) : VARIANT(MakeShort(value, type)) {}
    COleVariant(BYTE value) noexcept : VARIANT(Make(VT_UI1, &VARIANT::bVal, value)) {}
    COleVariant(float value) noexcept : VARIANT(Make(VT_R4, &VARIANT::fltVal, value)) {}
    COleVariant(double value) noexcept : VARIANT(Make(VT_R8, &VARIANT::dblVal, value)) {}
    /// The amount as it stands; the status is not looked at.
    COleVariant(COleCurrency const & value) noexcept;
    /// The date as it stands; the status is not looked at.
    COleVariant(COleDateTime const & value) noexcept;
    ~COleVariant()
    {
        if (vt == VT_BSTR)
            SysFreeString(bstrVal);
        else if (!kr::detail::IsPlainTag(vt))
            VariantClear(this);
    }

    COleVariant & operator=(VARIANT const & source)
    {
        CopyFrom(source);
        return *this;
    }
    COleVariant & operator=(COleVariant const & source)
    {
        CopyFrom(source);
        return *this;
    }
    COleVariant & operator=(COleVariant && source) noexcept;
    COleVariant & operator=(WCHAR const * text);
    COleVariant & operator=(CString const & text);
    /// A VT_ERROR keeps its tag; every other value becomes VT_I4.
    COleVariant & operator=(long value) { return Store(MakeLong(value, vt == VT_ERROR ? VT_ERROR : VT_I4)); }
    /// A VT_BOOL keeps its tag and becomes -1 or 0; every other value becomes VT_I2.
    COleVariant & operator=(short value) { return Store(MakeShort(value, vt == VT_BOOL ? VT_BOOL : VT_I2)); }
    COleVariant & operator=(BYTE value) { return Store(Make(VT_UI1, &VARIANT::bVal, value)); }
    COleVariant & operator=(float value) { return Store(Make(VT_R4, &VARIANT::fltVal, value)); }
    COleVariant & operator=(double value) { return Store(Make(VT_R8, &VARIANT::dblVal, value)); }
    COleVariant & operator=(COleCurrency const & value);
    COleVariant & operator=(COleDateTime const & value);

    void Clear() { Store(VARIANT{}); }
    /// Converts this value, or a copy of `source`, with the default locale. A value that has the tag already stays
    /// untouched.
    void ChangeType(VARTYPE type, VARIANT * source = nullptr);
    /// Frees the old value and takes over the argument's, which is left VT_EMPTY. Attaching itself changes nothing.
    void Attach(VARIANT & source);
    /// Hands the value out and is left VT_EMPTY.
    VARIANT Detach() noexcept;

    // There is no conversion to a pointer: it would win over the value conversions of derived classes. Write &value.

private:
    template <class Value>
    static VARIANT Make(VARTYPE tag, Value VARIANT::*field, Value value) noexcept
    {
        VARIANT result{};
        result.vt = tag;
        result.*field = value;
        return result;
    }
    static VARIANT MakeLong(long value, VARTYPE type)
    {
        return type == VT_I4 ? Make(VT_I4, &VARIANT::lVal, static_cast<LONG>(value)) : MakeOther(value, type, VT_ERROR);
    }
    static VARIANT MakeShort(short value, VARTYPE type)
    {
        return type == VT_I2 ? Make(VT_I2, &VARIANT::iVal, SHORT{value}) : MakeOther(value, type, VT_BOOL);
    }
    static VARIANT MakeOther(long value, VARTYPE type, VARTYPE other);

    // Takes over what `value` owns.
    COleVariant & Store(VARIANT const & value)
    {
        if (kr::detail::IsPlainTag(vt))
            static_cast<VARIANT &>(*this) = value;
        else
            Replace(value);
        return *this;
    }
    void CopyFrom(VARIANT const & source)
    {
        if (kr::detail::IsPlainTag(vt) && kr::detail::IsPlainTag(source.vt))
            static_cast<VARIANT &>(*this) = source;
        else
            ReplaceByCopy(source);
    }
    static VARIANT CopyOf(VARIANT const & source)
    {
        return kr::detail::IsPlainTag(source.vt) ? source : OwnedCopyOf(source);
    }
    void Replace(VARIANT value);
    void ReplaceByCopy(VARIANT const & source);
    static VARIANT OwnedCopyOf(VARIANT const & source);
};
