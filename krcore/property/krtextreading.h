// Text read into values, as both generations of properties do it.
#pragma once

#include <krplatform/automation/vartext.h>
#include <krplatform/text/cstring.h>
#include <krplatform/text/numbers.h>

namespace kr::detail
{

/// The number at the beginning of the text; a comma is a point.
inline double ReadDouble(CString text)
{
    text.Replace(OLESTR(','), OLESTR('.'));
    return wcstod(text, nullptr);
}

/// The date of a text in the user's locale; 0.0 for text that is none, empty included.
inline double ReadDate(CString const & text, ULONG flags)
{
    double date = 0.0;
    return SUCCEEDED(VarDateFromStr(text, LOCALE_USER_DEFAULT, flags, &date)) ? date : 0.0;
}

} // namespace kr::detail
