// The calendar by the standard library: a second opinion on every day.
#pragma once

#include <chrono>

namespace kr::test
{

struct ReferenceDay
{
    int year;
    int month;
    int day;
    int dayOfWeek; ///< Sunday is 0
    int dayOfYear; ///< 1 January is 1

    friend bool operator==(ReferenceDay const &, ReferenceDay const &) = default;
};

/// Day 0 is 30 December 1899.
inline std::chrono::sys_days const dateEpoch = std::chrono::year(1899) / std::chrono::December / 30;

inline ReferenceDay ReferenceDayOf(int dayNumber)
{
    std::chrono::sys_days const day = dateEpoch + std::chrono::days(dayNumber);
    std::chrono::year_month_day const civil(day);
    std::chrono::sys_days const newYear = civil.year() / std::chrono::January / 1;
    return {int(civil.year()), static_cast<int>(unsigned(civil.month())), static_cast<int>(unsigned(civil.day())),
            static_cast<int>(std::chrono::weekday(day).c_encoding()), static_cast<int>((day - newYear).count()) + 1};
}

/// The length of a month, as the difference of two first days.
inline int ReferenceDaysInMonth(int year, int month)
{
    std::chrono::year_month const first = std::chrono::year(year) / month;
    std::chrono::sys_days const next = (first + std::chrono::months(1)) / 1;
    return static_cast<int>((next - std::chrono::sys_days(first / 1)).count());
}

} // namespace kr::test
