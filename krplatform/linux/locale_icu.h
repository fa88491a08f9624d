// Locales in ICU: their names, and the facts that the engine needs.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/coerce/locale_facts.h>

#include <string>
#include <string_view>

namespace kr::detail
{

/// ICU's name for the locale of an identifier, `de_DE`; empty for an identifier that names none.
std::string LocaleNameOfIdentifier(LCID locale);

/// ICU's name for a locale as the environment names it, `sr_RS.UTF-8@latin`: the language and territory, and of what
/// follows @ the script alone. `C`, `POSIX` and languages that ICU does not know are English of the United States.
std::string LocaleNameOfEnvironment(std::string_view name);

/// The facts of a locale by ICU's name, in the platform's forms. The calendar is the Gregorian, the digits are ASCII.
LocaleFacts FactsOfLocaleName(std::string const & name);

} // namespace kr::detail
