#include <krcore/datetime/krsynchronizedtime.h>

#include "tests/datetime/stopped_clock.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

namespace kr::test
{

namespace
{

constexpr std::int64_t morning = 1615795509; // what the system's clock shows at first
constexpr std::int64_t hour = 3600;

} // namespace

static_assert(std::has_virtual_destructor_v<CKrSynchronizedTime>);

TEST(CKrSynchronizedTime, ShowsTheSystemsTimeAtFirst)
{
    StoppedClock system(morning);
    CKrSynchronizedTime const clock;
    EXPECT_EQ(clock.GetSyncTime().GetTime(), morning);
    EXPECT_EQ(clock.GetReferenceTime().GetTime(), morning);
    EXPECT_EQ(clock.GetInheritedTime(), nullptr);
    system.Set(morning + 5);
    EXPECT_EQ(clock.GetSyncTime().GetTime(), morning + 5);
    EXPECT_EQ(clock.GetReferenceTime().GetTime(), morning);
}

TEST(CKrSynchronizedTime, RunsOnFromTheTimeThatWasStated)
{
    for (std::int64_t const ahead : {hour, -hour, std::int64_t{0}})
    {
        StoppedClock system(morning);
        CKrSynchronizedTime const clock(CTime(morning + ahead));
        EXPECT_EQ(clock.GetSyncTime().GetTime(), morning + ahead);
        system.Set(morning + 90);
        EXPECT_EQ(clock.GetSyncTime().GetTime(), morning + ahead + 90);
        EXPECT_EQ(clock.GetReferenceTime().GetTime(), morning + ahead);
        EXPECT_EQ(clock.GetInheritedTime(), nullptr);
    }
}

TEST(CKrSynchronizedTime, IsStatedAnewAtAnyTime)
{
    StoppedClock system(morning);
    CKrSynchronizedTime clock(CTime(morning + hour));
    system.Set(morning + 90);
    clock.SetReferenceTime(CTime(500));
    EXPECT_EQ(clock.GetSyncTime().GetTime(), 500);
    EXPECT_EQ(clock.GetReferenceTime().GetTime(), 500);
    system.Set(morning + 100);
    EXPECT_EQ(clock.GetSyncTime().GetTime(), 510);
    clock.SetReferenceTime(clock.GetReferenceTime());
    EXPECT_EQ(clock.GetSyncTime().GetTime(), 500);
}

TEST(CKrSynchronizedTime, MovesWithAChangeOfTheSystemsClock)
{
    StoppedClock system(morning);
    CKrSynchronizedTime const clock(CTime(morning + hour));
    system.Set(morning - 1000);
    EXPECT_EQ(clock.GetSyncTime().GetTime(), morning + hour - 1000);
}

TEST(CKrSynchronizedTime, TakesAnyReference)
{
    StoppedClock system(morning);
    for (std::int64_t const reference :
         {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max() - 10, std::int64_t{-1}})
    {
        system.Set(morning);
        CKrSynchronizedTime const clock{CTime(reference)};
        EXPECT_EQ(clock.GetSyncTime().GetTime(), reference);
        system.Set(morning + 10);
        EXPECT_EQ(clock.GetSyncTime().GetTime(), reference + 10);
    }
}

TEST(CKrSynchronizedTime, FollowsTheClockThatItLeansOn)
{
    StoppedClock system(morning);
    CKrSynchronizedTime reference(CTime(morning + hour));
    CKrSynchronizedTime clock(CTime(500));
    clock.SetInheritedTime(&reference);
    EXPECT_EQ(clock.GetInheritedTime(), &reference);
    EXPECT_EQ(clock.GetSyncTime().GetTime(), morning + hour);
    EXPECT_EQ(clock.GetReferenceTime().GetTime(), 500) << "its own";
    reference.SetReferenceTime(CTime(9000));
    EXPECT_EQ(clock.GetSyncTime().GetTime(), 9000);
    clock.SetInheritedTime(nullptr);
    EXPECT_EQ(clock.GetSyncTime().GetTime(), 500);
}

TEST(CKrSynchronizedTime, FollowsAChainOfClocksToItsEnd)
{
    StoppedClock const system(morning);
    CKrSynchronizedTime last(CTime(700));
    CKrSynchronizedTime middle(CTime(600));
    CKrSynchronizedTime first(CTime(500));
    middle.SetInheritedTime(&last);
    first.SetInheritedTime(&middle);
    EXPECT_EQ(first.GetSyncTime().GetTime(), 700);
}

TEST(CKrSynchronizedTime, ShowsItsOwnTimeWhereItLeansOnItself)
{
    StoppedClock const system(morning);
    CKrSynchronizedTime clock(CTime(500));
    clock.SetInheritedTime(&clock);
    EXPECT_EQ(clock.GetInheritedTime(), &clock);
    EXPECT_EQ(clock.GetSyncTime().GetTime(), 500);
}

TEST(CKrSynchronizedTime, StatingTheTimeLeavesTheLink)
{
    StoppedClock const system(morning);
    CKrSynchronizedTime reference(CTime(morning + hour));
    CKrSynchronizedTime clock;
    clock.SetInheritedTime(&reference);
    clock.SetReferenceTime(CTime(500));
    EXPECT_EQ(clock.GetInheritedTime(), &reference);
    EXPECT_EQ(clock.GetReferenceTime().GetTime(), 500);
    EXPECT_EQ(clock.GetSyncTime().GetTime(), morning + hour);
    clock.SetInheritedTime(nullptr);
    EXPECT_EQ(clock.GetSyncTime().GetTime(), 500);
}

TEST(CKrSynchronizedTime, CopiesShowTheSameAndLeanOnTheSame)
{
    StoppedClock system(morning);
    CKrSynchronizedTime reference(CTime(morning + hour));
    CKrSynchronizedTime source(CTime(500));
    source.SetInheritedTime(&reference);
    system.Set(morning + 10);
    CKrSynchronizedTime copy(source);
    CKrSynchronizedTime assigned;
    EXPECT_EQ(&(assigned = source), &assigned);
    for (CKrSynchronizedTime * const clock : {&copy, &assigned})
    {
        EXPECT_EQ(clock->GetInheritedTime(), &reference);
        EXPECT_EQ(clock->GetReferenceTime().GetTime(), 500);
        EXPECT_EQ(clock->GetSyncTime().GetTime(), morning + hour + 10);
        clock->SetInheritedTime(nullptr);
        EXPECT_EQ(clock->GetSyncTime().GetTime(), 510);
    }
}

} // namespace kr::test
