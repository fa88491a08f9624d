// The clock, local time and pattern formatting of the platform's runtime.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

#include <cstdint>
#include <ctime>

/// Seconds since 1 January 1970 UTC; stored in `*seconds` too unless that is null.
KRPLATFORM_API std::int64_t _time64(std::int64_t * seconds);

/// The fields of a moment in local time, or UTC. 0, or EINVAL with all fields -1 for a null argument and for moments
/// outside the years 1 to 3000 (negative seconds are taken).
KRPLATFORM_API int _localtime64_s(std::tm * fields, std::int64_t const * seconds);
KRPLATFORM_API int _gmtime64_s(std::tm * fields, std::int64_t const * seconds);

/// The moment of fields in local time, which are brought into their ranges. -1 for moments before 1970 or after the
/// year 3000, and for null.
KRPLATFORM_API std::int64_t _mktime64(std::tm * fields);

/// Text of calendar fields by a pattern, in the language a process starts with (English). Returns the number of units
/// written without the terminator; 0, with `buffer` empty, where the text does not fit or the pattern is refused.
KRPLATFORM_API std::size_t wcsftime(WCHAR * buffer, std::size_t size, WCHAR const * pattern, std::tm const * fields);
