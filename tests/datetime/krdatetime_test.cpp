#include <krcore/datetime/krdatetime.h>

#include "tests/datetime/date_state.h"
#include "tests/datetime/stopped_clock.h"
#include "tests/krplatform/datetime/zone.h"

#include <gtest/gtest.h>

namespace kr::test
{

TEST(CKrDateTime, StartsZeroAndValid)
{
    CKrDateTime const moment;
    EXPECT_EQ(StateOf(moment), zeroState);
    EXPECT_TRUE(moment.IsZero());
    EXPECT_FALSE(moment.IsNull());
    EXPECT_EQ(moment.FormatInvariant(), OLESTR("1899-12-30 00:00:00"));
}

TEST(CKrDateTime, KeepsTheWholeValue)
{
    EXPECT_EQ(StateOf(CKrDateTime(COleDateTime(44197.75))), Valid(44197.75));
    EXPECT_EQ(StateOf(CKrDateTime(COleDateTime(-1.25))), Valid(-1.25));
    EXPECT_EQ(StateOf(CKrDateTime(DateWith(COleDateTime::null))), nullState);
    EXPECT_EQ(StateOf(CKrDateTime(DateWith(COleDateTime::invalid))), invalidState);
    CKrDateTime moment;
    EXPECT_EQ(&moment.Set(COleDateTime(44197.75)), &moment);
    EXPECT_EQ(StateOf(moment), Valid(44197.75));
    EXPECT_EQ(StateOf(moment.Set(DateWith(COleDateTime::invalid))), invalidState);
}

TEST(CKrDateTime, IsAMomentInLocalTime)
{
    Zone const zone("America/New_York");
    CTime const time(1615795509); // 08:05:09 UTC
    EXPECT_EQ(CKrDateTime(time).FormatInvariant(), OLESTR("2021-03-15 04:05:09"));
    EXPECT_EQ(StateOf(CKrDateTime(CTime(0))), zeroState);
    EXPECT_EQ(StateOf(CKrDateTime(CTime(std::int64_t{1} << 60))), invalidState);
    CKrDateTime moment;
    EXPECT_EQ(&moment.Set(time), &moment);
    EXPECT_EQ(moment.FormatInvariant(), OLESTR("2021-03-15 04:05:09"));
}

TEST(CKrDateTime, ReplacesItsDateAndLeavesTheTime)
{
    CKrDateTime moment(COleDateTime(44197.75));
    EXPECT_EQ(&moment.SetDate(COleDateTime(44000.25)), &moment);
    EXPECT_EQ(StateOf(moment), Valid(44000.75));
    CKrDate const date(COleDateTime(44100.0));
    EXPECT_EQ(&moment.SetDate(date), &moment);
    EXPECT_EQ(StateOf(moment), Valid(44100.75));
    CKrDateTime const other(COleDateTime(44200.5));
    EXPECT_EQ(&moment.SetDate(other), &moment);
    EXPECT_EQ(StateOf(moment), Valid(44200.75));
    moment.SetDate(moment);
    EXPECT_EQ(StateOf(moment), Valid(44200.75));
    Zone const zone("America/New_York");
    EXPECT_EQ(&moment.SetDate(CTime(1615780799)), &moment); // 14 March in New York, 15 March in UTC
    EXPECT_EQ(StateOf(moment), Valid(44269.75));
    moment.SetDate(CTime(0));
    EXPECT_EQ(StateOf(moment), Valid(0.75));
}

TEST(CKrDateTime, ReplacesItsTimeAndLeavesTheDate)
{
    CKrDateTime moment(COleDateTime(44197.75));
    EXPECT_EQ(&moment.SetTime(COleDateTime(44000.25)), &moment);
    EXPECT_EQ(StateOf(moment), Valid(44197.25));
    CKrTime const time(COleDateTime(0.125));
    EXPECT_EQ(&moment.SetTime(time), &moment);
    EXPECT_EQ(StateOf(moment), Valid(44197.125));
    CKrDateTime const other(COleDateTime(44200.5));
    EXPECT_EQ(&moment.SetTime(other), &moment);
    EXPECT_EQ(StateOf(moment), Valid(44197.5));
    moment.SetTime(moment);
    EXPECT_EQ(StateOf(moment), Valid(44197.5));
    Zone const zone("Asia/Kolkata");
    EXPECT_EQ(&moment.SetTime(CTime(1625097600)), &moment); // 05:30 in Kolkata, midnight in UTC
    EXPECT_EQ(moment.FormatInvariant(), OLESTR("2021-01-01 05:30:00"));
    moment.SetTime(CTime(0));
    EXPECT_EQ(StateOf(moment), Valid(44197.0));
}

TEST(CKrDateTime, LosesDateAndTimeToAPartThatIsNotValid)
{
    CKrDateTime moment(COleDateTime(44197.75));
    moment.SetDate(DateWith(COleDateTime::invalid));
    EXPECT_EQ(StateOf(moment), invalidState);
    moment.Set(COleDateTime(44197.75));
    moment.SetTime(DateWith(COleDateTime::invalid));
    EXPECT_EQ(StateOf(moment), invalidState);
    moment.Set(COleDateTime(44197.75));
    CKrDate date;
    moment.SetDate(date.SetNull());
    EXPECT_EQ(StateOf(moment), nullState);
    moment.Set(COleDateTime(44197.75));
    moment.SetTime(CTime(std::int64_t{1} << 60));
    EXPECT_EQ(StateOf(moment), invalidState);
}

TEST(CKrDateTime, SetNullAndSetZeroLeaveNothing)
{
    CKrDateTime moment(COleDateTime(44197.75));
    EXPECT_EQ(&moment.SetNull(), &moment);
    EXPECT_EQ(StateOf(moment), nullState);
    EXPECT_EQ(&moment.SetZero(), &moment);
    EXPECT_EQ(StateOf(moment), zeroState);
    moment.Set(DateWith(COleDateTime::invalid));
    EXPECT_EQ(StateOf(moment.SetZero()), zeroState);
    moment.Set(COleDateTime(44197.75));
    EXPECT_EQ(StateOf(moment.SetZero()), zeroState);
}

TEST(CKrDateTime, SetZeroDateKeepsTheTime)
{
    CKrDateTime moment(COleDateTime(44197.75));
    EXPECT_EQ(&moment.SetZeroDate(), &moment);
    EXPECT_EQ(StateOf(moment), Valid(0.75));
    moment.Set(COleDateTime(-1.25));
    EXPECT_EQ(StateOf(moment.SetZeroDate()), Valid(-0.25));
    EXPECT_EQ(moment.FormatInvariant(), OLESTR("1899-12-30 06:00:00"));
}

TEST(CKrDateTime, SetZeroTimeKeepsTheDate)
{
    CKrDateTime moment(COleDateTime(44197.75));
    EXPECT_EQ(&moment.SetZeroTime(), &moment);
    EXPECT_EQ(StateOf(moment), Valid(44197.0));
    moment.Set(COleDateTime(-1.25));
    EXPECT_EQ(StateOf(moment.SetZeroTime()), Valid(-1.0));
}

TEST(CKrDateTime, SetZeroDateAndSetZeroTimeMakeNullAndInvalidZero)
{
    for (COleDateTime::DateTimeStatus const status : {COleDateTime::null, COleDateTime::invalid})
    {
        CKrDateTime moment(DateWith(status));
        EXPECT_EQ(StateOf(moment.SetZeroDate()), zeroState);
        moment.Set(DateWith(status));
        EXPECT_EQ(StateOf(moment.SetZeroTime()), zeroState);
    }
}

TEST(CKrDateTime, KnowsNowInLocalTime)
{
    Zone const zone("America/New_York");
    StoppedClock clock(1615795509); // 08:05:09 UTC
    CKrDateTime const made = CKrDateTime::Now();
    EXPECT_EQ(made.FormatInvariant(), OLESTR("2021-03-15 04:05:09"));
    CKrDateTime set;
    EXPECT_EQ(&set.SetNull().SetNow(), &set);
    EXPECT_EQ(StateOf(set), StateOf(made));
    clock.Set(1615795510);
    EXPECT_EQ(set.SetNow().FormatInvariant(), OLESTR("2021-03-15 04:05:10"));
}

TEST(CKrDateTime, TakesTheFirstSecondOf1970ForTheZeroDateAlsoFromTheClock)
{
    StoppedClock const clock(0);
    CKrDateTime const now = CKrDateTime::Now();
    EXPECT_EQ(StateOf(now), zeroState);
}

TEST(CKrDateTime, GivesItsParts)
{
    CKrDateTime moment(COleDateTime(44197.75));
    EXPECT_EQ(StateOf(moment.AsDate()), Valid(44197.0));
    EXPECT_EQ(StateOf(moment.AsTime()), Valid(0.75));
    moment.Set(COleDateTime(-1.25));
    EXPECT_EQ(StateOf(moment.AsDate()), Valid(-1.0));
    EXPECT_EQ(StateOf(moment.AsTime()), Valid(-0.25));
    moment.SetNull();
    EXPECT_EQ(StateOf(moment.AsDate()), nullState);
    EXPECT_EQ(StateOf(moment.AsTime()), nullState);
    moment.Set(DateWith(COleDateTime::invalid));
    EXPECT_EQ(StateOf(moment.AsDate()), invalidState);
    EXPECT_EQ(StateOf(moment.AsTime()), invalidState);
}

} // namespace kr::test
