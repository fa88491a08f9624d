// The calendar against the standard library's, day by day.
#include <krplatform/coerce/calendar.h>

#include "tests/reference/calendar.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

ReferenceDay Day(detail::CalendarFields const & fields)
{
    return {fields.year, fields.month, fields.day, fields.dayOfWeek, fields.dayOfYear};
}

} // namespace

TEST(CalendarReference, EveryDayOfTheYears100To9999IsSplitAlike)
{
    int checked = 0;
    for (int day = detail::firstDay; day <= detail::lastDay; ++day)
    {
        detail::CalendarFields fields = {};
        bool const isRead = detail::FieldsOfDate(day, fields);
        if (isRead && Day(fields) == ReferenceDayOf(day))
            ++checked;
        else
            ADD_FAILURE() << "day " << day;
    }
    EXPECT_EQ(checked, 3615900);
}

TEST(CalendarReference, EveryDayOfTheYears100To9999IsNumberedAlike)
{
    int checked = 0;
    for (int day = detail::firstDay; day <= detail::lastDay; ++day)
    {
        ReferenceDay const reference = ReferenceDayOf(day);
        if (detail::DayNumber(reference.year, reference.month, reference.day) == day)
            ++checked;
        else
            ADD_FAILURE() << "day " << day;
    }
    EXPECT_EQ(checked, 3615900);
}

TEST(CalendarReference, EveryMonthIsAsLong)
{
    for (int year = 100; year <= 9999; ++year)
    {
        for (int month = 1; month <= 12; ++month)
            ASSERT_EQ(detail::DaysInMonth(year, month), ReferenceDaysInMonth(year, month)) << year << '-' << month;
        ASSERT_EQ(detail::IsLeapYear(year), std::chrono::year(year).is_leap()) << year;
    }
}

TEST(CalendarReference, EverySecondOfADayComesBack)
{
    for (int const day : {0, 44270, -1, -657434, 2958465})
    {
        for (int second = 0; second < detail::secondsPerDay; ++second)
        {
            double const date = detail::DateOf(day, second / 3600, second / 60 % 60, second % 60);
            detail::CalendarFields fields = {};
            ASSERT_TRUE(detail::FieldsOfDate(date, fields));
            ASSERT_EQ((fields.hour * 60 + fields.minute) * 60 + fields.second, second) << "day " << day;
            ASSERT_EQ(Day(fields), ReferenceDayOf(day));
        }
    }
}

} // namespace kr::test
