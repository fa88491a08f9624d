// Texts taken from other things than text. Internal to the text classes.
#pragma once

#include <krplatform/system/resource.h>
#include <krplatform/text/cstring.h>

namespace kr::detail
{

/// The variant converted under the default locale; the failure of the conversion is thrown.
CString TextOf(VARIANT const & value);

/// Characters above U+FFFF become surrogate pairs, numbers that are no characters U+FFFD.
CString TextOf(wchar_t const * text);

/// A string resource where it lies; empty if the module has none.
TextView ResourceText(HINSTANCE module, UINT id);

} // namespace kr::detail
