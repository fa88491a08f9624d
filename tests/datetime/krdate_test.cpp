#include <krcore/datetime/krdatetime.h>

#include "tests/datetime/date_state.h"
#include "tests/datetime/stopped_clock.h"
#include "tests/krplatform/datetime/zone.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

/// A date that has a fraction, as only a derived class can make it.
class DateWithTime : public CKrDate
{
public:
    explicit DateWithTime(double value) { SetVal(COleDateTime(value)); }
};

template <class T>
concept HasTimes = requires(T value)
{
    value.SetNow();
}
|| requires(T value) { value.SetZeroTime(); }
|| requires(T value) { value.AsDate(); }
|| requires(T value) { T::Now(); };

} // namespace

static_assert(!HasTimes<CKrDate>);

TEST(CKrDate, StartsZero)
{
    CKrDate const date;
    EXPECT_EQ(StateOf(date), zeroState);
    EXPECT_TRUE(date.IsZero());
}

TEST(CKrDate, KeepsWholeDaysOnly)
{
    EXPECT_EQ(StateOf(CKrDate(COleDateTime(44197.75))), Valid(44197.0));
    EXPECT_EQ(StateOf(CKrDate(COleDateTime(-1.25))), Valid(-1.0));
    EXPECT_EQ(StateOf(CKrDate(COleDateTime(0.75))), Valid(0.0));
    EXPECT_EQ(StateOf(CKrDate(DateWith(COleDateTime::null))), nullState);
    EXPECT_EQ(StateOf(CKrDate(DateWith(COleDateTime::invalid))), invalidState);
}

TEST(CKrDate, IsTheDayOfAMomentInLocalTime)
{
    Zone const zone("America/New_York");
    CTime const time(1615780800); // 15 March 2021, 04:00 UTC: midnight in New York
    EXPECT_EQ(StateOf(CKrDate(time)), Valid(44270.0));
    EXPECT_EQ(StateOf(CKrDate(time - CTimeSpan(1))), Valid(44269.0));
    EXPECT_EQ(StateOf(CKrDate(CTime(0))), zeroState);
    EXPECT_EQ(StateOf(CKrDate(CTime(std::int64_t{1} << 60))), invalidState);
    CKrDate date;
    EXPECT_EQ(&date.Set(time), &date);
    EXPECT_EQ(StateOf(date), Valid(44270.0));
    date.Set(CTime(0));
    EXPECT_EQ(StateOf(date), zeroState);
}

TEST(CKrDate, SetReplacesTheDate)
{
    CKrDate date(COleDateTime(44197.0));
    EXPECT_EQ(&date.Set(COleDateTime(44000.25)), &date);
    EXPECT_EQ(StateOf(date), Valid(44000.0));
    CKrDateTime const moment(COleDateTime(44100.5));
    EXPECT_EQ(&date.Set(moment), &date);
    EXPECT_EQ(StateOf(date), Valid(44100.0));
    date.Set(DateWith(COleDateTime::invalid));
    EXPECT_EQ(StateOf(date), invalidState);
    date.Set(moment);
    EXPECT_EQ(StateOf(date), Valid(44100.0));
    CKrDateTime null;
    date.Set(null.SetNull());
    EXPECT_EQ(StateOf(date), nullState);
}

TEST(CKrDate, LeavesAFractionThatItHas)
{
    DateWithTime date(44197.75);
    date.Set(COleDateTime(44000.25));
    EXPECT_EQ(StateOf(date), Valid(44000.75));
    date.Parse(OLESTR("3/15/2021 6:00 AM"));
    EXPECT_EQ(StateOf(date), Valid(44270.75));
    StoppedClock const clock(1615795509);
    EXPECT_EQ(StateOf(date.SetToday()), Valid(44270.75));
}

TEST(CKrDate, SetNullIsNullAndNotValid)
{
    CKrDate date(COleDateTime(44197.0));
    EXPECT_EQ(&date.SetNull(), &date);
    EXPECT_EQ(StateOf(date), nullState);
    EXPECT_TRUE(date.IsNull());
}

TEST(CKrDate, SetZeroMakesTheDateInvalid)
{
    CKrDate date(COleDateTime(44197.0));
    EXPECT_EQ(&date.SetZero(), &date);
    EXPECT_FALSE(date.IsValid());
    EXPECT_FALSE(date.IsZero());
    EXPECT_FALSE(date.IsNull());
    EXPECT_EQ(date.FormatInvariant(), OLESTR(""));
    date.Set(COleDateTime(44197.0));
    EXPECT_EQ(StateOf(date), Valid(44197.0));
}

TEST(CKrDate, KnowsTodayInLocalTime)
{
    Zone const zone("America/New_York");
    StoppedClock clock(1615780799); // the last second of 14 March
    CKrDate const before = CKrDate::Today();
    EXPECT_EQ(StateOf(before), Valid(44269.0));
    clock.Set(1615780800);
    CKrDate const after = CKrDate::Today();
    EXPECT_EQ(StateOf(after), Valid(44270.0));
    CKrDate set(COleDateTime(7.0));
    EXPECT_EQ(&set.SetToday(), &set);
    EXPECT_EQ(StateOf(set), Valid(44270.0));
}

TEST(CKrDate, TodayTakesTheNullStatusAway)
{
    CKrDate date;
    date.SetNull();
    date.SetToday();
    EXPECT_TRUE(date.IsValid());
}

TEST(CKrDate, GivesItsTimeAndTheWholeValue)
{
    CKrDate const date(COleDateTime(44197.75));
    EXPECT_EQ(StateOf(date.AsTime()), Valid(0.0));
    EXPECT_EQ(StateOf(date.AsDateTime()), Valid(44197.0));
    DateWithTime const withTime(44197.75);
    EXPECT_EQ(StateOf(withTime.AsTime()), Valid(0.75));
    EXPECT_EQ(StateOf(withTime.AsDateTime()), Valid(44197.75));
    EXPECT_EQ(StateOf(CKrDate().SetNull().AsTime()), nullState);
    EXPECT_EQ(StateOf(CKrDate().SetZero().AsDateTime()), invalidState);
}

} // namespace kr::test
