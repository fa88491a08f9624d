#include <krplatform/automation/vartext.h>

#include <krplatform/coerce/amount_parse.h>
#include <krplatform/coerce/locale_lookup.h>
#include <krplatform/coerce/number_parse.h>
#include <krplatform/coerce/number_text.h>
#include <krplatform/coerce/truth_parse.h>
#include <krplatform/text/bstr.h>

using kr::detail::LocaleFacts;
using kr::detail::TextView;

namespace
{

HRESULT HandOut(TextView text, BSTR & copy)
{
    BSTR const made = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!made)
        return E_OUTOFMEMORY;
    copy = made;
    return S_OK;
}

/// Checks the arguments that the functions have in common, and hands the facts of the locale to `operation`.
template <class Operation>
HRESULT WithLocale(void const * result, LCID locale, ULONG flags, ULONG allowedFlags, Operation const & operation)
{
    if (!result || (flags & ~allowedFlags) != 0)
        return E_INVALIDARG;
    LocaleFacts const * facts = nullptr;
    HRESULT const found = kr::detail::FindFactsOfLocale(locale, facts);
    return SUCCEEDED(found) ? operation(*facts) : found;
}

} // namespace

HRESULT VarBstrFromR8(double value, LCID locale, ULONG flags, BSTR * text)
{
    return WithLocale(text, locale, flags, 0,
                      [&](LocaleFacts const & facts)
                      { return HandOut(kr::detail::RealText(value, facts.number.decimalMark).View(), *text); });
}

HRESULT VarBstrFromR4(float value, LCID locale, ULONG flags, BSTR * text)
{
    return WithLocale(text, locale, flags, 0,
                      [&](LocaleFacts const & facts)
                      { return HandOut(kr::detail::RealText(value, facts.number.decimalMark).View(), *text); });
}

HRESULT VarR8FromStr(OLECHAR const * text, LCID locale, ULONG flags, double * value)
{
    return WithLocale(value, locale, flags, 0,
                      [&](LocaleFacts const & facts)
                      { return text ? kr::detail::ParseReal(text, facts, *value) : DISP_E_TYPEMISMATCH; });
}

HRESULT VarBstrFromCy(CY value, LCID locale, ULONG flags, BSTR * text)
{
    return WithLocale(text, locale, flags, 0,
                      [&](LocaleFacts const & facts)
                      { return HandOut(kr::detail::AmountText(value.int64, facts.number.decimalMark).View(), *text); });
}

HRESULT VarCyFromStr(OLECHAR const * text, LCID locale, ULONG flags, CY * value)
{
    return WithLocale(value, locale, flags, 0,
                      [&](LocaleFacts const & facts)
                      { return text ? kr::detail::ParseAmount(text, facts, value->int64) : DISP_E_TYPEMISMATCH; });
}

HRESULT VarBstrFromBool(VARIANT_BOOL value, LCID locale, ULONG flags, BSTR * text)
{
    return WithLocale(text, locale, flags, VAR_LOCALBOOL,
                      [&](LocaleFacts const & facts)
                      {
                          if ((flags & VAR_LOCALBOOL) != 0)
                              return HandOut(value ? facts.yes : facts.no, *text);
                          return HandOut(value ? OLESTR("True") : OLESTR("False"), *text);
                      });
}

HRESULT VarBoolFromStr(OLECHAR const * text, LCID locale, ULONG flags, VARIANT_BOOL * value)
{
    return WithLocale(value, locale, flags, VAR_LOCALBOOL,
                      [&](LocaleFacts const & facts)
                      {
                          bool const acceptLocalWords = (flags & VAR_LOCALBOOL) != 0;
                          return text ? kr::detail::ParseTruth(text, facts, acceptLocalWords, *value)
                                      : DISP_E_TYPEMISMATCH;
                      });
}
