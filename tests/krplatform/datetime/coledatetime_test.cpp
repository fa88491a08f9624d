#include <krplatform/datetime/coledatetime.h>
#include <krplatform/datetime/ctime.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/krplatform/datetime/zone.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

VARIANT MakeDate(double date)
{
    VARIANT value = MakeR8(date);
    value.vt = VT_DATE;
    return value;
}

} // namespace

TEST(COleDateTime, StartsAsTheValidDate0)
{
    COleDateTime const date;
    EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
    EXPECT_EQ(date.m_dt, 0.0);
    EXPECT_EQ(static_cast<DATE>(date), 0.0);
    EXPECT_EQ(date.GetYear(), 1899);
}

TEST(COleDateTime, HasTheStatusNumbersOfThePlatform)
{
    EXPECT_EQ(COleDateTime::valid, 0);
    EXPECT_EQ(COleDateTime::invalid, 1);
    EXPECT_EQ(COleDateTime::null, 2);
    EXPECT_EQ(sizeof(COleDateTime::DateTimeStatus), 4u);
}

TEST(COleDateTime, TakesAnyNumberAsItStands)
{
    EXPECT_EQ(COleDateTime(44270.75).m_dt, 44270.75);
    COleDateTime const beyond(1e10);
    EXPECT_EQ(beyond.GetStatus(), COleDateTime::valid);
    EXPECT_EQ(beyond.m_dt, 1e10);
    EXPECT_EQ(beyond.GetYear(), COleDateTime::error);
}

TEST(COleDateTime, IsMadeOfAVariant)
{
    struct Row
    {
        VARIANT value;
        COleDateTime::DateTimeStatus status;
        double date;
    };
    Cleared text(MakeTextVariant(OLESTR("2021-03-15 18:00")));
    Cleared noDate(MakeTextVariant(OLESTR("abc")));
    // clang-format off
    Row const rows[] = {
        { MakeDate(44270.75),     COleDateTime::valid,   44270.75 },
        { MakeR8(44270.75),       COleDateTime::valid,   44270.75 },
        { *text,                  COleDateTime::valid,   44270.75 },
        { MakeBits(VT_I2, 7),     COleDateTime::valid,   7.0      },
        { MakeBits(VT_EMPTY, 0),  COleDateTime::null,    0.0      },
        { MakeBits(VT_NULL, 0),   COleDateTime::null,    0.0      },
        { *noDate,                COleDateTime::invalid, 0.0      },
        { MakeR8(1e10),           COleDateTime::invalid, 0.0      },
        { MakeBits(VT_ERROR, 5),  COleDateTime::invalid, 0.0      },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.value.vt);
        COleDateTime const date(row.value);
        EXPECT_EQ(date.GetStatus(), row.status);
        EXPECT_EQ(date.m_dt, row.date);
    }
}

TEST(COleDateTime, IsMadeOfCalendarFieldsThatItGivesBack)
{
    COleDateTime const date(2021, 3, 15, 8, 5, 9);
    EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
    EXPECT_EQ(date.m_dt, 44270.336909722224);
    EXPECT_EQ(date.GetYear(), 2021);
    EXPECT_EQ(date.GetMonth(), 3);
    EXPECT_EQ(date.GetDay(), 15);
    EXPECT_EQ(date.GetHour(), 8);
    EXPECT_EQ(date.GetMinute(), 5);
    EXPECT_EQ(date.GetSecond(), 9);
    EXPECT_EQ(date.GetDayOfWeek(), 2); // a Monday
    EXPECT_EQ(date.GetDayOfYear(), 74);
    SYSTEMTIME const fields = {2021, 3, 0, 15, 8, 5, 9, 0};
    EXPECT_EQ(COleDateTime(fields).m_dt, date.m_dt);
}

TEST(COleDateTime, RefusesFieldsThatItWouldNotGiveBack)
{
    // clang-format off
    struct { int year, month, day, hour, minute, second; } const rows[] = {
        {  2021,  2, 29,  0,  0,  0 },
        {  2021,  4, 31,  0,  0,  0 },
        {  2021, 11, 31,  0,  0,  0 },
        {  2021,  1,  0,  0,  0,  0 },
        {  2021,  0,  1,  0,  0,  0 },
        {  2021, 13,  1,  0,  0,  0 },
        {  2021,  1, 32,  0,  0,  0 },
        {  2021,  1,  1, 24,  0,  0 },
        {  2021,  1,  1,  0, 60,  0 },
        {  2021,  1,  1,  0,  0, 60 },
        {  2021, -1,  1,  0,  0,  0 },
        {    21,  1,  1,  0,  0,  0 },       // two digits come back as four
        {    99,  1,  1,  0,  0,  0 },
        { 10000,  1,  1,  0,  0,  0 },
        {    -1, -1, -1, -1, -1, -1 },
        {     0,  0,  0,  0,  0,  0 },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.year << '-' << row.month << '-' << row.day << ' ' << row.hour);
        COleDateTime date(44270.75);
        EXPECT_EQ(date.SetDateTime(row.year, row.month, row.day, row.hour, row.minute, row.second), 1);
        EXPECT_EQ(date.GetStatus(), COleDateTime::invalid);
        EXPECT_EQ(date.m_dt, 44270.75);
        EXPECT_EQ(COleDateTime(row.year, row.month, row.day, row.hour, row.minute, row.second).GetStatus(),
                  COleDateTime::invalid);
    }
    SYSTEMTIME const fields = {2021, 2, 0, 30, 0, 0, 0, 0};
    EXPECT_EQ(COleDateTime(fields).GetStatus(), COleDateTime::invalid);
}

TEST(COleDateTime, TakesTheFirstAndTheLastDay)
{
    EXPECT_EQ(COleDateTime(100, 1, 1, 0, 0, 0).m_dt, -657434.0);
    EXPECT_EQ(COleDateTime(9999, 12, 31, 23, 59, 59).GetStatus(), COleDateTime::valid);
    EXPECT_EQ(COleDateTime(1899, 12, 29, 6, 0, 0).m_dt, -1.25);
}

TEST(COleDateTime, SetsTheDateOrTheTimeAlone)
{
    COleDateTime date(1.25);
    date.SetStatus(COleDateTime::null);
    EXPECT_EQ(date.SetDate(2021, 3, 15), 0);
    EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
    EXPECT_EQ(date.m_dt, 44270.0);
    EXPECT_EQ(date.SetTime(18, 0, 0), 0);
    EXPECT_EQ(date.m_dt, 0.75);
    EXPECT_EQ(date.SetDate(2021, 2, 30), 1);
    EXPECT_EQ(date.SetTime(24, 0, 0), 1);
}

TEST(COleDateTime, HasNoFieldsUnlessItIsValidAndInRange)
{
    COleDateTime invalid(44270.0);
    invalid.SetStatus(COleDateTime::invalid);
    COleDateTime null(44270.0);
    null.SetStatus(COleDateTime::null);
    for (COleDateTime const & date : {invalid, null, COleDateTime(2958466.0)})
    {
        for (int (COleDateTime::*const field)() const noexcept :
             {&COleDateTime::GetYear, &COleDateTime::GetMonth, &COleDateTime::GetDay, &COleDateTime::GetHour,
              &COleDateTime::GetMinute, &COleDateTime::GetSecond, &COleDateTime::GetDayOfWeek,
              &COleDateTime::GetDayOfYear})
            EXPECT_EQ((date.*field)(), -1);
        SYSTEMTIME fields = {1, 2, 3, 4, 5, 6, 7, 8};
        EXPECT_FALSE(date.GetAsSystemTime(fields));
        EXPECT_EQ(fields.wYear, 1);
        UDATE udate = {fields, 9};
        EXPECT_FALSE(date.GetAsUdate(udate));
        EXPECT_EQ(udate.st.wYear, 1);
        EXPECT_EQ(udate.wDayOfYear, 9);
    }
}

TEST(COleDateTime, GivesAllFieldsAtOnce)
{
    SYSTEMTIME fields = {};
    EXPECT_TRUE(COleDateTime(44270.75).GetAsSystemTime(fields));
    EXPECT_EQ(fields.wYear, 2021);
    EXPECT_EQ(fields.wDayOfWeek, 1);
    EXPECT_EQ(fields.wHour, 18);
    UDATE udate = {};
    EXPECT_TRUE(COleDateTime(44270.75).GetAsUdate(udate));
    EXPECT_EQ(udate.st.wMonth, 3);
    EXPECT_EQ(udate.wDayOfYear, 74);
}

TEST(COleDateTime, IsMadeOfAMomentInLocalTime)
{
    Zone const zone("Europe/Berlin");
    EXPECT_EQ(COleDateTime(CTime(1615795509)).m_dt, COleDateTime(2021, 3, 15, 9, 5, 9).m_dt);
    EXPECT_EQ(COleDateTime(std::int64_t{1615795509}).m_dt, COleDateTime(2021, 3, 15, 9, 5, 9).m_dt);
    EXPECT_EQ(COleDateTime(CTime(0)).m_dt, COleDateTime(1970, 1, 1, 1, 0, 0).m_dt);
    EXPECT_EQ(COleDateTime(CTime(-86400)).m_dt, COleDateTime(1969, 12, 31, 1, 0, 0).m_dt);
    EXPECT_EQ(COleDateTime(CTime(std::int64_t{1} << 60)).GetStatus(), COleDateTime::invalid);
    EXPECT_EQ(COleDateTime(CTime(-60000000000)).GetStatus(), COleDateTime::invalid); // the year 68
}

TEST(COleDateTime, KnowsTheCurrentTime)
{
    COleDateTime const before(CTime::GetCurrentTime());
    COleDateTime const now = COleDateTime::GetCurrentTime();
    EXPECT_EQ(now.GetStatus(), COleDateTime::valid);
    EXPECT_TRUE(before <= now);
    EXPECT_TRUE(now <= COleDateTime(CTime::GetCurrentTime()));
}

TEST(COleDateTime, TakesAnIntegerForDaysUnlessItHas64Bits)
{
    Zone const zone("UTC");
    EXPECT_EQ(COleDateTime(86400).m_dt, 86400.0);
    EXPECT_EQ(COleDateTime(86400L).m_dt, 25570.0); // seconds: 2 January 1970
    EXPECT_EQ(COleDateTime(86400LL).m_dt, 25570.0);
}

} // namespace kr::test
