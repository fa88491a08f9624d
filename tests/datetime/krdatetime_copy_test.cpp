// Copies of dates: the constructor gives the zero value, so everything that hands a date on builds it in place.
#include <krcore/datetime/krdatetime.h>

#include "tests/datetime/date_state.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace kr::test
{

namespace
{

/// 1 January 2021, 18:00, as a date, a time of day and both.
CKrDate Date() { return CKrDate(COleDateTime(44197.75)); }
CKrTime Time() { return CKrTime(COleDateTime(44197.75)); }
CKrDateTime Moment() { return CKrDateTime(COleDateTime(44197.75)); }

template <class Value>
void ExpectCopiesAreZero(Value const & source)
{
    DateState const before = StateOf(source);
    Value const copy(source);
    EXPECT_EQ(StateOf(copy), zeroState);
    Value const another = source;
    EXPECT_EQ(StateOf(another), zeroState);
    Value movable;
    movable = source;
    Value const moved(std::move(movable));
    EXPECT_EQ(StateOf(moved), zeroState);
    EXPECT_EQ(StateOf(source), before);
}

template <class Value>
void ExpectAssignmentCopies(Value const & source)
{
    Value target(COleDateTime(7.0));
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(StateOf(target), StateOf(source));
    Value other;
    EXPECT_EQ(&other.Set(source), &other);
    EXPECT_EQ(StateOf(other), StateOf(source));
    target = static_cast<Value const &>(target);
    EXPECT_EQ(StateOf(target), StateOf(source));
    target.Set(target);
    EXPECT_EQ(StateOf(target), StateOf(source));
}

DateState StateOfCopied(CKrDate value) { return StateOf(value); }

} // namespace

TEST(CKrDateTimeCopy, ConstructsTheZeroValueWhateverTheSource)
{
    ExpectCopiesAreZero(Date());
    ExpectCopiesAreZero(Time());
    ExpectCopiesAreZero(Moment());
    ExpectCopiesAreZero<CKrDateTimeBase>(Moment());
    ExpectCopiesAreZero(CKrDate(DateWith(COleDateTime::null)));
    ExpectCopiesAreZero(CKrTime(DateWith(COleDateTime::invalid)));
    ExpectCopiesAreZero(CKrDateTime(DateWith(COleDateTime::invalid)));
}

TEST(CKrDateTimeCopy, LosesADateThatIsPassedByValue)
{
    CKrDate const date(COleDateTime(44197.0));
    EXPECT_EQ(StateOfCopied(date), zeroState);
    EXPECT_EQ(StateOfCopied(CKrDate(COleDateTime(44197.0))), Valid(44197.0)) << "one that is made for the call arrives";
}

TEST(CKrDateTimeCopy, AssignmentAndSetTakeValueAndStatus)
{
    ExpectAssignmentCopies(Date());
    ExpectAssignmentCopies(Time());
    ExpectAssignmentCopies(Moment());
    ExpectAssignmentCopies(CKrDate(DateWith(COleDateTime::null)));
    ExpectAssignmentCopies(CKrTime(DateWith(COleDateTime::null)));
    ExpectAssignmentCopies(CKrDateTime(DateWith(COleDateTime::invalid)));
    CKrDateTime const source = Moment();
    CKrDate target;
    static_cast<CKrDateTimeBase &>(target) = source;
    EXPECT_EQ(StateOf(target), Valid(44197.75)) << "the base knows no parts";
}

TEST(CKrDateTimeCopy, WhatIsReturnedIsBuiltInTheCallersObject)
{
    CKrDate const date = Date();
    CKrTime const time = Time();
    CKrDateTime const moment = Moment();
    EXPECT_EQ(StateOf(date), Valid(44197.0));
    EXPECT_EQ(StateOf(time), Valid(0.75));
    EXPECT_EQ(StateOf(moment), Valid(44197.75));

    CKrDateTime const fromDate = date.AsDateTime();
    CKrTime const timeOfDate = date.AsTime();
    CKrDateTime const fromTime = time.AsDateTime();
    CKrDate const dateOfTime = time.AsDate();
    CKrDate const dateOfMoment = moment.AsDate();
    CKrTime const timeOfMoment = moment.AsTime();
    EXPECT_EQ(StateOf(fromDate), Valid(44197.0));
    EXPECT_EQ(StateOf(timeOfDate), Valid(0.0));
    EXPECT_EQ(StateOf(fromTime), Valid(0.75));
    EXPECT_EQ(StateOf(dateOfTime), Valid(0.0));
    EXPECT_EQ(StateOf(dateOfMoment), Valid(44197.0));
    EXPECT_EQ(StateOf(timeOfMoment), Valid(0.75));

    CKrDate const today = CKrDate::Today();
    CKrTime const timeNow = CKrTime::Now();
    CKrDateTime const now = CKrDateTime::Now();
    EXPECT_GT(StateOf(today).value, 44197.0);
    EXPECT_GE(StateOf(timeNow).value, 0.0);
    EXPECT_GT(StateOf(now).value, 44197.0);
}

TEST(CKrDateTimeCopy, ConversionsKeepTheDateInEverySpelling)
{
    CKrDateTime const moment = Moment();
    CKrDate const implicitDate = moment;
    CKrDate const directDate(moment);
    CKrDate const listedDate{moment};
    CKrTime const implicitTime = moment;
    CKrTime const directTime(moment);
    EXPECT_EQ(StateOf(implicitDate), Valid(44197.0));
    EXPECT_EQ(StateOf(directDate), Valid(44197.0));
    EXPECT_EQ(StateOf(listedDate), Valid(44197.0));
    EXPECT_EQ(StateOf(static_cast<CKrDate>(moment)), Valid(44197.0));
    EXPECT_EQ(StateOf(implicitTime), Valid(0.75));
    EXPECT_EQ(StateOf(directTime), Valid(0.75));

    CKrDate const date = Date();
    CKrTime const time = Time();
    CKrDateTime const fromDate = date;
    CKrDateTime const fromTime(time);
    CKrTime const timeOfDate = date;
    CKrDate const dateOfTime = time;
    EXPECT_EQ(StateOf(fromDate), Valid(44197.0));
    EXPECT_EQ(StateOf(fromTime), Valid(0.75));
    EXPECT_EQ(StateOf(timeOfDate), Valid(0.0));
    EXPECT_EQ(StateOf(dateOfTime), Valid(0.0));

    CKrDateTime target;
    target = date;
    EXPECT_EQ(StateOf(target), Valid(44197.0));
    target = time;
    EXPECT_EQ(StateOf(target), Valid(0.75));
}

TEST(CKrDateTimeCopy, TakesThePlatformsDatesWithoutACast)
{
    CKrDate const date = COleDateTime(44197.75);
    CKrTime const time = COleDateTime(44197.75);
    CKrDateTime moment = CTime(0);
    EXPECT_EQ(StateOf(date), Valid(44197.0));
    EXPECT_EQ(StateOf(time), Valid(0.75));
    EXPECT_EQ(StateOf(moment), zeroState);
    moment = COleDateTime(44197.75);
    EXPECT_EQ(StateOf(moment), Valid(44197.75));
}

TEST(CKrDateTimeCopy, IsComparedAsThePlatformsDate)
{
    CKrDate const date = Date();
    CKrDateTime const moment = Moment();
    EXPECT_TRUE(COleDateTime(date) < COleDateTime(moment));
    EXPECT_TRUE(moment == COleDateTime(44197.75));
    COleDateTime const platformDate = moment;
    EXPECT_TRUE(date != platformDate);
}

} // namespace kr::test
