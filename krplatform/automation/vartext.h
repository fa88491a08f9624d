// Text of automation values, and values of text. Locales are numbers: 127 is invariant, 1024 and 0 the user's.
#pragma once

#include <krplatform/base/hresult.h>
#include <krplatform/export.h>

// Flags of the date functions; other flags are refused with E_INVALIDARG.
constexpr ULONG VAR_TIMEVALUEONLY = 1;
constexpr ULONG VAR_DATEVALUEONLY = 2;
/// The locale's own words for true and false.
constexpr ULONG VAR_LOCALBOOL = 16;

// Every function below writes its result on success only. A text handed out is a new one, owned by the caller; null
// `text` read is a type mismatch. E_INVALIDARG for an unknown locale, for flags that are not told of, and for no place
// for the result.

/// Up to 15 significant digits, rounded from the exact value with ties away from zero, without trailing zeros. Plain
/// while 15 places before and 15 behind the point are enough, otherwise `d.dddE+nn`. Deliberate: 1/30
/// is 3.33333333333333E-02. Either zero is "0"; "inf", "-inf" and "nan" are no numbers when read.
KRPLATFORM_API HRESULT VarBstrFromR8(double value, LCID locale, ULONG flags, BSTR * text);
/// The same with 7 digits.
KRPLATFORM_API HRESULT VarBstrFromR4(float value, LCID locale, ULONG flags, BSTR * text);
/// The nearest double. Blanks around, one sign before or behind, parentheses for a minus, the currency symbol, group
/// marks anywhere behind the first digit, an exponent, `&H1F` and `&O17`. DISP_E_TYPEMISMATCH for other text,
/// DISP_E_OVERFLOW for numbers past the range.
KRPLATFORM_API HRESULT VarR8FromStr(OLECHAR const * text, LCID locale, ULONG flags, double * value);
/// As many of the four places as needed, no grouping, no symbol.
KRPLATFORM_API HRESULT VarBstrFromCy(CY value, LCID locale, ULONG flags, BSTR * text);
/// Reads the same numbers exactly, and rounds the fourth place half to even.
KRPLATFORM_API HRESULT VarCyFromStr(OLECHAR const * text, LCID locale, ULONG flags, CY * value);
/// "True" or "False"; with VAR_LOCALBOOL the locale's words.
KRPLATFORM_API HRESULT VarBstrFromBool(VARIANT_BOOL value, LCID locale, ULONG flags, BSTR * text);
/// English words in any case, "#TRUE#" and "#FALSE#", and any number of the locale; with VAR_LOCALBOOL the locale's
/// words too.
KRPLATFORM_API HRESULT VarBoolFromStr(OLECHAR const * text, LCID locale, ULONG flags, VARIANT_BOOL * value);

/// The locale's short date and long time. The time is left out for a whole day, the date for a value whose integer part
/// is 0. Seconds are rounded to the nearest. Deliberate: a whole day asked for its time, and a time of day asked for its
/// date, give empty text; the years 100 to 999 have three digits. E_INVALIDARG outside 1 January 100 to 31 December
/// 9999.
KRPLATFORM_API HRESULT VarBstrFromDate(DATE date, LCID locale, ULONG flags, BSTR * text);
/// Reads a date, a time or both, one behind the other. Three numbers are tried in the order of the locale first, then as year-month-day,
/// month-day-year, day-month-year and year-day-month; two are a day of the running year, or else a month. Months may be
/// named, fully or in short; AM and PM, or A and P, are understood in every locale. DISP_E_TYPEMISMATCH for anything
/// else, fractions of a second and days of the week among it. With VAR_TIMEVALUEONLY the day is 30 December 1899, with
/// VAR_DATEVALUEONLY the time midnight.
///
///     VarDateFromStr(OLESTR("3/15/2021 8:05 PM"), 1033, 0, &date)    -> 15 March 2021, 20:05
///     VarDateFromStr(OLESTR("15. M\u00E4rz 2021"), 1031, 0, &date)   -> 15 March 2021
///     VarDateFromStr(OLESTR("8.05"), ...)    -> 1033: five past eight; 1031: the eighth of May
KRPLATFORM_API HRESULT VarDateFromStr(OLECHAR const * text, LCID locale, ULONG flags, DATE * date);

/// Calendar fields of a moment; Sunday is day of the week 0.
struct SYSTEMTIME
{
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
};

/// The same with the day of the year, 1 on 1 January.
struct UDATE
{
    SYSTEMTIME st;
    USHORT wDayOfYear;
};

/// The fields of a date, rounded to the second; the flags play no part. E_INVALIDARG outside 1 January 100 to 31 December
/// 9999. Deliberate: a time of day that rounds up to midnight leaves day of the week and day of the year at the day
/// before.
KRPLATFORM_API HRESULT VarUdateFromDate(DATE date, ULONG flags, UDATE * fields);
/// The same; 1 for success, 0 for failure.
KRPLATFORM_API int VariantTimeToSystemTime(DATE date, SYSTEMTIME * fields);
/// The date of calendar fields, whose day of the week and milliseconds play no part. Two-digit years are 1950 to 2049;
/// day 0 and days up to 31 of a shorter month roll over. Deliberate: 31 November rolls over to 1 January. 1 for success,
/// 0 for other fields out of range.
KRPLATFORM_API int SystemTimeToVariantTime(SYSTEMTIME const * fields, DATE * date);
