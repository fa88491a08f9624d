#include <krplatform/coerce/converter.h>
#include <krplatform/coerce/date_text.h>
#include <krplatform/coerce/number_text.h>
#include <krplatform/coerce/source.h>
#include <krplatform/text/bstr.h>

#include <concepts>

namespace kr::detail
{

namespace
{

HRESULT StoreText(TextView text, BSTR & stored)
{
    stored = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return stored ? S_OK : E_OUTOFMEMORY;
}

struct BstrTarget
{
    LocaleFacts const * locale;
    BSTR & text;

    HRESULT operator()(Nothing) const { return StoreText(OLESTR(""), text); }

    /// Deliberate: truth values are numbers here, in every locale; the words are left to who asks for them.
    HRESULT operator()(Truth source) const { return operator()(source.number); }

    HRESULT operator()(std::signed_integral auto source) const
    {
        return StoreText(IntegerText(static_cast<LONGLONG>(source)).View(), text);
    }

    HRESULT operator()(std::unsigned_integral auto source) const
    {
        return StoreText(IntegerText(static_cast<ULONGLONG>(source)).View(), text);
    }

    HRESULT operator()(std::floating_point auto source) const
    {
        return StoreText(RealText(source, locale->number.decimalMark).View(), text);
    }

    HRESULT operator()(Amount source) const
    {
        return StoreText(AmountText(source.tenThousandths, locale->number.decimalMark).View(), text);
    }

    HRESULT operator()(Moment source) const
    {
        DateText written;
        return WriteDate(source.days, 0, locale->date, written) ? StoreText(written.View(), text) : E_INVALIDARG;
    }

    HRESULT operator()(TextView source) const { return StoreText(source, text); }
};

/// The bytes of a vector as they stand, without an end mark of their own.
HRESULT StoreBytes(SAFEARRAY const * array, BSTR & text)
{
    if (!array || array->cDims != 1)
        return DISP_E_TYPEMISMATCH;
    text = SysAllocStringByteLen(static_cast<char const *>(array->pvData), array->rgsabound[0].cElements);
    return text ? S_OK : E_OUTOFMEMORY;
}

} // namespace

HRESULT ToBstr(VARIANT const & source, LocaleFacts const * locale, VARIANT & result)
{
    if (source.vt == (VT_ARRAY | VT_UI1))
        return StoreBytes(source.parray, result.bstrVal);
    return ReadSource(source, BstrTarget{locale, result.bstrVal});
}

} // namespace kr::detail
