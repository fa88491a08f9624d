// Numbers read from and written to text by the rules of the platform's runtime. No locale is looked at.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

#include <cerrno>
#include <cstddef>

/// The number at the beginning of `text`: white space, a sign, digits; reading stops at the first unit that does not
/// fit, and text without digits (null included) gives 0. A number out of range gives the limit of 32 bits.
KRPLATFORM_API int _wtoi(WCHAR const * text);
KRPLATFORM_API long _wtol(WCHAR const * text);

/// The decimal floating point number at the beginning of `text`, after white space; `*end` receives where reading
/// stopped, or `text` itself where there is no number. Too large gives +-HUGE_VAL. Words ("inf", "nan") and hexadecimal
/// forms are no numbers here. The decimal mark is always a point.
KRPLATFORM_API double wcstod(WCHAR const * text, WCHAR ** end);

/// Writes `value` in the given base (2 to 36, lower-case digits; a sign in base 10 only). EINVAL for a bad base or a
/// null or empty buffer, ERANGE with empty text where the number does not fit; otherwise 0. `_ltow_s` writes the low 32
/// bits.
KRPLATFORM_API int _itow_s(int value, WCHAR * buffer, std::size_t size, int base);
KRPLATFORM_API int _ltow_s(long value, WCHAR * buffer, std::size_t size, int base);

/// Reads values by a scanf format: white space matches any run of it, conversions `d i u o x X f e g a s S c C [ n`
/// with `*`, widths and the sizes of `CString::Format`; `%s` and `%c` fill 16-bit text. The number of values stored, or
/// -1 where the text ends before the first one. A number out of range gives the limit of its type.
KRPLATFORM_API int swscanf(WCHAR const * text, WCHAR const * format, ...);
