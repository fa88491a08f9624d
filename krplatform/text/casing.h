// The simple case mapping of Unicode, one code unit to one code unit, in all scripts and without a locale.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

namespace kr::detail
{

/// A unit is mapped only where the way leads back to it. So the micro sign, sharp s, dotless i, long s, final sigma, the
/// title-case digraphs, the Kelvin, Ohm and Angstrom signs and their like stay as they are, as do the halves of
/// surrogate pairs.
KRPLATFORM_API WCHAR UpperCase(WCHAR unit) noexcept;
KRPLATFORM_API WCHAR LowerCase(WCHAR unit) noexcept;

/// White space in the sense of the platform's runtime: blank, tabulator to carriage return, and the spaces of Unicode.
KRPLATFORM_API bool IsSpaceBeyondAscii(WCHAR unit) noexcept;
inline bool IsSpace(WCHAR unit) noexcept
{
    return unit < 0x80 ? unit == ' ' || (unit >= '\t' && unit <= '\r') : IsSpaceBeyondAscii(unit);
}

} // namespace kr::detail
