#include <krcore/datetime/krdatetime.h>

#include "tests/datetime/date_state.h"
#include "tests/datetime/stopped_clock.h"
#include "tests/krplatform/datetime/zone.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

template <class T>
concept HasDates = requires(T value)
{
    value.SetNull();
}
|| requires(T value) { value.SetToday(); }
|| requires(T value) { value.SetZeroDate(); }
|| requires(T value) { value.AsTime(); };

} // namespace

static_assert(!HasDates<CKrTime>);

TEST(CKrTime, StartsZero)
{
    CKrTime const time;
    EXPECT_EQ(StateOf(time), zeroState);
    EXPECT_TRUE(time.IsZero());
}

TEST(CKrTime, KeepsTheFractionOnly)
{
    EXPECT_EQ(StateOf(CKrTime(COleDateTime(44197.75))), Valid(0.75));
    EXPECT_EQ(StateOf(CKrTime(COleDateTime(-1.25))), Valid(-0.25)); // 6:00, as 0.25 is
    EXPECT_EQ(StateOf(CKrTime(COleDateTime(44197.0))), Valid(0.0));
    EXPECT_EQ(StateOf(CKrTime(DateWith(COleDateTime::null))), nullState);
    EXPECT_EQ(StateOf(CKrTime(DateWith(COleDateTime::invalid))), invalidState);
}

TEST(CKrTime, IsTheTimeOfAMomentInLocalTime)
{
    Zone const zone("Asia/Kolkata");
    CTime const time(1625097600); // 05:30 in Kolkata
    EXPECT_EQ(CKrTime(time).FormatInvariant(), OLESTR("05:30:00"));
    EXPECT_EQ(StateOf(CKrTime(CTime(0))), zeroState);
    EXPECT_EQ(StateOf(CKrTime(CTime(std::int64_t{1} << 60))), invalidState);
    CKrTime set;
    EXPECT_EQ(&set.Set(time), &set);
    EXPECT_EQ(set.FormatInvariant(), OLESTR("05:30:00"));
}

TEST(CKrTime, SetReplacesTheTimeAndLeavesDaysThatItHas)
{
    CKrTime time(COleDateTime(0.5));
    EXPECT_EQ(&time.Set(COleDateTime(44197.75)), &time);
    EXPECT_EQ(StateOf(time), Valid(0.75));
    time.Set(CKrDateTime(COleDateTime(44000.0)));
    time.Set(COleDateTime(12.25));
    EXPECT_EQ(StateOf(time), Valid(44000.25));
    time.Set(DateWith(COleDateTime::invalid));
    EXPECT_EQ(StateOf(time), invalidState);
}

TEST(CKrTime, SetOfADateTimeReplacesTheDateAndNotTheTime)
{
    CKrTime time(COleDateTime(0.5));
    CKrDateTime const moment(COleDateTime(44197.75));
    EXPECT_EQ(&time.Set(moment), &time);
    EXPECT_EQ(StateOf(time), Valid(44197.5));
    EXPECT_EQ(time.FormatInvariant(), OLESTR("12:00:00"));
    time = moment.AsTime();
    EXPECT_EQ(StateOf(time), Valid(0.75));
}

TEST(CKrTime, SetZeroIsValidWhateverTheValueWas)
{
    CKrTime time(COleDateTime(0.5));
    EXPECT_EQ(&time.SetZero(), &time);
    EXPECT_EQ(StateOf(time), zeroState);
    time.Set(DateWith(COleDateTime::invalid));
    EXPECT_EQ(StateOf(time.SetZero()), zeroState);
    time.Set(CKrDateTime(COleDateTime(44197.75)));
    EXPECT_EQ(StateOf(time.SetZero()), zeroState);
}

TEST(CKrTime, KnowsTheTimeNowInLocalTime)
{
    Zone const zone("Asia/Kolkata");
    StoppedClock const clock(1625097600); // 05:30
    CKrTime const made = CKrTime::Now();
    EXPECT_TRUE(made.IsValid());
    EXPECT_EQ(StateOf(made.AsDate()), Valid(0.0));
    EXPECT_EQ(made.FormatInvariant(), OLESTR("05:30:00"));
    CKrTime set(COleDateTime(0.75));
    EXPECT_EQ(&set.SetNow(), &set);
    EXPECT_EQ(StateOf(set), StateOf(made));
}

TEST(CKrTime, NowLeavesDaysThatItHasAndTakesABadStatusAway)
{
    Zone const zone("UTC");
    StoppedClock const clock(1625097600 + 6 * 3600);
    CKrTime time;
    time.Set(CKrDateTime(COleDateTime(44197.75)));
    EXPECT_EQ(StateOf(time.SetNow()), Valid(44197.25));
    time.Set(DateWith(COleDateTime::null));
    EXPECT_EQ(StateOf(time.SetNow()), Valid(0.25));
}

TEST(CKrTime, GivesItsDateAndTheWholeValue)
{
    CKrTime time(COleDateTime(0.5));
    EXPECT_EQ(StateOf(time.AsDate()), Valid(0.0));
    EXPECT_EQ(StateOf(time.AsDateTime()), Valid(0.5));
    time.Set(CKrDateTime(COleDateTime(44197.75)));
    EXPECT_EQ(StateOf(time.AsDate()), Valid(44197.0));
    EXPECT_EQ(StateOf(time.AsDateTime()), Valid(44197.5));
    time.Set(DateWith(COleDateTime::null));
    EXPECT_EQ(StateOf(time.AsDate()), nullState);
    EXPECT_EQ(StateOf(time.AsDateTime()), nullState);
}

} // namespace kr::test
