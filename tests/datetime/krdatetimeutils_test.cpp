#include <krcore/datetime/krdatetimeutils.h>

#include "tests/datetime/date_state.h"
#include "tests/krplatform/automation/thrown_result.h"
#include "tests/krplatform/datetime/zone.h"
#include "tests/reference/calendar.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace kr::test
{

namespace
{

CKrDateTimeUtils const s_utils;

CTime const beyondTheCalendar(std::int64_t{1} << 60);

} // namespace

static_assert(std::is_empty_v<CKrDateTimeUtils> && !std::is_polymorphic_v<CKrDateTimeUtils>);

TEST(CKrDateTimeUtils, KnowsTheLengthOfAMonth)
{
    struct Row
    {
        int year;
        int month;
        int days;
    };
    // clang-format off
    Row const rows[] = {
        { 2000,  2, 29 },
        { 1900,  2, 28 },
        { 2024,  2, 29 },
        { 2023,  2, 28 },
        { 2021,  1, 31 },
        { 2021,  4, 30 },
        {  100,  2, 28 },
        { 9999, 12, 31 },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        int days = 0;
        EXPECT_TRUE(s_utils.DaysInMonth(COleDateTime(row.year, row.month, 15, 14, 30, 0), days));
        EXPECT_EQ(days, row.days) << row.year << '-' << row.month;
    }
}

TEST(CKrDateTimeUtils, EveryMonthOfTheCalendarIsAsLongAsTheReference)
{
    for (int year = 100; year <= 9999; ++year)
    {
        for (int month = 1; month <= 12; ++month)
        {
            COleDateTime const first(year, month, 1, 0, 0, 0);
            int days = 0;
            ASSERT_TRUE(s_utils.DaysInMonth(first, days));
            ASSERT_EQ(days, ReferenceDaysInMonth(year, month)) << year << '-' << month;
            COleDateTime end;
            ASSERT_TRUE(s_utils.EndOfMonth(first, end));
            ASSERT_EQ(StateOf(end), StateOf(COleDateTime(year, month, days, 0, 0, 0)));
        }
    }
}

TEST(CKrDateTimeUtils, CountsNoDaysForAStatusOtherThanValid)
{
    for (COleDateTime::DateTimeStatus const status : {COleDateTime::null, COleDateTime::invalid})
    {
        int days = 7;
        EXPECT_FALSE(s_utils.DaysInMonth(DateWith(status), days));
        EXPECT_EQ(days, 7);
        COleDateTime end(1.5);
        EXPECT_FALSE(s_utils.EndOfMonth(DateWith(status), end));
        EXPECT_EQ(StateOf(end), Valid(1.5));
    }
}

TEST(CKrDateTimeUtils, GivesAMonthOutsideTheCalendar31Days)
{
    int days = 0;
    EXPECT_TRUE(s_utils.DaysInMonth(COleDateTime(1e9), days));
    EXPECT_EQ(days, 31);
    days = 0;
    EXPECT_TRUE(s_utils.DaysInMonth(beyondTheCalendar, days));
    EXPECT_EQ(days, 31);
    COleDateTime end(1.5);
    EXPECT_TRUE(s_utils.EndOfMonth(COleDateTime(1e9), end));
    EXPECT_EQ(StateOf(end), invalidState);
}

TEST(CKrDateTimeUtils, EndOfMonthDropsTheTime)
{
    COleDateTime date(2024, 2, 15, 14, 30, 0);
    COleDateTime end;
    EXPECT_TRUE(s_utils.EndOfMonth(date, end));
    EXPECT_EQ(StateOf(end), StateOf(COleDateTime(2024, 2, 29, 0, 0, 0)));
    EXPECT_TRUE(s_utils.EndOfMonth(date, date)) << "the date itself may be the result";
    EXPECT_EQ(StateOf(date), StateOf(end));
    EXPECT_TRUE(s_utils.EndOfMonth(COleDateTime(-1.25), end));
    EXPECT_EQ(StateOf(end), StateOf(COleDateTime(1899, 12, 31, 0, 0, 0)));
}

TEST(CKrDateTimeUtils, AsDateCutsTheTime)
{
    struct Row
    {
        COleDateTime date;
        DateState cut;
    };
    // clang-format off
    Row const rows[] = {
        { COleDateTime(44197.75),                   Valid(44197.0)    },
        { COleDateTime(44197.0),                    Valid(44197.0)    },
        { COleDateTime(0.75),                       zeroState         },
        { COleDateTime(-1.25),                      Valid(-1.0)       },
        { COleDateTime(100, 1, 1, 23, 59, 59),      Valid(-657434.0)  },
        { COleDateTime(9999, 12, 31, 23, 59, 59),   Valid(2958465.0)  },
        { COleDateTime(44197.999999),               Valid(44198.0)    },    // rounds to the second, so up to midnight
        { COleDateTime(2958465.999999),             invalidState      },    // up to behind the last day
        { COleDateTime(1e9),                        invalidState      },
        { DateWith(COleDateTime::invalid),          invalidState      },
        { DateWith(COleDateTime::null),             invalidState      },    // not null any more
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << StateOf(row.date));
        COleDateTime date = row.date;
        EXPECT_TRUE(s_utils.AsDate(date));
        EXPECT_EQ(StateOf(date), row.cut);
    }
}

TEST(CKrDateTimeUtils, SetDateKeepsTheTimeOfTheTarget)
{
    COleDateTime target(2021, 3, 15, 12, 0, 0);
    EXPECT_TRUE(s_utils.SetDate(target, COleDateTime(2021, 1, 31, 8, 30, 5)));
    EXPECT_EQ(StateOf(target), StateOf(COleDateTime(2021, 1, 31, 12, 0, 0)));
    EXPECT_TRUE(s_utils.SetDate(target, COleDateTime(1899, 12, 28, 0, 0, 0)));
    EXPECT_EQ(StateOf(target), Valid(-2.5)); // noon below 0, and not the sum of the parts
    EXPECT_TRUE(s_utils.SetDate(target, target));
    EXPECT_EQ(StateOf(target), Valid(-2.5));
}

TEST(CKrDateTimeUtils, SetTimeKeepsTheDateOfTheTarget)
{
    COleDateTime target(2021, 3, 15, 12, 0, 0);
    EXPECT_TRUE(s_utils.SetTime(target, COleDateTime(2021, 1, 31, 18, 0, 0)));
    EXPECT_EQ(StateOf(target), Valid(44270.75));
    target = COleDateTime(-1.5);
    EXPECT_TRUE(s_utils.SetTime(target, COleDateTime(44197.25)));
    EXPECT_EQ(StateOf(target), Valid(-1.25));
}

TEST(CKrDateTimeUtils, ShowsInTheStatusWhatCannotBeMade)
{
    for (COleDateTime const & bad : {DateWith(COleDateTime::null), DateWith(COleDateTime::invalid), COleDateTime(1e9)})
    {
        COleDateTime target(44197.75);
        EXPECT_TRUE(s_utils.SetDate(target, bad));
        EXPECT_EQ(StateOf(target), invalidState);
        target = COleDateTime(44197.75);
        EXPECT_TRUE(s_utils.SetTime(target, bad));
        EXPECT_EQ(StateOf(target), invalidState);
        target = bad;
        EXPECT_TRUE(s_utils.SetDate(target, COleDateTime(44197.75)));
        EXPECT_EQ(StateOf(target), invalidState);
        target = bad;
        EXPECT_TRUE(s_utils.SetTime(target, COleDateTime(44197.75)));
        EXPECT_EQ(StateOf(target), invalidState);
    }
}

TEST(CKrDateTimeUtils, DoesTheSameWithMoments)
{
    Zone const zone("UTC");
    CTime const time(2024, 2, 15, 14, 30, 5);
    int days = 0;
    EXPECT_TRUE(s_utils.DaysInMonth(time, days));
    EXPECT_EQ(days, 29);
    CTime end;
    EXPECT_TRUE(s_utils.EndOfMonth(time, end));
    EXPECT_EQ(end, CTime(2024, 2, 29, 0, 0, 0));
    CTime target = time;
    EXPECT_TRUE(s_utils.AsDate(target));
    EXPECT_EQ(target, CTime(2024, 2, 15, 0, 0, 0));
    target = time;
    EXPECT_TRUE(s_utils.SetDate(target, CTime(2021, 1, 31, 8, 0, 0)));
    EXPECT_EQ(target, CTime(2021, 1, 31, 14, 30, 5));
    target = time;
    EXPECT_TRUE(s_utils.SetTime(target, CTime(2021, 1, 31, 8, 1, 2)));
    EXPECT_EQ(target, CTime(2024, 2, 15, 8, 1, 2));
    EXPECT_TRUE(s_utils.EndOfMonth(CTime(3000, 12, 1, 0, 0, 0), end));
    EXPECT_EQ(end, CTime(3000, 12, 31, 0, 0, 0));
}

TEST(CKrDateTimeUtils, RaisesFailForMomentsBefore1970AndWithoutLocalTime)
{
    Zone const zone("UTC");
    for (CTime const & bad : {CTime(-1), CTime(-86400 * 400), beyondTheCalendar, CTime(-(std::int64_t{1} << 60))})
    {
        SCOPED_TRACE(bad.GetTime());
        CTime const good(2021, 3, 15, 12, 0, 0);
        CTime target = good;
        EXPECT_EQ(ThrownResult([&] { s_utils.EndOfMonth(bad, target); }), E_FAIL);
        EXPECT_EQ(ThrownResult([&] { s_utils.SetDate(target, bad); }), E_FAIL);
        EXPECT_EQ(target, good);
        target = bad;
        EXPECT_EQ(ThrownResult([&] { s_utils.AsDate(target); }), E_FAIL);
        EXPECT_EQ(ThrownResult([&] { s_utils.SetTime(target, good); }), E_FAIL);
        EXPECT_EQ(target, bad);
    }
}

TEST(CKrDateTimeUtils, TakesTheTimeOfAMomentBefore1970AndNoneWithoutLocalTime)
{
    Zone const zone("UTC");
    CTime target(2021, 3, 15, 12, 0, 0);
    EXPECT_TRUE(s_utils.SetTime(target, CTime(-1)));
    EXPECT_EQ(target, CTime(2021, 3, 15, 23, 59, 59));
    EXPECT_EQ(ThrownResult([&] { s_utils.SetTime(target, beyondTheCalendar); }), E_FAIL);
    CTime early(-1);
    EXPECT_TRUE(s_utils.SetDate(early, target));
    EXPECT_EQ(early, target);
    early = beyondTheCalendar;
    EXPECT_EQ(ThrownResult([&] { s_utils.SetDate(early, target); }), E_FAIL);
    EXPECT_EQ(early, beyondTheCalendar);
}

TEST(CKrDateTimeUtils, RaisesInvalidArgumentForWhatNoMomentCanExpress)
{
    Zone const zone("Europe/Berlin");
    CTime time(0); // 01:00 on 1 January 1970, whose midnight is still 1969 in UTC
    EXPECT_EQ(ThrownResult([&] { s_utils.AsDate(time); }), E_INVALIDARG);
    EXPECT_EQ(time.GetTime(), 0);
}

TEST(CKrDateTimeUtils, AssigningHasNoEffect)
{
    CKrDateTimeUtils target;
    EXPECT_EQ(&(target = s_utils), &target);
}

} // namespace kr::test
