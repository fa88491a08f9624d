// What the system tells the engine: the facts of a locale by its identifier, the names of the user's locale, the year.
#pragma once

#include <krplatform/base/hresult.h>
#include <krplatform/coerce/locale_facts.h>
#include <krplatform/export.h>

namespace kr::detail
{

/// Which of the user's settings is asked for; each has a variable of its own in the environment.
enum class LocaleCategory
{
    characters, ///< LC_CTYPE
    numbers,    ///< LC_NUMERIC
    dates,      ///< LC_TIME
    amounts     ///< LC_MONETARY
};

/// The facts of a locale: 127 is the invariant one; 1024, 0 and 2048 are the user's. Null for an identifier that names no
/// locale, and when memory runs out. The facts live as long as the process; which are the user's is read from the
/// environment at each call, so that a change of it takes effect. Any thread may call.
KRPLATFORM_API LocaleFacts const * FactsOfLocale(LCID locale) noexcept;

/// The same with the reason of a failure: E_INVALIDARG for an unknown identifier, E_OUTOFMEMORY.
KRPLATFORM_API HRESULT FindFactsOfLocale(LCID locale, LocaleFacts const *& facts) noexcept;

/// The raw name of the user's locale in that category as the environment has it, `de_DE.UTF-8@euro`: the first of
/// LC_ALL, the category's own variable and LANG that is set and not empty; "C" where none is. It stands until the
/// environment is changed.
KRPLATFORM_API char const * UserLocaleName(LocaleCategory category) noexcept;

/// The running year in local time.
KRPLATFORM_API int RunningYear() noexcept;

} // namespace kr::detail
