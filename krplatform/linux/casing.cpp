#include <krplatform/text/casemap.h>

#include <unicode/uchar.h>

namespace kr::detail
{

namespace
{

/// A counterpart outside the plane is none.
WCHAR UnitOf(UChar32 mapped, WCHAR unit) noexcept { return mapped <= 0xFFFF ? static_cast<WCHAR>(mapped) : unit; }

} // namespace

WCHAR SystemUpperCase(WCHAR unit) noexcept { return UnitOf(u_toupper(unit), unit); }

WCHAR SystemLowerCase(WCHAR unit) noexcept { return UnitOf(u_tolower(unit), unit); }

} // namespace kr::detail
