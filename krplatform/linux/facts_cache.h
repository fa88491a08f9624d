// The facts of locales that were asked for, kept for the life of the process.
#pragma once

#include <krplatform/coerce/locale_lookup.h>

#include <string>

namespace kr::detail
{

/// The user's locales by ICU's names, one for each category that has facts.
struct LocaleNames
{
    std::string numbers;
    std::string dates;
    std::string amounts;
};

/// The facts of a locale by ICU's name; read on first use. Throws std::bad_alloc.
LocaleFacts const & CachedFacts(std::string const & name);

/// The facts of several locales put together. Throws std::bad_alloc.
LocaleFacts const & CachedFacts(LocaleNames const & names);

/// The facts of the user's locale, as the environment names it at this moment. Throws std::bad_alloc.
LocaleFacts const & UserFacts();

} // namespace kr::detail
