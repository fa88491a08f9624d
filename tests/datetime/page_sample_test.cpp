// The samples of docs/datetime.md and of the headers.
#include <krcore/datetime/krdatetime.h>
#include <krcore/datetime/krdatetimerange.h>
#include <krcore/datetime/krdatetimeutils.h>
#include <krcore/datetime/krsynchronizedtime.h>

#include "tests/datetime/date_state.h"
#include "tests/datetime/stopped_clock.h"

#include <gtest/gtest.h>

namespace kr::test
{

TEST(DateTimePage, SampleOfDatesGivesWhatItSays)
{
    CKrDateTime moment;
    EXPECT_EQ(StateOf(moment), zeroState);
    moment.Parse(OLESTR("2021-01-01 18:00:00"));
    EXPECT_EQ(moment.AsDate().FormatInvariant(), OLESTR("2021-01-01"));
    EXPECT_EQ(moment.AsTime().FormatInvariant(), OLESTR("18:00:00"));
    EXPECT_EQ(moment.Format(1031), OLESTR("01.01.2021 18:00:00"));
    moment.SetDate(COleDateTime(2024, 2, 29, 0, 0, 0));
    EXPECT_EQ(moment.FormatInvariant(), OLESTR("2024-02-29 18:00:00"));
    moment.SetNull();
    EXPECT_EQ(moment.FormatInvariant(), OLESTR(""));

    CKrDate const day = moment.SetNow().AsDate();
    CKrDate copy(day);
    EXPECT_TRUE(copy.IsZero());
    copy = day;
    EXPECT_FALSE(copy.IsZero());
}

TEST(DateTimePage, SampleOfWeeksGivesWhatItSays)
{
    CKrDateTimeUtils const utils;
    int week = 0;
    utils.CalendarWeek(COleDateTime(2026, 1, 1, 0, 0, 0), week);
    EXPECT_EQ(week, 1);
    COleDateTime monday, sunday;
    utils.DateOfCalendarWeek(week, 2026, monday, sunday);
    EXPECT_EQ(StateOf(monday), StateOf(COleDateTime(2025, 12, 29, 0, 0, 0)));
    EXPECT_EQ(StateOf(sunday), StateOf(COleDateTime(2026, 1, 4, 0, 0, 0)));
}

TEST(DateTimePage, SampleOfAClockGivesWhatItSays)
{
    StoppedClock clock(1615795509);
    CTime const timeOfTheServer(1615795509 + 300);
    CKrSynchronizedTime server(timeOfTheServer);
    CKrSynchronizedTime mine;
    EXPECT_EQ(mine.GetSyncTime().GetTime(), 1615795509);
    mine.SetInheritedTime(&server);
    clock.Set(1615795509 + 7);
    EXPECT_EQ(mine.GetSyncTime().GetTime(), 1615795509 + 307);
}

TEST(DateTimePage, TableOfTextsGivesWhatItSays)
{
    COleDateTime const evening(2021, 3, 15, 20, 5, 9);
    CKrDate const date(evening);
    CKrTime const time(evening);
    CKrDateTime const both(evening);
    EXPECT_EQ(date.FormatInvariant(), OLESTR("2021-03-15"));
    EXPECT_EQ(time.FormatInvariant(), OLESTR("20:05:09"));
    EXPECT_EQ(both.FormatInvariant(), OLESTR("2021-03-15 20:05:09"));
    EXPECT_EQ(date.Format(1033), OLESTR("3/15/2021"));
    EXPECT_EQ(time.Format(1033), OLESTR("8:05:09 PM"));
    EXPECT_EQ(both.Format(1033), OLESTR("3/15/2021 8:05:09 PM"));
    EXPECT_EQ(date.Format(OLESTR("%d.%m. %H:%M")), OLESTR("15.03. 00:00"));
    EXPECT_EQ(time.Format(OLESTR("%d.%m. %H:%M")), OLESTR("30.12. 20:05"));
    EXPECT_EQ(both.Format(OLESTR("%d.%m. %H:%M")), OLESTR("15.03. 20:05"));
}

TEST(DateTimePage, SamplesOfTheHeadersGiveWhatTheySay)
{
    CKrDate const date(COleDateTime(44197.75));
    EXPECT_EQ(StateOf(date), Valid(44197.0));
    EXPECT_EQ(date.FormatInvariant(), OLESTR("2021-01-01"));
    CKrDate const copy(date);
    EXPECT_EQ(StateOf(copy), zeroState);

    CKrTime const time(COleDateTime(44197.75));
    EXPECT_EQ(StateOf(time), Valid(0.75));
    EXPECT_EQ(time.FormatInvariant(), OLESTR("18:00:00"));
    EXPECT_EQ(time.AsDateTime().FormatInvariant(), OLESTR("1899-12-30 18:00:00"));

    CKrDateTime moment(COleDateTime(44197.75));
    EXPECT_EQ(moment.FormatInvariant(), OLESTR("2021-01-01 18:00:00"));
    EXPECT_EQ(moment.SetDate(COleDateTime(44000.25)).FormatInvariant(), OLESTR("2020-06-18 18:00:00"));

    CKrDateTimeRange range;
    range.SetLowerBound(COleDateTime(44197.0));
    range.SetUpperBound(COleDateTime(44197.0));
    EXPECT_EQ(StateOf(range.GetLowerBound()), Valid(44197.0));
    EXPECT_EQ(StateOf(range.GetUpperBound()), zeroState);
    EXPECT_EQ(StateOf(CKrDateTimeRange(range).GetLowerBound()), zeroState);
}

} // namespace kr::test
