// The clock, local time and pattern formatting of the platform's runtime.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

#include <cstddef>
#include <cstdint>
#include <ctime>

/// Seconds since 1 January 1970 UTC; stored in `*seconds` too unless that is null.
KRPLATFORM_API std::int64_t _time64(std::int64_t * seconds);

// Local time is that of the zone in the variable TZ, or the machine's, with daylight saving as the zone has it at that
// moment. A change of TZ takes effect at the next call. The machine's zone is read once as long as TZ is not set at a call:
// whoever has the C library read another in between puts it back by `tzset`.

/// The fields of a moment in local time, or UTC. 0, or EINVAL with all fields -1 for a null moment and for moments
/// outside the years 1 to 3000 (negative seconds are taken). Null `fields` give EINVAL.
KRPLATFORM_API int _localtime64_s(std::tm * fields, std::int64_t const * seconds);
KRPLATFORM_API int _gmtime64_s(std::tm * fields, std::int64_t const * seconds);

/// The moment of fields in local time, which are brought into their ranges; `tm_isdst` -1 leaves daylight saving to the
/// zone. -1, with the fields untouched, for moments before 1970 UTC or after the year 3000, and for null.
KRPLATFORM_API std::int64_t _mktime64(std::tm * fields);

/// Text of calendar fields by a pattern, in the language a process starts with (English), whatever locale is set for the
/// C library. Returns the number of units written without the terminator; 0, with `buffer` empty, where the text does
/// not fit or the pattern is refused: a conversion that is none of
///
///     a A b B c C d D e F g G h H I j m M n p r R S t T u U V w W x X y Y z Z %
///
/// or that reads a field out of its range (years 0 to 9999), and null arguments. `#` before the letter takes off leading
/// zeros and blanks; `%#c` and `%#x` are long forms ("Monday, March 15, 2021"); elsewhere it has no effect.
KRPLATFORM_API std::size_t wcsftime(WCHAR * buffer, std::size_t size, WCHAR const * pattern, std::tm const * fields);
