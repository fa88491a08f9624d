// Dates made of calendar fields.
#pragma once

#include <krplatform/datetime/coledatetime.h>
#include <krplatform/datetime/ctime.h>

namespace kr::detail
{

/// The date of calendar fields that come back from it unchanged; status invalid for all others, so for day 31 of a shorter month and for years
/// of two digits.
COleDateTime CheckedDate(int year, int month, int day, int hour, int minute, int second) noexcept;

/// The local time of a `CTime`. The `CTime` 0 is the date 0.0; one without local time gives status invalid.
COleDateTime DateOfTime(CTime time) noexcept;

} // namespace kr::detail
