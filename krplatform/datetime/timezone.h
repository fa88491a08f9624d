// The zone of local time, as the system knows it.
#pragma once

#include <ctime>

namespace kr::detail
{

/// The offset from UTC, in minutes, that the system takes for these local fields and their `tm_isdst`. 0 where it has
/// none.
int ZoneOffset(std::tm const & fields) noexcept;

/// The zone's short name, of its daylight saving time for a `tm_isdst` above 0: "CET", "CEST".
char const * ZoneName(std::tm const & fields) noexcept;

} // namespace kr::detail
