// What some locales say about numbers, by hand.
#pragma once

#include <krplatform/coerce/locale_facts.h>

namespace kr::test
{

inline detail::LocaleFacts MakeLocale(WCHAR decimalMark, WCHAR groupMark, detail::Text const & symbol)
{
    detail::LocaleFacts facts = detail::InvariantFacts();
    facts.number.decimalMark = facts.currency.decimalMark = decimalMark;
    facts.number.groupMark = facts.currency.groupMark = groupMark;
    facts.currency.symbol = symbol;
    return facts;
}

inline detail::LocaleFacts const english = MakeLocale(OLESTR('.'), OLESTR(','), OLESTR("$"));
inline detail::LocaleFacts const german = MakeLocale(OLESTR(','), OLESTR('.'), OLESTR("\u20AC"));
inline detail::LocaleFacts const french = MakeLocale(OLESTR(','), OLESTR('\u00A0'), OLESTR("\u20AC"));

/// Amounts have marks of their own here: 1'234.50 Fr. beside 1 234,5.
inline detail::LocaleFacts const swissFrench = []
{
    detail::LocaleFacts facts = MakeLocale(OLESTR(','), OLESTR('\u00A0'), OLESTR("Fr."));
    facts.currency.decimalMark = OLESTR('.');
    facts.currency.groupMark = OLESTR('\'');
    return facts;
}();

} // namespace kr::test
