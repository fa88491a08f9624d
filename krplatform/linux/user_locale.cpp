// The user's locale, as the environment names it.

#include "krplatform/linux/environment_snapshot.h"
#include "krplatform/linux/facts_cache.h"
#include "krplatform/linux/locale_icu.h"
#include "krplatform/linux/short_name.h"

#include <unistd.h>

#include <new>
#include <string_view>

namespace kr::detail
{

namespace
{

/// What the environment says of locales, read in one pass. Variables that are not set are null; an empty one counts as that, but may be
/// written over later.
struct LocaleVariables
{
    char const * all = nullptr;
    char const * characters = nullptr;
    char const * numbers = nullptr;
    char const * dates = nullptr;
    char const * amounts = nullptr;
    char const * language = nullptr;

    static bool IsSet(char const * value) noexcept { return value && *value; }

    char const * Resolve(char const * category) const noexcept
    {
        if (IsSet(all))
            return all;
        if (IsSet(category))
            return category;
        return IsSet(language) ? language : "C";
    }
};

struct Variable
{
    std::string_view name;
    char const * LocaleVariables::*value;
};

// clang-format off
constexpr Variable s_variables[] = {
    { "LC_ALL=",      &LocaleVariables::all        },
    { "LC_CTYPE=",    &LocaleVariables::characters },
    { "LC_NUMERIC=",  &LocaleVariables::numbers    },
    { "LC_TIME=",     &LocaleVariables::dates      },
    { "LC_MONETARY=", &LocaleVariables::amounts    },
    { "LANG=",        &LocaleVariables::language   },
};
// clang-format on

/// Whether a text that a zero ends begins so. Variables differ within a few bytes, so a loop beats a call.
bool StartsWith(char const * text, std::string_view beginning) noexcept
{
    for (char const byte : beginning)
    {
        if (*text++ != byte)
            return false;
    }
    return true;
}

void TakeVariable(char const * entry, LocaleVariables & variables) noexcept
{
    for (Variable const & variable : s_variables)
    {
        if (!StartsWith(entry, variable.name))
            continue;
        char const * const value = entry + variable.name.size();
        if (char const *& held = variables.*variable.value; !held || !*held)
            held = value;
        return;
    }
}

LocaleVariables ReadVariables() noexcept
{
    LocaleVariables variables;
    for (char ** entry = environ; entry && *entry; ++entry)
    {
        if (**entry == 'L')
            TakeVariable(*entry, variables);
    }
    return variables;
}

/// The facts that a thread was given last, and for which names.
struct LastAnswer
{
    ShortName numbers;
    ShortName dates;
    ShortName amounts;
    bool isOneVariable = false; ///< one variable gave all three
    LocaleFacts const * facts = nullptr;

    bool IsFor(char const * numberName, char const * dateName, char const * amountName) const noexcept
    {
        if (numberName == dateName && dateName == amountName)
            return isOneVariable && numbers == numberName;
        return numbers == numberName && dates == dateName && amounts == amountName;
    }

    [[gnu::noinline]] void Find(char const * numberName, char const * dateName, char const * amountName)
    {
        LocaleFacts const & found =
            CachedFacts(LocaleNames{LocaleNameOfEnvironment(numberName), LocaleNameOfEnvironment(dateName),
                                    LocaleNameOfEnvironment(amountName)});
        numbers.Take(numberName);
        dates.Take(dateName);
        amounts.Take(amountName);
        isOneVariable = numberName == dateName && dateName == amountName;
        facts = &found;
    }
};

struct KnownLocale
{
    EnvironmentSnapshot environment;
    LocaleVariables variables;
    LastAnswer last;
};

constinit thread_local KnownLocale s_known;

/// What the thread knows, with the variables of this moment; it is asked for at each conversion.
KnownLocale & CurrentLocale() noexcept
{
    KnownLocale & known = *std::launder(&s_known); // the address, which costs a call, is asked for once
    if (!known.environment.IsCurrent())
    {
        known.environment.Take();
        known.variables = ReadVariables();
    }
    return known;
}

} // namespace

char const * UserLocaleName(LocaleCategory category) noexcept
{
    LocaleVariables const & variables = CurrentLocale().variables;
    switch (category)
    {
    case LocaleCategory::numbers:
        return variables.Resolve(variables.numbers);
    case LocaleCategory::dates:
        return variables.Resolve(variables.dates);
    case LocaleCategory::amounts:
        return variables.Resolve(variables.amounts);
    default:
        return variables.Resolve(variables.characters);
    }
}

LocaleFacts const & UserFacts()
{
    KnownLocale & known = CurrentLocale();
    LocaleVariables const & variables = known.variables;
    char const * const numbers = variables.Resolve(variables.numbers);
    char const * const dates = variables.Resolve(variables.dates);
    char const * const amounts = variables.Resolve(variables.amounts);
    if (!known.last.IsFor(numbers, dates, amounts))
        known.last.Find(numbers, dates, amounts);
    return *known.last.facts;
}

} // namespace kr::detail
