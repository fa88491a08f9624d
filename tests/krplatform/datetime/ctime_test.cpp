#include <krplatform/datetime/ctime.h>

#include "tests/krplatform/automation/thrown_result.h"
#include "tests/krplatform/datetime/zone.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace kr::test
{

namespace
{

constexpr std::int64_t beyondTheCalendar = std::int64_t{1} << 60;

std::string Show(CString const & text) { return Narrow(text.GetString()); }

} // namespace

TEST(CTimeSpan, CountsSeconds)
{
    EXPECT_EQ(CTimeSpan().GetTotalSeconds(), 0);
    EXPECT_EQ(CTimeSpan(90).GetTotalSeconds(), 90);
    EXPECT_EQ(CTimeSpan(1, 2, 3, 4).GetTotalSeconds(), 93784);
    EXPECT_EQ(CTimeSpan(-1, 0, 0, 1).GetTotalSeconds(), -86399);
    EXPECT_EQ(CTimeSpan(100000, 0, 0, 0).GetTotalSeconds(), 8640000000); // more than 32 bits
    EXPECT_TRUE(CTimeSpan(1) < CTimeSpan(2));
    EXPECT_TRUE(CTimeSpan(2) == CTimeSpan(0, 0, 0, 2));
}

TEST(CTime, StartsAt0AndTakesSecondsAsTheyStand)
{
    EXPECT_EQ(CTime().GetTime(), 0);
    EXPECT_EQ(CTime(1615795509).GetTime(), 1615795509);
    EXPECT_EQ(CTime(-1).GetTime(), -1);
    EXPECT_EQ(CTime(beyondTheCalendar).GetTime(), beyondTheCalendar);
}

TEST(CTime, IsMadeOfLocalTime)
{
    Zone const zone("Europe/Berlin");
    EXPECT_EQ(CTime(2021, 3, 15, 8, 5, 9).GetTime(), 1615791909);
    EXPECT_EQ(CTime(2021, 7, 15, 12, 0, 0).GetTime(), 1626343200);    // in daylight saving
    EXPECT_EQ(CTime(2021, 7, 15, 12, 0, 0, 0).GetTime(), 1626346800); // told not to be
    EXPECT_EQ(CTime(2021, 10, 31, 2, 30, 0, 1).GetTime(), 1635640200);
    EXPECT_EQ(CTime(1970, 1, 1, 1, 0, 0).GetTime(), 0);
    EXPECT_EQ(CTime(2021, 2, 30, 0, 0, 0).GetTime(),
              CTime(2021, 3, 2, 0, 0, 0).GetTime()); // rolls, as the runtime does
}

TEST(CTime, RaisesTheFailureThatTheFieldsAskFor)
{
    struct Row
    {
        int year;
        int month;
        int day;
        int hour;
        int minute;
        int second;
        HRESULT result;
    };
    // clang-format off
    Row const rows[] = {
        { 1970,  1,  1,  0,  0,  0, S_OK         },
        { 3000, 12, 31, 23, 59, 59, S_OK         },
        { 1969, 12, 31, 23, 59, 59, E_FAIL       },
        { 1900,  1,  1,  0,  0,  0, E_FAIL       },
        {    0,  1,  1,  0,  0,  0, E_FAIL       },
        { 2021,  0,  1,  0,  0,  0, E_FAIL       },
        { 2021, 13,  1,  0,  0,  0, E_FAIL       },
        { 2021,  1,  0,  0,  0,  0, E_FAIL       },
        { 2021,  1, 32,  0,  0,  0, E_FAIL       },
        { 2021,  1,  1, -1,  0,  0, E_FAIL       },
        { 2021,  1,  1, 24,  0,  0, E_FAIL       },
        { 2021,  1,  1,  0, -1,  0, E_FAIL       },
        { 2021,  1,  1,  0, 60,  0, E_FAIL       },
        { 2021,  1,  1,  0,  0, -1, E_FAIL       },
        { 2021,  1,  1,  0,  0, 60, E_FAIL       },
        { 3001,  1,  1,  0,  0,  0, E_INVALIDARG },
        { 9999, 12, 31,  0,  0,  0, E_INVALIDARG },
        { 3001, 13,  1,  0,  0,  0, E_FAIL       },     // the ranges are looked at first
    };
    // clang-format on
    Zone const zone("UTC");
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.year << '-' << row.month << '-' << row.day << ' ' << row.hour << ':'
                                        << row.minute << ':' << row.second);
        auto const make = [&] { CTime(row.year, row.month, row.day, row.hour, row.minute, row.second); };
        EXPECT_EQ(ThrownResult(make), row.result);
    }
}

TEST(CTime, CannotExpressTheFirstHoursOf1970EastOfGreenwich)
{
    Zone const zone("Europe/Berlin");
    EXPECT_EQ(ThrownResult([] { CTime(1970, 1, 1, 0, 0, 0); }), E_INVALIDARG);
}

TEST(CTime, KnowsTheCurrentTime)
{
    std::int64_t const before = _time64(nullptr);
    CTime const now = CTime::GetCurrentTime();
    EXPECT_GE(now.GetTime(), before);
    EXPECT_LE(now.GetTime(), _time64(nullptr));
}

TEST(CTime, GivesItsFieldsInLocalTimeAndInUtc)
{
    Zone const zone("America/New_York");
    CTime const time(1615795509); // Monday 15 March 2021, 08:05:09 UTC
    EXPECT_EQ(time.GetYear(), 2021);
    EXPECT_EQ(time.GetMonth(), 3);
    EXPECT_EQ(time.GetDay(), 15);
    EXPECT_EQ(time.GetHour(), 4);
    EXPECT_EQ(time.GetMinute(), 5);
    EXPECT_EQ(time.GetSecond(), 9);
    EXPECT_EQ(time.GetDayOfWeek(), 2);
    std::tm fields = {};
    EXPECT_EQ(time.GetLocalTm(&fields), &fields);
    EXPECT_EQ(fields.tm_hour, 4);
    EXPECT_EQ(fields.tm_isdst, 1);
    EXPECT_EQ(time.GetGmtTm(&fields), &fields);
    EXPECT_EQ(fields.tm_hour, 8);
    EXPECT_EQ(fields.tm_isdst, 0);
}

TEST(CTime, HasNoFieldsBeyondTheCalendar)
{
    CTime const time(beyondTheCalendar);
    for (int (CTime::*const field)() const noexcept :
         {&CTime::GetYear, &CTime::GetMonth, &CTime::GetDay, &CTime::GetHour, &CTime::GetMinute, &CTime::GetSecond,
          &CTime::GetDayOfWeek})
        EXPECT_EQ((time.*field)(), 0);
    std::tm fields = {};
    EXPECT_EQ(time.GetLocalTm(&fields), nullptr);
    EXPECT_EQ(time.GetGmtTm(&fields), nullptr);
    EXPECT_EQ(CTime().GetLocalTm(nullptr), nullptr);
    EXPECT_EQ(Show(time.Format(OLESTR("%Y"))), "");
    EXPECT_EQ(Show(time.FormatGmt(OLESTR("%Y"))), "");
}

TEST(CTime, WritesByAPattern)
{
    Zone const zone("America/New_York");
    CTime const time(1615795509);
    EXPECT_EQ(Show(time.Format(OLESTR("%Y-%m-%d %H:%M:%S %z %Z"))), "2021-03-15 04:05:09 -0400 EDT");
    EXPECT_EQ(Show(time.FormatGmt(OLESTR("%Y-%m-%d %H:%M:%S"))), "2021-03-15 08:05:09");
    EXPECT_EQ(Show(CTime(-1).FormatGmt(OLESTR("%Y-%m-%d %H:%M:%S"))), "1969-12-31 23:59:59");
    EXPECT_EQ(Show(time.Format(OLESTR(""))), "");
    EXPECT_EQ(Show(time.Format(OLESTR("%q"))), "");
    std::basic_string<WCHAR> pattern(255, OLESTR('x'));
    EXPECT_EQ(time.Format(pattern.c_str()).GetLength(), 255);
    pattern += OLESTR('x');
    EXPECT_EQ(time.Format(pattern.c_str()).GetLength(), 0);
}

TEST(CTime, RaisesInvalidArgumentForANullPattern)
{
    EXPECT_EQ(ThrownResult([] { CTime().Format(nullptr); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([] { CTime().FormatGmt(nullptr); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([] { CTime(beyondTheCalendar).Format(nullptr); }), E_INVALIDARG);
}

TEST(CTime, MovesBySpansAndCompares)
{
    CTime time(1000);
    EXPECT_EQ((time + CTimeSpan(60)).GetTime(), 1060);
    EXPECT_EQ((time - CTimeSpan(60)).GetTime(), 940);
    EXPECT_EQ((CTime(1060) - time).GetTotalSeconds(), 60);
    EXPECT_EQ(&(time += CTimeSpan(1, 0, 0, 0)), &time);
    EXPECT_EQ(time.GetTime(), 87400);
    EXPECT_EQ(&(time -= CTimeSpan(1, 0, 0, 0)), &time);
    EXPECT_EQ(time.GetTime(), 1000);
    EXPECT_TRUE(CTime(-1) < CTime(0));
    EXPECT_TRUE(CTime(5) == CTime(5));
    EXPECT_TRUE(CTime(5) != CTime(6));
}

TEST(CTime, WrapsAroundAt64Bits)
{
    constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ((CTime(highest) + CTimeSpan(1)).GetTime(), lowest);
    EXPECT_EQ((CTime(lowest) - CTimeSpan(1)).GetTime(), highest);
    EXPECT_EQ((CTime(lowest) - CTime(1)).GetTotalSeconds(), highest);
    EXPECT_EQ(CTimeSpan(long{1} << 57, 0, 0, 5).GetTotalSeconds(), 5);
}

TEST(CTime, TellsWantOfMemory)
{
    FailNthAllocation const fail(1);
    EXPECT_EQ(ThrownResult([] { CTime().FormatGmt(OLESTR("%Y-%m-%d")); }), E_OUTOFMEMORY);
}

} // namespace kr::test
