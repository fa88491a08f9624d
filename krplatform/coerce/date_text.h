// Dates to text by what a locale says.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/coerce/locale_facts.h>

namespace kr::detail
{

/// Flags of the text functions for dates.
constexpr unsigned dateTextTimeOnly = 1;
constexpr unsigned dateTextDateOnly = 2;

/// Writes short date and long time, parted by a blank. A whole day has no time, and a date whose integer part is 0 no
/// date, also where the flags ask for just that part: the text is empty then. Seconds are rounded to the nearest. False,
/// with `text` untouched, for dates outside 1 January 100 to 31 December 9999.
bool DateToText(double date, unsigned flags, DateFacts const & facts, Text & text);

} // namespace kr::detail
