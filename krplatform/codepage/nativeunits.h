// How much of a text a code page has, for whoever writes the rest in another way.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

#include <cstddef>

namespace kr::detail
{

/// The number of units, not more than `most`, up to the zero or the first unit that has no exact form of one or two bytes in the code page.
/// `WideCharToMultiByte` tells the same unit by unit, with WC_NO_BEST_FIT_CHARS and the room of two bytes. In a code page that is unknown, or for
/// whose table there is no memory, ASCII alone has one.
KRPLATFORM_API std::size_t CountNativeUnits(UINT codePage, WCHAR const * text, std::size_t most);

} // namespace kr::detail
