// Local time in zones with daylight saving.
#include <krplatform/datetime/clock.h>

#include "tests/krplatform/datetime/zone.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kr::test
{

namespace
{

/// Local fields, with the zone's name and offset.
std::string Local(std::int64_t seconds)
{
    std::tm fields = {};
    if (_localtime64_s(&fields, &seconds) != 0)
        return "refused";
    WCHAR text[64];
    wcsftime(text, 64, OLESTR("%Y-%m-%d %H:%M:%S %z %Z"), &fields);
    return Narrow(text);
}

std::int64_t Moment(int year, int month, int day, int hour, int minute, int daylightSaving = -1)
{
    std::tm fields = {};
    fields.tm_year = year - 1900;
    fields.tm_mon = month - 1;
    fields.tm_mday = day;
    fields.tm_hour = hour;
    fields.tm_min = minute;
    fields.tm_isdst = daylightSaving;
    return _mktime64(&fields);
}

struct Row
{
    std::int64_t seconds;
    char const * local;
};

// Both clocks of 2021 go forward and back at these moments.
// clang-format off
constexpr Row s_berlin[] = {
    { 1616893199, "2021-03-28 01:59:59 +0100 CET"  },
    { 1616893200, "2021-03-28 03:00:00 +0200 CEST" },
    { 1635641999, "2021-10-31 02:59:59 +0200 CEST" },
    { 1635642000, "2021-10-31 02:00:00 +0100 CET"  },
};
constexpr Row s_newYork[] = {
    { 1615705199, "2021-03-14 01:59:59 -0500 EST"  },
    { 1615705200, "2021-03-14 03:00:00 -0400 EDT"  },
    { 1636264799, "2021-11-07 01:59:59 -0400 EDT"  },
    { 1636264800, "2021-11-07 01:00:00 -0500 EST"  },
};
// clang-format on

} // namespace

TEST(LocalTime, FollowsDaylightSavingInBerlin)
{
    Zone const zone("Europe/Berlin");
    for (Row const & row : s_berlin)
        EXPECT_EQ(Local(row.seconds), row.local);
}

TEST(LocalTime, FollowsDaylightSavingInNewYork)
{
    Zone const zone("America/New_York");
    for (Row const & row : s_newYork)
        EXPECT_EQ(Local(row.seconds), row.local);
}

TEST(LocalTime, TakesNegativeTimes)
{
    Zone const zone("America/New_York");
    EXPECT_EQ(Local(-1), "1969-12-31 18:59:59 -0500 EST");
    EXPECT_EQ(Local(-86400 * 200), "1969-06-14 20:00:00 -0400 EDT");
}

TEST(LocalTime, HasNoDaylightSavingInTokyoAndHalfHoursInKolkata)
{
    {
        Zone const zone("Asia/Tokyo");
        EXPECT_EQ(Local(1625097600), "2021-07-01 09:00:00 +0900 JST");
    }
    {
        Zone const zone("Asia/Kolkata");
        EXPECT_EQ(Local(1625097600), "2021-07-01 05:30:00 +0530 IST");
    }
}

TEST(LocalTime, SeesAChangeOfTheZone)
{
    Zone const outer("Europe/Berlin");
    EXPECT_EQ(Local(0), "1970-01-01 01:00:00 +0100 CET");
    setenv("TZ", "America/New_York", 1); // without tzset
    EXPECT_EQ(Local(0), "1969-12-31 19:00:00 -0500 EST");
}

TEST(LocalTime, SeesTheZoneComeBackAfterOthersLookedAtAnother)
{
    Zone const outer("Europe/Berlin");
    EXPECT_EQ(Local(0), "1970-01-01 01:00:00 +0100 CET");
    setenv("TZ", "America/New_York", 1);
    EXPECT_EQ(Moment(1970, 1, 1, 0, 0), 18000);
    setenv("TZ", "Europe/Berlin", 1);
    EXPECT_EQ(Local(0), "1970-01-01 01:00:00 +0100 CET");
    setenv("TZ", "America/New_York", 1);
    tzset(); // by another part of the program
    setenv("TZ", "Europe/Berlin", 1);
    EXPECT_EQ(Local(0), "1970-01-01 01:00:00 +0100 CET");
}

TEST(LocalTime, SeesTheMachinesZoneComeBack)
{
    Zone const outer("Europe/Berlin");
    unsetenv("TZ");
    std::string const machine = Local(0);
    for (int round = 0; round < 2; ++round)
    {
        setenv("TZ", "KRT-11:07", 1);
        EXPECT_EQ(Local(0), "1970-01-01 11:07:00 +1107 KRT");
        unsetenv("TZ");
        EXPECT_EQ(Local(0), machine);
        setenv("TZ", "KRT-11:07", 1);
        EXPECT_EQ(Moment(1970, 1, 1, 11, 8), 60);
        unsetenv("TZ");
        EXPECT_EQ(Local(0), machine);
        EXPECT_EQ(Local(0), machine);
    }
}

TEST(LocalTime, SeesATextThatIsWrittenOver)
{
    Zone const outer("Europe/Berlin");
    char variable[] = "TZ=Asia/Tokyo";
    putenv(variable);
    EXPECT_EQ(Local(0), "1970-01-01 09:00:00 +0900 JST");
    std::copy_n("Dubai", 5, variable + 8);
    EXPECT_EQ(Local(0), "1970-01-01 04:00:00 +0400 +04");
    unsetenv("TZ");
}

TEST(LocalTime, NamesTheZoneAsAtThatTime)
{
    Zone const zone("Europe/Berlin");
    std::int64_t const longAgo = -5'000'000'000;
    EXPECT_EQ(Local(longAgo), "1811-07-23 16:00:08 +0053 LMT");
    std::tm summer = {};
    summer.tm_year = 121;
    summer.tm_mon = 6;
    summer.tm_mday = 15;
    WCHAR name[8];
    wcsftime(name, 8, OLESTR("%Z"), &summer);
    EXPECT_EQ(Narrow(name), "CET");
    summer.tm_isdst = 1;
    wcsftime(name, 8, OLESTR("%Z"), &summer);
    EXPECT_EQ(Narrow(name), "CEST");
}

TEST(Mktime64, LeavesDaylightSavingToTheZoneOrTakesIt)
{
    Zone const zone("Europe/Berlin");
    EXPECT_EQ(Moment(2021, 1, 15, 12, 0), 1610708400);
    EXPECT_EQ(Moment(2021, 7, 15, 12, 0), 1626343200);
    EXPECT_EQ(Moment(2021, 10, 31, 2, 30, 1), 1635640200); // the hour comes twice: first in daylight saving,
    EXPECT_EQ(Moment(2021, 10, 31, 2, 30, 0), 1635643800); // then in standard time
    EXPECT_EQ(Moment(2021, 7, 15, 12, 0, 0), 1626346800);
}

TEST(Mktime64, ReadsBackWhatLocaltime64Gives)
{
    for (char const * const name : {"Europe/Berlin", "America/New_York", "Australia/Lord_Howe"})
    {
        Zone const zone(name);
        for (std::int64_t seconds = 86400; seconds < 4102444800; seconds += 86400 * 31 + 3607)
        {
            std::tm fields = {};
            ASSERT_EQ(_localtime64_s(&fields, &seconds), 0);
            ASSERT_EQ(_mktime64(&fields), seconds) << name;
        }
    }
}

} // namespace kr::test
