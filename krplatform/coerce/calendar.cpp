#include <krplatform/coerce/calendar.h>

#include <cmath>
#include <cstdint>

namespace kr::detail
{

namespace
{

// Inside, days are counted from 1 March of the year 0, so that the leap day is the last of its year and of its cycle.
constexpr std::uint32_t daysPerFourCenturies = 146097; // as many as a century has quarters
constexpr int epochFromMarch = 693899;                 // 30 December 1899
constexpr int daysToNewYear = 306;
constexpr double microsecond = 1e-6;
constexpr double halfSecondInDays = 5.787037037037037e-6;

/// Days from 1 March to the first of a month, March being 0.
constexpr int DaysBeforeMonth(int monthFromMarch) { return (153 * monthFromMarch + 2) / 5; }

/// Sets year, month and day, and gives the day counted from 1 March, which is 0.
///
/// Centuries and years are of one length in quarters of a day. Divisions by the length of a year and of a month are multiplications:
/// by 2^32 / 1461, the quotient above the 32 bits and the remainder in them, and by 2^16 * 5 / 153, likewise with 16 bits. All days of
/// a century and of a year come out right so.
int SetCivilDay(int dayNumber, CalendarFields & fields)
{
    constexpr std::uint32_t yearScale = 2939745;
    constexpr std::uint32_t monthScale = 2141;
    constexpr std::uint32_t march = (3 << 16) + 1305;

    std::uint32_t const quarters = 4 * static_cast<std::uint32_t>(dayNumber + epochFromMarch) + 3;
    std::uint32_t const century = quarters / daysPerFourCenturies;
    std::uint64_t const years = std::uint64_t{yearScale} * (quarters % daysPerFourCenturies | 3);
    std::uint32_t const dayFromMarch = static_cast<std::uint32_t>(years) / yearScale / 4;
    std::uint32_t const months = monthScale * dayFromMarch + march;
    bool const isNextYear = dayFromMarch >= daysToNewYear;
    fields.year = static_cast<int>(100 * century + (years >> 32) + isNextYear);
    fields.month = static_cast<int>((months >> 16) - (isNextYear ? 12 : 0));
    fields.day = static_cast<int>((months & 0xFFFF) / monthScale + 1);
    return static_cast<int>(dayFromMarch);
}

int DayOfYear(int dayFromMarch, int year)
{
    constexpr int daysToMarch = 59;
    return 1 + (dayFromMarch < daysToNewYear ? dayFromMarch + daysToMarch + IsLeapYear(year)
                                             : dayFromMarch - daysToNewYear);
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
    int const dayFromMarch = SetCivilDay(day, fields);
    fields.dayOfWeek = (day - firstDay + 5) % 7; // 1 January 100 was a Friday
    fields.dayOfYear = DayOfYear(dayFromMarch, fields.year);
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
