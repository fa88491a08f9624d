// The code page that goes with the name of a locale.
#pragma once

#include <krplatform/base/types.h>

#include <string_view>

namespace kr::detail
{

/// For a name as the environment has it, `language_TERRITORY.codeset@modifier`: the code page of the codeset, or the
/// ANSI code page of the language where the name has no codeset, or one that is not known. 1252 for an unknown language,
/// "C" and "POSIX" among them.
UINT CodePageOfLocale(std::string_view name);

} // namespace kr::detail
