// Text in tests: printing and making of 16-bit text.
#pragma once

#include <krplatform/base/types.h>

#include <string>
#include <string_view>

namespace kr::test
{

/// ASCII as it stands, everything else as \uXXXX; "\null" for a null pointer.
std::string Narrow(std::basic_string_view<WCHAR> text);
std::string Narrow(WCHAR const * text);

/// Each byte as one unit.
std::basic_string<WCHAR> Widen(std::string_view text);

} // namespace kr::test
