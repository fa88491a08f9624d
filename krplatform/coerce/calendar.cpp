#include <krplatform/coerce/calendar.h>

#include <cmath>

namespace kr::detail
{

namespace
{

// Inside, days are counted from 1 March of the year 0, so that the leap day is the last of its year and of its cycle.
constexpr int daysPerFourCenturies = 146097;
constexpr int epochFromMarch = 693899; // 30 December 1899
constexpr double microsecond = 1e-6;
constexpr double halfSecondInDays = 5.787037037037037e-6;

/// Days from 1 March to the first of a month, March being 0.
constexpr int DaysBeforeMonth(int monthFromMarch) { return (153 * monthFromMarch + 2) / 5; }

void SetCivilDay(int dayNumber, CalendarFields & fields)
{
    int const days = dayNumber + epochFromMarch;
    int const cycle = days / daysPerFourCenturies;
    int const dayOfCycle = days % daysPerFourCenturies;
    int const yearOfCycle = (dayOfCycle - dayOfCycle / 1460 + dayOfCycle / 36524 - dayOfCycle / 146096) / 365;
    int const dayFromMarch = dayOfCycle - (365 * yearOfCycle + yearOfCycle / 4 - yearOfCycle / 100);
    int const monthFromMarch = (5 * dayFromMarch + 2) / 153;
    fields.day = dayFromMarch - DaysBeforeMonth(monthFromMarch) + 1;
    fields.month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    fields.year = cycle * 400 + yearOfCycle + (fields.month <= 2 ? 1 : 0);
}

} // namespace

bool IsLeapYear(int year) noexcept { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int DaysInMonth(int year, int month) noexcept
{
    if (month == 2)
        return IsLeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

int DayNumber(int year, int month, int day) noexcept
{
    int const yearFromMarch = month <= 2 ? year - 1 : year;
    int const monthFromMarch = month <= 2 ? month + 9 : month - 3;
    int const leapDays = yearFromMarch / 4 - yearFromMarch / 100 + yearFromMarch / 400;
    return yearFromMarch * 365 + leapDays + DaysBeforeMonth(monthFromMarch) + day - 1 - epochFromMarch;
}

double DateOf(int dayNumber, int hour, int minute, int second) noexcept
{
    double const sign = dayNumber < 0 ? -1.0 : 1.0;
    double date = dayNumber;
    date += sign * hour / 24.0;
    date += sign * minute / 1440.0;
    date += sign * second / secondsPerDay;
    return date;
}

bool FieldsOfDate(double date, CalendarFields & fields) noexcept
{
    if (!(date > firstDay - 1.0 && date < lastDay + 1.0))
        return false;
    int const day = static_cast<int>(date);
    int seconds = static_cast<int>(std::fabs(date - day) * secondsPerDay + 0.5 + microsecond);
    bool const isMidnightAfter = seconds == secondsPerDay;
    if (isMidnightAfter && day == lastDay)
        return false;
    if (isMidnightAfter)
        seconds = 0;
    SetCivilDay(day, fields);
    fields.dayOfWeek = (day - firstDay + 5) % 7; // 1 January 100 was a Friday
    fields.dayOfYear = day - DayNumber(fields.year, 1, 1) + 1;
    if (isMidnightAfter)
        SetCivilDay(day + 1, fields);
    fields.hour = seconds / 3600;
    fields.minute = seconds / 60 % 60;
    fields.second = seconds % 60;
    return true;
}

bool DateOfFields(CalendarFields const & fields, double & date) noexcept
{
    auto const isWithin = [](int value, int low, int high) { return value >= low && value <= high; };
    int const year = FullYear(fields.year);
    if (!isWithin(year, 100, 9999) || !isWithin(fields.month, 1, 12) || !isWithin(fields.day, 0, 31) ||
        !isWithin(fields.hour, 0, 23) || !isWithin(fields.minute, 0, 59) || !isWithin(fields.second, 0, 59))
        return false;
    bool const isOverNovember = fields.month == 11 && fields.day == 31;
    int const day = isOverNovember ? DayNumber(year + 1, 1, 1) : DayNumber(year, fields.month, fields.day);
    date = DateOf(day, fields.hour, fields.minute, fields.second);
    return true;
}

double LinearOfDate(double date) noexcept
{
    if (date > -halfSecondInDays)
        return date;
    double const day = std::ceil(date);
    return day + (day - date);
}

double DateOfLinear(double linear) noexcept
{
    if (linear > -halfSecondInDays)
        return linear;
    double const day = std::floor(linear);
    return day + (day - linear);
}

} // namespace kr::detail
