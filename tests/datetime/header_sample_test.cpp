// The samples of the headers, and the table of texts in docs/datetime.md.
#include <krcore/datetime/krdatetime.h>
#include <krcore/datetime/krdatetimerange.h>

#include "tests/datetime/date_state.h"

#include <gtest/gtest.h>

namespace kr::test
{

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

TEST(DateTimeHeaders, SamplesOfTheHeadersGiveWhatTheySay)
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
