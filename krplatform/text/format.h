// The formatter behind `CString::Format`. Internal to the text classes.
#pragma once

#include <krplatform/text/formatoutput.h>
#include <krplatform/text/formatsource.h>

namespace kr::detail
{

/// Appends the formatted text. What is no format, or an argument that does not fit, raises E_INVALIDARG.
void FormatText(FormatOutput<WCHAR> & output, WCHAR const * format, ArgumentSource & arguments);
void FormatText(FormatOutput<char> & output, char const * format, ArgumentSource & arguments);

} // namespace kr::detail
