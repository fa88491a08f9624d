// Calendar weeks, by the words of the rule and with the calendar of the standard library.
#pragma once

#include "tests/reference/calendar.h"

namespace kr::test
{

/// Monday is 0.
inline int ReferenceDayFromMonday(int dayNumber) { return (ReferenceDayOf(dayNumber).dayOfWeek + 6) % 7; }

/// A week by ISO 8601. Week 1 has the first Thursday of its year, so a week belongs to the year of its Thursday.
struct ReferenceIsoWeek
{
    int year;
    int week;
};

inline ReferenceIsoWeek ReferenceIsoWeekOf(int dayNumber)
{
    ReferenceDay const thursday = ReferenceDayOf(dayNumber - ReferenceDayFromMonday(dayNumber) + 3);
    return {thursday.year, (thursday.dayOfYear - 1) / 7 + 1};
}

/// The week that the library gives. A day whose week belongs to the year before is in week 53, and a Monday, Tuesday or
/// Wednesday is never in week 53 but in week 1. All others are in the week of ISO 8601.
inline int ReferenceWeekOf(int dayNumber)
{
    ReferenceIsoWeek const iso = ReferenceIsoWeekOf(dayNumber);
    if (iso.year < ReferenceDayOf(dayNumber).year)
        return 53;
    if (iso.week == 53 && ReferenceDayFromMonday(dayNumber) <= 2)
        return 1;
    return iso.week;
}

/// The Monday of week 1, which is the week that has 4 January.
inline int ReferenceFirstMonday(int year)
{
    std::chrono::sys_days const fourth = std::chrono::year(year) / std::chrono::January / 4;
    int const dayNumber = static_cast<int>((fourth - dateEpoch).count());
    return dayNumber - ReferenceDayFromMonday(dayNumber);
}

} // namespace kr::test
