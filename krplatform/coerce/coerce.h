// Coercion: a variant of one type becomes a variant of another.
#pragma once

#include <krplatform/automation/variant.h>
#include <krplatform/coerce/locale_facts.h>

namespace kr::detail
{

/// Whether the conversion from one tag to another asks what the locale says: numbers with places and dates to text, and
/// text to any number, date or truth value. False also where there is no such conversion.
bool ReadsLocale(VARTYPE source, VARTYPE target);

/// Makes `destination` the value of `source` in the type `target`; the two may be one. `locale` may be null where
/// `ReadsLocale` is false.
///
/// A value of the type asked for is copied. A tag that is no variant type, VT_BYREF included, is DISP_E_BADVARTYPE,
/// whichever side it stands on; a pair of types without a conversion, and text that does not say what is asked for, is
/// DISP_E_TYPEMISMATCH; a number that the type does not have is DISP_E_OVERFLOW; a date outside the calendar has no
/// text, E_INVALIDARG. E_OUTOFMEMORY where a text or an array finds no memory. What keeps `destination`
/// from being cleared (a locked array, a tag that is none) is a failure too. After any failure it is as it was.
HRESULT Coerce(VARIANT & destination, VARIANT const & source, VARTYPE target, LocaleFacts const * locale);

} // namespace kr::detail
