// Local time with daylight saving: each zone in a child process of its own.
#include <krcore/datetime/krdatetime.h>
#include <krcore/datetime/krdatetimeutils.h>

#include "tests/datetime/date_state.h"
#include "tests/support/child_process.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace kr::test
{

namespace
{

constexpr std::int64_t halfHour = 1800;
constexpr std::int64_t firstSecondOf2021 = 1609459200;
constexpr std::int64_t firstSecondOf2022 = 1640995200;

/// A moment and what local clocks show.
struct Moment
{
    std::int64_t seconds;
    char const * local;
};

/// What is known of a zone's year 2021. The clock goes forward and back once each.
struct ZoneFacts
{
    char const * name;
    Moment lastBeforeForward;
    Moment firstAfterForward;
    Moment lastBeforeBack;
    Moment firstAfterBack;
    std::int64_t shift; ///< by which the clock goes back
    Moment january;     ///< in the other half of the year than July
    Moment july;
    Moment januaryWithTimeOfJuly;
    Moment julyWithTimeOfJanuary;
    Moment endOfOctober;
};

// clang-format off
constexpr ZoneFacts s_zones[] = {
    { "Europe/Berlin",
      { 1616893199, "2021-03-28 01:59:59" }, { 1616893200, "2021-03-28 03:00:00" },
      { 1635641999, "2021-10-31 02:59:59" }, { 1635642000, "2021-10-31 02:00:00" }, 3600,
      { 1610695800, "2021-01-15 08:30:00" }, { 1626372309, "2021-07-15 20:05:09" },
      { 1610737509, "2021-01-15 20:05:09" }, { 1626330600, "2021-07-15 08:30:00" },
      { 1635631200, "2021-10-31 00:00:00" } },
    { "America/New_York",
      { 1615705199, "2021-03-14 01:59:59" }, { 1615705200, "2021-03-14 03:00:00" },
      { 1636264799, "2021-11-07 01:59:59" }, { 1636264800, "2021-11-07 01:00:00" }, 3600,
      { 1610717400, "2021-01-15 08:30:00" }, { 1626393909, "2021-07-15 20:05:09" },
      { 1610759109, "2021-01-15 20:05:09" }, { 1626352200, "2021-07-15 08:30:00" },
      { 1635652800, "2021-10-31 00:00:00" } },
    { "Australia/Lord_Howe",
      { 1633188599, "2021-10-03 01:59:59" }, { 1633188600, "2021-10-03 02:30:00" },
      { 1617461999, "2021-04-04 01:59:59" }, { 1617462000, "2021-04-04 01:30:00" }, 1800,
      { 1610659800, "2021-01-15 08:30:00" }, { 1626341709, "2021-07-15 20:05:09" },
      { 1610701509, "2021-01-15 20:05:09" }, { 1626300000, "2021-07-15 08:30:00" },
      { 1635598800, "2021-10-31 00:00:00" } },
};
// clang-format on

ZoneFacts const & FactsOfThisZone()
{
    for (ZoneFacts const & zone : s_zones)
    {
        if (std::string(zone.name) == std::getenv("TZ"))
            return zone;
    }
    throw "TZ names none of the zones";
}

std::string Local(CTime const & time) { return Narrow(CKrDateTime(time).FormatInvariant().GetString()); }

/// The moment of local time in the form of files.
CTime MomentOf(char const * local)
{
    CKrDateTime moment;
    moment.Parse(CString(local));
    return moment;
}

void RunInEachZone(char const * test)
{
    for (ZoneFacts const & zone : s_zones)
    {
        ChildResult const result = RunTestInChild(test, {{"TZ", zone.name}});
        EXPECT_EQ(result.exitStatus, 0) << zone.name << '\n' << result.output;
        EXPECT_NE(result.output.find("[  PASSED  ] 1 test"), std::string::npos) << result.output;
    }
}

} // namespace

TEST(CKrDateTimeZones, ShowWhatTheClocksShow) { RunInEachZone("CKrDateTimeZones.DISABLED_ShowWhatTheClocksShow"); }

TEST(CKrDateTimeZones, DISABLED_ShowWhatTheClocksShow)
{
    ZoneFacts const & zone = FactsOfThisZone();
    for (Moment const & moment : {zone.lastBeforeForward, zone.firstAfterForward, zone.lastBeforeBack,
                                  zone.firstAfterBack, zone.january, zone.july})
    {
        CTime const time(moment.seconds);
        EXPECT_EQ(Local(time), moment.local);
        std::string const local = moment.local;
        EXPECT_EQ(Narrow(CKrDate(time).FormatInvariant().GetString()), local.substr(0, 10));
        EXPECT_EQ(Narrow(CKrTime(time).FormatInvariant().GetString()), local.substr(11));
    }
}

TEST(CKrDateTimeZones, LocalTimeIsAMomentAgain) { RunInEachZone("CKrDateTimeZones.DISABLED_LocalTimeIsAMomentAgain"); }

TEST(CKrDateTimeZones, DISABLED_LocalTimeIsAMomentAgain)
{
    ZoneFacts const & zone = FactsOfThisZone();
    for (Moment const & moment :
         {zone.lastBeforeForward, zone.firstAfterForward, zone.january, zone.july, zone.endOfOctober})
        EXPECT_EQ(MomentOf(moment.local).GetTime(), moment.seconds) << moment.local;
}

TEST(CKrDateTimeZones, OnlyTimesThatComeTwiceMayBeAnotherMoment)
{
    RunInEachZone("CKrDateTimeZones.DISABLED_OnlyTimesThatComeTwiceMayBeAnotherMoment");
}

TEST(CKrDateTimeZones, DISABLED_OnlyTimesThatComeTwiceMayBeAnotherMoment)
{
    std::int64_t const shift = FactsOfThisZone().shift;
    std::int64_t others = 0;
    for (std::int64_t seconds = firstSecondOf2021; seconds < firstSecondOf2022; seconds += halfHour)
    {
        CTime const back = CKrDateTime(CTime(seconds));
        std::int64_t const difference = std::abs(back.GetTime() - seconds);
        EXPECT_TRUE(difference == 0 || difference == shift) << seconds;
        others += difference == shift;
    }
    EXPECT_EQ(others, shift / halfHour) << "either the first or the second of each two";
}

TEST(CKrDateTimeZones, ATimeThatIsLeftOutIsAMomentBesideIt)
{
    RunInEachZone("CKrDateTimeZones.DISABLED_ATimeThatIsLeftOutIsAMomentBesideIt");
}

TEST(CKrDateTimeZones, DISABLED_ATimeThatIsLeftOutIsAMomentBesideIt)
{
    ZoneFacts const & zone = FactsOfThisZone();
    CKrDateTime leftOut{CTime(zone.lastBeforeForward.seconds)};
    leftOut.SetTime(COleDateTime(1899, 12, 30, 2, 15, 0));
    CTime const time = leftOut;
    EXPECT_LE(std::abs(time.GetTime() - zone.firstAfterForward.seconds), zone.shift);
}

TEST(CKrDateTimeZones, TheCalendarKeepsTheClockOfTheOtherHalfOfTheYear)
{
    RunInEachZone("CKrDateTimeZones.DISABLED_TheCalendarKeepsTheClockOfTheOtherHalfOfTheYear");
}

TEST(CKrDateTimeZones, DISABLED_TheCalendarKeepsTheClockOfTheOtherHalfOfTheYear)
{
    ZoneFacts const & zone = FactsOfThisZone();
    CKrDateTimeUtils const utils;
    CTime const january(zone.january.seconds);
    CTime const july(zone.july.seconds);
    CTime target = july;
    EXPECT_TRUE(utils.SetDate(target, january));
    EXPECT_EQ(target.GetTime(), zone.januaryWithTimeOfJuly.seconds) << Local(target);
    target = july;
    EXPECT_TRUE(utils.SetTime(target, january));
    EXPECT_EQ(target.GetTime(), zone.julyWithTimeOfJanuary.seconds) << Local(target);
    EXPECT_TRUE(utils.EndOfMonth(MomentOf("2021-10-02 12:00:00"), target));
    EXPECT_EQ(target.GetTime(), zone.endOfOctober.seconds) << Local(target);
    target = MomentOf("2021-10-31 12:00:00"); // in Berlin the clock goes back this morning
    EXPECT_TRUE(utils.AsDate(target));
    EXPECT_EQ(target.GetTime(), zone.endOfOctober.seconds) << Local(target);
    int days = 0;
    EXPECT_TRUE(utils.DaysInMonth(target, days));
    EXPECT_EQ(days, 31);
    int week = 0;
    EXPECT_TRUE(utils.CalendarWeek(MomentOf("2021-10-31 23:59:59"), week)); // a Sunday
    EXPECT_EQ(week, 43);
    EXPECT_TRUE(utils.CalendarWeek(MomentOf("2021-11-01 00:00:00"), week));
    EXPECT_EQ(week, 44);
}

TEST(CKrDateTimeZones, AMidnightThatIsLeftOutIsAMomentBesideIt)
{
    ChildResult const result = RunTestInChild("CKrDateTimeZones.DISABLED_AMidnightThatIsLeftOutIsAMomentBesideIt",
                                              {{"TZ", "America/Sao_Paulo"}});
    EXPECT_EQ(result.exitStatus, 0) << result.output;
    EXPECT_NE(result.output.find("[  PASSED  ] 1 test"), std::string::npos) << result.output;
}

TEST(CKrDateTimeZones, DISABLED_AMidnightThatIsLeftOutIsAMomentBesideIt)
{
    constexpr std::int64_t oneInTheMorning = 1508036400; // the first second of 15 October 2017
    CTime time(oneInTheMorning + 11 * 3600);
    ASSERT_EQ(Local(time), "2017-10-15 12:00:00");
    EXPECT_TRUE(CKrDateTimeUtils().AsDate(time));
    EXPECT_LE(std::abs(time.GetTime() - oneInTheMorning), 3600) << Local(time);
}

} // namespace kr::test
