// The variant that clears itself.
#pragma once

#include <krplatform/automation/variant.h>
#include <krplatform/text/cstring.h>

class COleCurrency;
class COleDateTime;

/// A `VARIANT` with ownership: copies are deep, the destructor clears the value. Failures are thrown as `COleException
/// *`.
///
///     COleVariant value(OLESTR("2.5"));
///     value.ChangeType(VT_R8);               -> value.dblVal is 2.5 under a locale with a decimal point
///     COleVariant(long(5)) == COleVariant(5.0)   -> false: the tags differ
class KRPLATFORM_API COleVariant : public VARIANT
{
public:
    COleVariant() noexcept;
    COleVariant(VARIANT const & source);
    COleVariant(VARIANT const * source);
    COleVariant(COleVariant const & source);
    COleVariant(COleVariant && source) noexcept;
    /// VT_BSTR; a null pointer gives a null text.
    COleVariant(WCHAR const * text);
    COleVariant(CString const & text);
    /// A long of more than 32 bits keeps its low 32. `type` is VT_I4, VT_ERROR or VT_BOOL; others raise E_INVALIDARG.
    COleVariant(long value, VARTYPE type = VT_I4);
    /// `type` is VT_I2 or VT_BOOL; others raise E_INVALIDARG.
    COleVariant(short value, VARTYPE type = VT_I2);
    COleVariant(BYTE value) noexcept;
    COleVariant(float value) noexcept;
    COleVariant(double value) noexcept;
    COleVariant(COleCurrency const & value) noexcept;
    /// The date as it stands; the status is not looked at.
    COleVariant(COleDateTime const & value) noexcept;
    ~COleVariant();

    COleVariant & operator=(VARIANT const & source);
    COleVariant & operator=(COleVariant const & source);
    COleVariant & operator=(COleVariant && source) noexcept;
    COleVariant & operator=(WCHAR const * text);
    COleVariant & operator=(CString const & text);
    COleVariant & operator=(long value);
    COleVariant & operator=(short value);
    COleVariant & operator=(BYTE value);
    COleVariant & operator=(float value);
    COleVariant & operator=(double value);
    COleVariant & operator=(COleCurrency const & value);
    COleVariant & operator=(COleDateTime const & value);

    void Clear();
    /// Converts this value, or a copy of `source`, with the default locale. After a failure the value stays as it was.
    void ChangeType(VARTYPE type, VARIANT * source = nullptr);
    /// Frees the old value and takes over the argument's, which is left VT_EMPTY.
    void Attach(VARIANT & source);
    /// Hands the value out and is left VT_EMPTY.
    VARIANT Detach();

    operator VARIANT *() noexcept { return this; }
    operator VARIANT const *() const noexcept { return this; }
};
