// The forms in which files carry dates, whatever the locale: 2021-03-15, 20:05:09, and both with a blank between.
#pragma once

#include <krplatform/datetime/coledatetime.h>
#include <krplatform/text/cstring.h>

namespace kr::detail
{

// Text of a date whose status is valid: what `COleDateTime::Format` makes of "%Y-%m-%d", "%H:%M:%S" and "%Y-%m-%d %H:%M:%S".
CString InvariantDate(COleDateTime const & date);
CString InvariantTime(COleDateTime const & date);
CString InvariantDateTime(COleDateTime const & date);

/// Reads a text that has one of the forms digit by digit, which `VarDateFromStr` reads alike in every locale. False, with `date` untouched, for
/// all other text, for years before 100 and for what the calendar does not have: these a locale may read in an order of its own.
bool ReadInvariantDate(CString const & text, COleDateTime & date) noexcept;

} // namespace kr::detail
