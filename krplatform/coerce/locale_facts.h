// What a locale says about numbers, amounts and dates, as the coercion engine needs it: plain data, filled by the
// system's side or, for the invariant locale, here.
#pragma once

#include <krplatform/coerce/date_pattern.h>

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

/// A word that date text may hold, and what it stands for.
struct DateWord
{
    enum class Kind
    {
        month,     ///< `value` 1 to 12
        halfOfDay, ///< `value` 0 before noon, 1 after
        filler     ///< a literal of the locale's own patterns, which says nothing
    };

    Text folded; ///< in lower case
    Kind kind;
    int value;
};

using MonthNames = std::array<Text, 12>;

/// What stands first is told by the locale; the rest follows from it by `CompleteDateFacts`.
struct DateFacts
{
    Text shortDate; ///< pattern of d dd M MM MMM MMMM yyyy and literals, `MM/dd/yyyy`
    Text longTime;  ///< pattern of h hh H HH m mm s ss tt and literals, `HH:mm:ss`
    Text am;
    Text pm;
    MonthNames monthNames;
    MonthNames shortMonthNames;
    MonthNames monthNamesInDates; ///< the form beside a day number, where the language has one; else empty
    MonthNames shortMonthNamesInDates;

    std::vector<PatternPiece> datePieces; ///< of `shortDate`
    std::vector<PatternPiece> timePieces; ///< of `longTime`
    DateOrder order = DateOrder::monthDayYear;
    WCHAR dateMark = OLESTR('/');
    WCHAR timeMark = OLESTR(':');
    bool markEndsDate = false;   ///< the date mark also stands behind the last number, `yyyy. MM. dd.`
    bool halfBeforeTime = false; ///< the mark of the half of the day leads, `tt h:mm:ss`
    std::vector<DateWord> words; ///< longest first
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

/// Fills what follows from the patterns and names.
void CompleteDateFacts(DateFacts & facts);

} // namespace kr::detail
