// The calendar of automation dates: days since 30 December 1899 in the Gregorian calendar, the time of day as fraction.
#pragma once

namespace kr::detail
{

/// The days of 1 January 100 and 31 December 9999, the first and last that a date may have.
constexpr int firstDay = -657434;
constexpr int lastDay = 2958465;

constexpr int secondsPerDay = 86400;

struct CalendarFields
{
    int year;
    int month; ///< 1 to 12
    int day;
    int hour;
    int minute;
    int second;
    int dayOfWeek; ///< Sunday is 0
    int dayOfYear; ///< 1 January is 1
};

bool IsLeapYear(int year) noexcept;

/// The length of a month from 1 to 12.
int DaysInMonth(int year, int month) noexcept;

/// The number of a day. A `day` outside the month counts on from it.
int DayNumber(int year, int month, int day) noexcept;

/// Two digits are a year from 1950 to 2049; other years stay.
constexpr int FullYear(int year) noexcept { return year < 0 || year > 99 ? year : year + (year < 50 ? 2000 : 1900); }

/// The date of a day and a time of day. The parts are added one after the other, from the hour on: the last digit of the
/// platform's dates depends on it.
double DateOf(int dayNumber, int hour, int minute, int second) noexcept;

/// The fields of a date, rounded to the nearest second. Half a second counts up, also where the date holds it up to a
/// microsecond short, as half of all dates do. False, with `fields` untouched, for dates outside the range.
///
/// Deliberate: a time of day that rounds up to midnight takes year, month and day on, while day of the week and day of
/// the year stay those of the day before.
bool FieldsOfDate(double date, CalendarFields & fields) noexcept;

/// The date of year to second; the other fields are not looked at. Two digits are a full year. Day 0 is the last of the
/// month before, and days up to 31 of a shorter month roll on. False, with `date` untouched, for anything else out of
/// range.
///
/// Deliberate: 31 November rolls on to 1 January.
bool DateOfFields(CalendarFields const & fields, double & date) noexcept;

/// A date as a number that grows evenly with time, and back: below 0 the fraction of a date counts against its sign
/// (-1.25 is a quarter of a day after -1). Values within half a second of 0, and above, stay as they are.
double LinearOfDate(double date) noexcept;
double DateOfLinear(double linear) noexcept;

} // namespace kr::detail
