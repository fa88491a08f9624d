// Text to dates by what a locale says.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/coerce/locale_facts.h>

namespace kr::detail
{

/// Reads a date, a time, or both, one behind the other. With `dateTextTimeOnly` the result keeps its time of day alone, with
/// `dateTextDateOnly` its day alone. A date without a year stands in the running year. False, with `date` untouched,
/// for text that is no date.
bool TextToDate(TextView text, unsigned flags, LocaleFacts const & facts, double & date);

} // namespace kr::detail
