// Automation dates of moments.
#pragma once

#include <krplatform/datetime/coledatetime.h>
#include <krplatform/datetime/ctime.h>

namespace kr::detail
{

/// The local time of a `CTime`; status invalid where the calendar has none, as outside the years 100 to 3000. Deliberate: the `CTime` 0 is the
/// date 0.0 and not 1 January 1970.
COleDateTime DateOfTime(CTime const & time) noexcept;

} // namespace kr::detail
