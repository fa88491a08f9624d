#include <krplatform/automation/variant.h>

#include <krplatform/coerce/coerce.h>
#include <krplatform/coerce/locale_lookup.h>

HRESULT VariantChangeType(VARIANT * destination, VARIANT const * source, USHORT flags, VARTYPE target)
{
    return VariantChangeTypeEx(destination, source, LOCALE_USER_DEFAULT, flags, target);
}

HRESULT VariantChangeTypeEx(VARIANT * destination, VARIANT const * source, LCID locale, USHORT flags, VARTYPE target)
{
    if (!destination || !source || flags != 0)
        return E_INVALIDARG;
    kr::detail::LocaleFacts const * facts = nullptr;
    if (kr::detail::ReadsLocale(source->vt, target))
    {
        HRESULT const result = kr::detail::FindFactsOfLocale(locale, facts);
        if (FAILED(result))
            return result;
    }
    return kr::detail::Coerce(*destination, *source, target, facts);
}
