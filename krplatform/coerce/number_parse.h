// Text to numbers by what a locale says.
#pragma once

#include <krplatform/coerce/locale_facts.h>
#include <krplatform/coerce/parsed_number.h>

namespace kr::detail
{

/// Reads a number; false where the text is none, and `number` then holds nothing of use.
///
/// Blanks of any kind may stand before, between sign and digits, and behind; so may, once each, the currency symbol and
/// parentheses, which negate. There is one sign, before or behind; in front, a plus and a minus may meet. Group marks
/// count nowhere after the first digit but do not lead; a mark that is a blank may be written as any of the blanks that
/// part digits. The decimal mark has digits on one side at least. An exponent follows without a blank: `1e3`, `1E+03`.
/// With the currency symbol the marks of amounts count where the marks of numbers do not fit.
///
/// `&H1F` and `&O17` are bits, and take blanks around but no sign.
bool ParseNumber(TextView text, LocaleFacts const & locale, ParsedNumber & number);

/// Reads such a number as the nearest double. DISP_E_TYPEMISMATCH where the text is none, and the failures of
/// `NumberToReal`; `real` then stays.
HRESULT ParseReal(TextView text, LocaleFacts const & locale, double & real);

} // namespace kr::detail
