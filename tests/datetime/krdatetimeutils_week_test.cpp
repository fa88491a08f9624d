// Weeks: the rule, its two differences from ISO 8601, and all days against the reference.
#include <krcore/datetime/krdatetimeutils.h>

#include "tests/datetime/date_state.h"
#include "tests/krplatform/datetime/zone.h"
#include "tests/reference/week.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kr::test
{

namespace
{

// The numbers of days, 30 December 1899 being 0.
constexpr int firstDayOf100 = -657434;
constexpr int firstDayOf1900 = 2;
constexpr int lastDayOf2200 = 109939;
constexpr int lastDayOf9999 = 2958465;

int WeekOf(COleDateTime const & date)
{
    int week = 0;
    EXPECT_TRUE(CKrDateTimeUtils().CalendarWeek(date, week));
    return week;
}

struct Day
{
    int year;
    int month;
    int day;
    int week;
};

template <std::size_t Count>
void Check(Day const (&rows)[Count])
{
    for (Day const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.year << '-' << row.month << '-' << row.day);
        EXPECT_EQ(WeekOf(COleDateTime(row.year, row.month, row.day, 0, 0, 0)), row.week);
        EXPECT_EQ(WeekOf(COleDateTime(row.year, row.month, row.day, 23, 59, 59)), row.week);
    }
}

} // namespace

TEST(CKrDateTimeUtilsWeek, CountsFromTheFirstWeekOfAtLeastFourDays)
{
    // clang-format off
    Day const rows[] = {
        { 2026,  1,  1,  1 },   // Thursday
        { 2026,  1,  4,  1 },   // Sunday
        { 2026,  1,  5,  2 },   // Monday
        { 2021,  1,  4,  1 },   // the first Monday of a year that begins on a Friday
        { 2024,  1,  1,  1 },   // Monday
        { 2024, 12, 29, 52 },   // Sunday
        { 2024, 12, 31,  1 },   // Tuesday, in week 1 of 2025
        { 2025, 12, 29,  1 },
        { 2026, 12, 31, 53 },   // Thursday
        { 2020, 12, 27, 52 },   // Sunday
    };
    // clang-format on
    Check(rows);
}

TEST(CKrDateTimeUtilsWeek, IsAlways53BeforeTheFirstWeek)
{
    // clang-format off
    Day const rows[] = {
        { 2021, 1, 1, 53 },     // Friday; 2020 has 53 weeks
        { 2021, 1, 3, 53 },
        { 2022, 1, 1, 53 },     // Saturday; 2021 has 52 weeks
        { 2022, 1, 2, 53 },
        { 2022, 1, 3,  1 },
        { 2023, 1, 1, 53 },     // Sunday; 2022 has 52 weeks
        { 2023, 1, 2,  1 },
    };
    // clang-format on
    Check(rows);
}

TEST(CKrDateTimeUtilsWeek, IsNever53OnAMondayTuesdayOrWednesday)
{
    // clang-format off
    Day const rows[] = {
        { 2020, 12, 28,  1 },   // Monday to Wednesday of a week 53
        { 2020, 12, 29,  1 },
        { 2020, 12, 30,  1 },
        { 2020, 12, 31, 53 },   // Thursday of the same week
        { 2004, 12, 27,  1 },
        { 2004, 12, 29,  1 },
        { 2004, 12, 30, 53 },
        { 2026, 12, 28,  1 },
        { 2026, 12, 30,  1 },
    };
    // clang-format on
    Check(rows);
}

TEST(CKrDateTimeUtilsWeek, EveryDayOfTheCalendarIsInTheWeekOfTheReference)
{
    int checked = 0;
    for (int day = firstDayOf100; day <= lastDayOf9999; ++day)
    {
        if (WeekOf(COleDateTime(static_cast<double>(day))) == ReferenceWeekOf(day))
            ++checked;
        else
            ADD_FAILURE() << "day " << day;
    }
    EXPECT_EQ(checked, 3615900);
}

TEST(CKrDateTimeUtilsWeek, DiffersFromIsoOn266DaysOfTheYears1900To2200)
{
    int days = 0;
    int beforeTheFirstWeek = 0;
    int early = 0;
    for (int day = firstDayOf1900; day <= lastDayOf2200; ++day)
    {
        ++days;
        int const week = WeekOf(COleDateTime(static_cast<double>(day)));
        int const isoWeek = ReferenceIsoWeekOf(day).week;
        beforeTheFirstWeek += week == 53 && isoWeek == 52;
        early += week == 1 && isoWeek == 53;
        ASSERT_TRUE(week == isoWeek || (week == 53 && isoWeek == 52) || (week == 1 && isoWeek == 53)) << "day " << day;
    }
    EXPECT_EQ(days, 109938);
    EXPECT_EQ(beforeTheFirstWeek, 107);
    EXPECT_EQ(early, 159); // three days in each of the 53 years that have a week 53
}

TEST(CKrDateTimeUtilsWeek, IsMinus1AndFalseForAStatusOtherThanValid)
{
    for (COleDateTime::DateTimeStatus const status : {COleDateTime::null, COleDateTime::invalid})
    {
        int week = 7;
        EXPECT_FALSE(CKrDateTimeUtils().CalendarWeek(DateWith(status), week));
        EXPECT_EQ(week, -1);
    }
}

TEST(CKrDateTimeUtilsWeek, Is53ForAValidDateOutsideTheCalendar)
{
    for (double const value : {-657435.0, 2958466.0, 1e300, -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(WeekOf(COleDateTime(value)), 53) << value;
}

TEST(CKrDateTimeUtilsWeek, CountsTheDayBeforeInTheNewYearForATimeThatRoundsUpToIt)
{
    double const newYear = COleDateTime(2021, 1, 1, 0, 0, 0).m_dt;
    EXPECT_EQ(WeekOf(COleDateTime(newYear - 0.6 / 86400)), 53); // 31 December 2020, 23:59:59
    EXPECT_EQ(WeekOf(COleDateTime(newYear - 0.4 / 86400)), 52); // the year is 2021, the day its 366th
    EXPECT_EQ(WeekOf(COleDateTime(newYear)), 53);
}

TEST(CKrDateTimeUtilsWeek, OfAMomentIsThatOfItsLocalDay)
{
    CKrDateTimeUtils const utils;
    CTime const time(1609650000); // Sunday 3 January 2021, 05:00 UTC
    int week = 0;
    {
        Zone const zone("UTC");
        EXPECT_TRUE(utils.CalendarWeek(time, week));
        EXPECT_EQ(week, 53);
    }
    {
        Zone const zone("Pacific/Kiritimati");
        EXPECT_TRUE(utils.CalendarWeek(time + CTimeSpan(0, 5, 0, 0), week)); // Monday, 00:00
        EXPECT_EQ(week, 1);
    }
}

TEST(CKrDateTimeUtilsWeek, OfTheMoment0IsThatOfTheZeroDate)
{
    int week = 0;
    EXPECT_TRUE(CKrDateTimeUtils().CalendarWeek(CTime(0), week));
    EXPECT_EQ(week, 52);
    EXPECT_EQ(WeekOf(COleDateTime()), 52);
}

TEST(CKrDateTimeUtilsWeek, OfAMomentWithoutLocalTimeIsMinus1)
{
    for (std::int64_t const seconds :
         {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min(), std::int64_t{1} << 40})
    {
        int week = 7;
        EXPECT_FALSE(CKrDateTimeUtils().CalendarWeek(CTime(seconds), week));
        EXPECT_EQ(week, -1);
    }
}

TEST(CKrDateTimeUtilsWeek, RunsFromMondayToSunday)
{
    struct Row
    {
        int week;
        int year;
        COleDateTime first;
        COleDateTime last;
    };
    // clang-format off
    Row const rows[] = {
        {  1, 2026, COleDateTime(2025, 12, 29, 0, 0, 0), COleDateTime(2026,  1,  4, 0, 0, 0) },     // begins on a Thursday
        {  1, 2021, COleDateTime(2021,  1,  4, 0, 0, 0), COleDateTime(2021,  1, 10, 0, 0, 0) },     // on a Friday
        {  1, 2024, COleDateTime(2024,  1,  1, 0, 0, 0), COleDateTime(2024,  1,  7, 0, 0, 0) },     // on a Monday
        { 52, 2021, COleDateTime(2021, 12, 27, 0, 0, 0), COleDateTime(2022,  1,  2, 0, 0, 0) },
        { 53, 2020, COleDateTime(2020, 12, 28, 0, 0, 0), COleDateTime(2021,  1,  3, 0, 0, 0) },
        { 53, 2021, COleDateTime(2022,  1,  3, 0, 0, 0), COleDateTime(2022,  1,  9, 0, 0, 0) },     // 2021 has no such week
        { 52, 1899, COleDateTime(1899, 12, 25, 0, 0, 0), COleDateTime(1899, 12, 31, 0, 0, 0) },     // over the zero date
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << "week " << row.week << " of " << row.year);
        COleDateTime first;
        COleDateTime last;
        EXPECT_TRUE(CKrDateTimeUtils().DateOfCalendarWeek(row.week, row.year, first, last));
        EXPECT_EQ(StateOf(first), StateOf(row.first));
        EXPECT_EQ(StateOf(last), StateOf(row.last));
    }
}

TEST(CKrDateTimeUtilsWeek, EveryWeekOfTheCalendarRunsAsTheReference)
{
    CKrDateTimeUtils const utils;
    for (int year = 100; year <= 9999; ++year)
    {
        int const firstMonday = ReferenceFirstMonday(year);
        for (int week = 1; week <= 53; ++week)
        {
            COleDateTime first = DateWith(COleDateTime::null);
            COleDateTime last = first;
            ASSERT_TRUE(utils.DateOfCalendarWeek(week, year, first, last));
            ASSERT_EQ(StateOf(first), Valid(firstMonday + 7 * (week - 1))) << year << ", week " << week;
            ASSERT_EQ(StateOf(last), Valid(firstMonday + 7 * week - 1)) << year << ", week " << week;
        }
    }
}

TEST(CKrDateTimeUtilsWeek, IsGivenBackByAllDaysOfTheWeeks1To51)
{
    CKrDateTimeUtils const utils;
    for (int year = 1890; year <= 2200; ++year)
    {
        for (int week = 1; week <= 51; ++week)
        {
            COleDateTime first;
            COleDateTime last;
            ASSERT_TRUE(utils.DateOfCalendarWeek(week, year, first, last));
            for (int day = 0; day < 7; ++day)
                ASSERT_EQ(WeekOf(COleDateTime(first.m_dt + day)), week) << year << ", day " << day;
        }
    }
}

TEST(CKrDateTimeUtilsWeek, LeavesTheDatesForAWeekOutside1To53)
{
    for (int const week : {0, 54, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
    {
        COleDateTime first(1.5);
        COleDateTime last = DateWith(COleDateTime::null);
        EXPECT_FALSE(CKrDateTimeUtils().DateOfCalendarWeek(week, 2026, first, last)) << week;
        EXPECT_EQ(StateOf(first), Valid(1.5));
        EXPECT_EQ(last.GetStatus(), COleDateTime::null);
    }
}

TEST(CKrDateTimeUtilsWeek, CountsFromTheZeroDateForAYearOutsideTheCalendar)
{
    for (int const year : {99, 0, 10000, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
    {
        COleDateTime first = DateWith(COleDateTime::null);
        COleDateTime last = first;
        EXPECT_TRUE(CKrDateTimeUtils().DateOfCalendarWeek(1, year, first, last)) << year;
        EXPECT_EQ(StateOf(first), Valid(3.0)) << year;
        EXPECT_EQ(StateOf(last), Valid(9.0)) << year;
    }
}

TEST(CKrDateTimeUtilsWeek, IsValidAlsoBehindTheLastDayOfTheCalendar)
{
    COleDateTime first;
    COleDateTime last;
    EXPECT_TRUE(CKrDateTimeUtils().DateOfCalendarWeek(53, 9999, first, last));
    EXPECT_EQ(StateOf(first), Valid(lastDayOf9999 + 3));
    EXPECT_EQ(StateOf(last), Valid(lastDayOf9999 + 9));
    EXPECT_EQ(last.GetYear(), COleDateTime::error);
}

} // namespace kr::test
