#include <krcore/datetime/krdatetimerange.h>

#include "tests/datetime/date_state.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace kr::test
{

namespace
{

/// What derived classes are offered.
class Range : public CKrDateTimeRange
{
public:
    using CKrDateTimeRange::Set;
};

COleDateTime const s_first(44197.0);
COleDateTime const s_second(44200.5);

} // namespace

static_assert(std::has_virtual_destructor_v<CKrDateTimeRange>);
static_assert(sizeof(CKrDateTimeRange) == sizeof(void *) + 2 * sizeof(COleDateTime));

TEST(CKrDateTimeRange, StartsWithZeroBounds)
{
    CKrDateTimeRange const range;
    EXPECT_EQ(StateOf(range.GetLowerBound()), zeroState);
    EXPECT_EQ(StateOf(range.GetUpperBound()), zeroState);
}

TEST(CKrDateTimeRange, StoresTheLowerBoundWithItsStatus)
{
    CKrDateTimeRange range;
    range.SetLowerBound(s_first);
    EXPECT_EQ(StateOf(range.GetLowerBound()), Valid(44197.0));
    EXPECT_EQ(StateOf(range.GetUpperBound()), zeroState);
    range.SetLowerBound(DateWith(COleDateTime::invalid));
    EXPECT_EQ(StateOf(range.GetLowerBound()), StateOf(DateWith(COleDateTime::invalid)));
    range.SetLowerBound(DateWith(COleDateTime::null));
    EXPECT_EQ(range.GetLowerBound().GetStatus(), COleDateTime::null);
}

TEST(CKrDateTimeRange, SetUpperBoundDoesNothing)
{
    CKrDateTimeRange range;
    range.SetLowerBound(s_first);
    range.SetUpperBound(s_second);
    EXPECT_EQ(StateOf(range.GetLowerBound()), Valid(44197.0));
    EXPECT_EQ(StateOf(range.GetUpperBound()), zeroState);
}

TEST(CKrDateTimeRange, SetOfBothBoundsDoesNothing)
{
    Range range;
    range.SetLowerBound(s_first);
    range.Set(s_second, s_second, true, false);
    EXPECT_EQ(StateOf(range.GetLowerBound()), Valid(44197.0));
    EXPECT_EQ(StateOf(range.GetUpperBound()), zeroState);
}

TEST(CKrDateTimeRange, ACopyHasZeroBounds)
{
    CKrDateTimeRange range;
    range.SetLowerBound(s_first);
    CKrDateTimeRange const copy(range);
    EXPECT_EQ(StateOf(copy.GetLowerBound()), zeroState);
    EXPECT_EQ(StateOf(copy.GetUpperBound()), zeroState);
    CKrDateTimeRange const moved(std::move(range));
    EXPECT_EQ(StateOf(moved.GetLowerBound()), zeroState);
}

TEST(CKrDateTimeRange, AssigningChangesNothingInTheTarget)
{
    CKrDateTimeRange source;
    source.SetLowerBound(s_second);
    CKrDateTimeRange target;
    target.SetLowerBound(s_first);
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(StateOf(target.GetLowerBound()), Valid(44197.0));
    EXPECT_EQ(StateOf(target.GetUpperBound()), zeroState);
    EXPECT_EQ(StateOf(source.GetLowerBound()), Valid(44200.5));
}

} // namespace kr::test
