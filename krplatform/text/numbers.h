// Numbers read from and written to text by the rules of the platform's runtime. No locale is looked at.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

#include <cerrno>
#include <cstddef>

/// The number at the beginning of `text`: white space, a sign, digits 0 to 9; reading stops at the first unit that does
/// not fit, and text without digits (null included) gives 0. A number out of range gives the limit of 32 bits.
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

/// Reads values by a scanf format: white space matches any run of it, also none; other text matches itself. Conversions
/// are `d i u o x X`, `f F e E g G a A` (read as by `wcstod`), `s S c C [` and `n`, with `*`, a width, and the sizes of
/// `CString::Format`; `%s`, `%c` and `%[` fill 16-bit text, `%S`, `%C` and the size `h` narrow text of the process code
/// page. All but `%c`, `%[` and `%n` pass over white space first. A number out of range gives the limit of its type
/// (infinity for floating ones).
/// The number of values stored; reading ends where something does not match, or at what is no conversion. -1 where the
/// text ends before anything was read, and for a null text or format.
KRPLATFORM_API int swscanf(WCHAR const * text, WCHAR const * format, ...);
