// The facts of a locale by its identifier, and the names of the user's locale: what the system's side tells the engine.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/coerce/locale_facts.h>

#include <string>

namespace kr::detail
{

/// Which of the user's settings is asked for; each has a variable of the environment of its own.
enum class LocaleCategory
{
    characters, ///< LC_CTYPE
    numbers,    ///< LC_NUMERIC
    dates,      ///< LC_TIME
    amounts     ///< LC_MONETARY
};

/// The facts of a locale: 127 is the invariant one, 1024 and 0 are the user's. Null for an identifier that names no
/// locale, and for want of memory. The facts live as long as the process; the user's are read from the environment at
/// each call, so that a change of it takes effect. Any thread may call.
LocaleFacts const * FactsOfLocale(LCID locale);

/// The raw name of the user's locale in that category as the environment has it, `de_DE.UTF-8@euro`: the first of
/// LC_ALL, the category's own variable and LANG that is set and not empty; "C" where none is.
std::string UserLocaleName(LocaleCategory category);

} // namespace kr::detail
