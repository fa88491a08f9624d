#include <krplatform/datetime/clock.h>

#include "tests/krplatform/datetime/zone.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>

namespace kr::test
{

namespace
{

std::string Show(std::tm const & fields)
{
    char text[96];
    std::snprintf(text, sizeof text, "%d-%d-%d %d:%d:%d week %d year %d", fields.tm_year + 1900, fields.tm_mon + 1,
                  fields.tm_mday, fields.tm_hour, fields.tm_min, fields.tm_sec, fields.tm_wday, fields.tm_yday);
    return text;
}

std::tm Fields(int year, int month, int day, int hour, int minute, int second, int daylightSaving = -1)
{
    std::tm fields = {};
    fields.tm_year = year - 1900;
    fields.tm_mon = month - 1;
    fields.tm_mday = day;
    fields.tm_hour = hour;
    fields.tm_min = minute;
    fields.tm_sec = second;
    fields.tm_isdst = daylightSaving;
    return fields;
}

bool IsNothing(std::tm const & fields)
{
    for (int const field : {fields.tm_sec, fields.tm_min, fields.tm_hour, fields.tm_mday, fields.tm_mon, fields.tm_year,
                            fields.tm_wday, fields.tm_yday, fields.tm_isdst})
    {
        if (field != -1)
            return false;
    }
    return true;
}

constexpr std::int64_t firstOfYear1 = -62135596800;
constexpr std::int64_t endOfYear3000 = 32535215999;

} // namespace

TEST(Time64, IsTheSystemsClockInSeconds)
{
    using std::chrono::system_clock;
    std::int64_t const before = system_clock::to_time_t(system_clock::now());
    std::int64_t stored = 0;
    std::int64_t const now = _time64(&stored);
    EXPECT_GE(now, before);
    EXPECT_LE(now, system_clock::to_time_t(system_clock::now()));
    EXPECT_EQ(stored, now);
    EXPECT_GE(_time64(nullptr), now);
}

TEST(Gmtime64, SplitsMomentsOfTheYears1To3000)
{
    struct Row
    {
        std::int64_t seconds;
        char const * fields;
    };
    // clang-format off
    Row const rows[] = {
        {           0, "1970-1-1 0:0:0 week 4 year 0"      },
        {  1615795509, "2021-3-15 8:5:9 week 1 year 73"    },
        {          -1, "1969-12-31 23:59:59 week 3 year 364" },
        { -2208988800, "1900-1-1 0:0:0 week 1 year 0"      },
        { firstOfYear1, "1-1-1 0:0:0 week 1 year 0"        },
        { endOfYear3000, "3000-12-31 23:59:59 week 3 year 364" },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        std::tm fields = {};
        EXPECT_EQ(_gmtime64_s(&fields, &row.seconds), 0);
        EXPECT_EQ(Show(fields), row.fields);
        EXPECT_EQ(fields.tm_isdst, 0);
    }
}

TEST(Gmtime64, RefusesOtherMomentsAndNull)
{
    for (std::int64_t const seconds :
         {firstOfYear1 - 1, endOfYear3000 + 1, std::int64_t{1} << 62, -(std::int64_t{1} << 62)})
    {
        SCOPED_TRACE(seconds);
        std::tm fields = {};
        EXPECT_EQ(_gmtime64_s(&fields, &seconds), EINVAL);
        EXPECT_TRUE(IsNothing(fields));
    }
    std::tm fields = {};
    EXPECT_EQ(_gmtime64_s(&fields, nullptr), EINVAL);
    EXPECT_TRUE(IsNothing(fields));
    std::int64_t const seconds = 0;
    EXPECT_EQ(_gmtime64_s(nullptr, &seconds), EINVAL);
}

TEST(Localtime64, RefusesWhatGmtime64Does)
{
    Zone const zone("UTC");
    for (std::int64_t const seconds : {firstOfYear1 - 1, endOfYear3000 + 1})
    {
        std::tm fields = {};
        EXPECT_EQ(_localtime64_s(&fields, &seconds), EINVAL);
        EXPECT_TRUE(IsNothing(fields));
    }
    std::tm fields = {};
    EXPECT_EQ(_localtime64_s(&fields, nullptr), EINVAL);
    EXPECT_TRUE(IsNothing(fields));
    std::int64_t const seconds = 0;
    EXPECT_EQ(_localtime64_s(nullptr, &seconds), EINVAL);
}

TEST(Mktime64, MakesTheMomentAndBringsTheFieldsIntoTheirRanges)
{
    Zone const zone("UTC");
    std::tm fields = Fields(2021, 14, 32, 25, 61, 61);
    EXPECT_EQ(_mktime64(&fields), 1646445721);
    EXPECT_EQ(Show(fields), "2022-3-5 2:2:1 week 6 year 63");
    fields = Fields(1970, 1, 1, 0, 0, 0);
    EXPECT_EQ(_mktime64(&fields), 0);
    fields = Fields(3000, 12, 31, 23, 59, 59);
    EXPECT_EQ(_mktime64(&fields), endOfYear3000);
}

TEST(Mktime64, RefusesMomentsBefore1970AndAfter3000AndLeavesTheFields)
{
    Zone const zone("UTC");
    std::tm const refused[] = {Fields(1969, 12, 31, 23, 59, 59), Fields(1900, 1, 1, 0, 0, 0),
                               Fields(3001, 1, 1, 0, 0, 0), Fields(3000, 13, 1, 0, 0, 0)};
    for (std::tm const & given : refused)
    {
        std::tm fields = given;
        EXPECT_EQ(_mktime64(&fields), -1);
        EXPECT_EQ(Show(fields), Show(given));
    }
    EXPECT_EQ(_mktime64(nullptr), -1);
}

TEST(Mktime64, RefusesTheFirstHoursOf1970EastOfGreenwich)
{
    Zone const zone("Europe/Berlin");
    std::tm fields = Fields(1970, 1, 1, 0, 59, 59);
    EXPECT_EQ(_mktime64(&fields), -1);
    fields = Fields(1970, 1, 1, 1, 0, 0);
    EXPECT_EQ(_mktime64(&fields), 0);
}

} // namespace kr::test
