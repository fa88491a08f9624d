// Facts of dates for tests, made by hand.
#pragma once

#include <krplatform/coerce/locale_facts.h>

namespace kr::test
{

/// English words with other patterns.
inline detail::LocaleFacts FactsWithPatterns(WCHAR const * shortDate, WCHAR const * longTime)
{
    detail::LocaleFacts facts = detail::InvariantFacts();
    facts.date.shortDate = shortDate;
    facts.date.longTime = longTime;
    detail::CompleteDateFacts(facts.date);
    return facts;
}

} // namespace kr::test
