// What a locale says about numbers, amounts and dates, as the coercion engine needs it: plain data, filled by the
// system's side or, for the invariant locale, here.
#pragma once

#include <krplatform/base/wchar.h>

#include <array>
#include <string>
#include <vector>

namespace kr::detail
{

using Text = std::basic_string<WCHAR>;

struct NumberFacts
{
    WCHAR decimalMark = OLESTR('.');
    WCHAR groupMark = OLESTR(','); ///< 0: none
};

struct CurrencyFacts
{
    Text symbol;
    WCHAR decimalMark = OLESTR('.');
    WCHAR groupMark = OLESTR(',');
};

enum class DateOrder
{
    monthDayYear,
    dayMonthYear,
    yearMonthDay
};

struct DateFacts
{
    DateOrder order = DateOrder::monthDayYear;
    WCHAR dateMark = OLESTR('/');
    WCHAR timeMark = OLESTR(':');
    Text shortDate; ///< pattern of d dd M MM MMM yyyy and literals, `MM/dd/yyyy`
    Text longTime;  ///< pattern of h hh H HH mm ss tt and literals, `HH:mm:ss`
    Text am;
    Text pm;
    std::array<Text, 12> monthNames;
    std::array<Text, 12> shortMonthNames;
    std::array<Text, 12> monthNamesInDates; ///< the form beside a day number, where the language has one; else empty
    std::array<Text, 7> dayNames;           ///< Sunday first
    std::array<Text, 7> shortDayNames;
};

struct LocaleFacts
{
    NumberFacts number;
    CurrencyFacts currency;
    DateFacts date;
    Text yes; ///< words for VAR_LOCALBOOL
    Text no;
};

/// English words, a point, MM/dd/yyyy and HH:mm:ss.
LocaleFacts const & InvariantFacts();

} // namespace kr::detail
