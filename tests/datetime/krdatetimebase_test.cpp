#include <krcore/datetime/krdatetime.h>

#include "tests/datetime/date_state.h"
#include "tests/krplatform/automation/thrown_result.h"
#include "tests/krplatform/datetime/zone.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

namespace kr::test
{

namespace
{

/// What derived classes are offered.
class Value : public CKrDateTimeBase
{
public:
    Value() = default;
    explicit Value(COleDateTime const & value) { SetVal(value); }

    using CKrDateTimeBase::SetDateImpl;
    using CKrDateTimeBase::SetTimeImpl;
    using CKrDateTimeBase::SetVal;
};

template <class T>
concept Comparable = requires(T const & left, T const & right)
{
    left == right;
};

template <class T>
concept Ordered = requires(T const & left, T const & right)
{
    left < right;
};

} // namespace

static_assert(std::has_virtual_destructor_v<CKrDateTimeBase>);
static_assert(sizeof(CKrDateTimeBase) == sizeof(void *) + sizeof(COleDateTime));
static_assert(sizeof(CKrDate) == sizeof(CKrDateTimeBase) && sizeof(CKrTime) == sizeof(CKrDateTimeBase) &&
              sizeof(CKrDateTime) == sizeof(CKrDateTimeBase));
static_assert(!Comparable<CKrDate> && !Comparable<CKrTime> && !Comparable<CKrDateTime>);
static_assert(!Ordered<CKrDate> && !Ordered<CKrTime> && !Ordered<CKrDateTime>);

TEST(CKrDateTimeBase, StartsZeroAndNotNull)
{
    CKrDateTimeBase const value;
    EXPECT_EQ(StateOf(value), zeroState);
    EXPECT_TRUE(value.IsZero());
    EXPECT_TRUE(value.IsValid());
    EXPECT_FALSE(value.IsNull());
}

TEST(CKrDateTimeBase, TellsItsStates)
{
    struct Row
    {
        COleDateTime date;
        bool isValid;
        bool isNull;
        bool isZero;
    };
    // clang-format off
    Row const rows[] = {
        // date                              valid  null   zero
        { COleDateTime(),                    true,  false, true  },
        { COleDateTime(-0.0),                true,  false, true  },
        { COleDateTime(44197.75),            true,  false, false },
        { COleDateTime(0.25),                true,  false, false },
        { COleDateTime(-0.25),               true,  false, false },
        { COleDateTime(1e9),                 true,  false, false },     // outside the calendar
        { DateWith(COleDateTime::null),      false, true,  false },
        { DateWith(COleDateTime::invalid),   false, false, false },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << StateOf(row.date));
        Value const value(row.date);
        EXPECT_EQ(value.IsValid(), row.isValid);
        EXPECT_EQ(value.IsNull(), row.isNull);
        EXPECT_EQ(value.IsZero(), row.isZero);
    }
}

TEST(CKrDateTimeBase, TakesAWholeValueAndKeepsNoNumberWithoutAValidStatus)
{
    EXPECT_EQ(StateOf(Value(COleDateTime(44197.75))), Valid(44197.75));
    EXPECT_EQ(StateOf(Value(COleDateTime(-1.25))), Valid(-1.25));
    EXPECT_EQ(StateOf(Value(DateWith(COleDateTime::null))), nullState);
    EXPECT_EQ(StateOf(Value(DateWith(COleDateTime::invalid))), invalidState);
}

TEST(CKrDateTimeBase, ReplacesAPartAndLeavesTheOther)
{
    struct Row
    {
        double value;
        double source;
        double withDate;
        double withTime;
    };
    // clang-format off
    Row const rows[] = {
        // value     source    date taken  time taken
        { 44197.75,  44000.25, 44000.75,   44197.25 },
        {     0.0,   44000.25, 44000.0,        0.25 },
        { 44197.75,      0.0,      0.75,   44197.0  },
        {    -1.25,     -3.5,     -3.25,      -1.5  },      // both before 30 December 1899
        {    -0.25,      5.5,      4.75,       0.5  },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.value << " and " << row.source);
        Value value{COleDateTime(row.value)};
        value.SetDateImpl(COleDateTime(row.source));
        EXPECT_EQ(StateOf(value), Valid(row.withDate));
        value.SetVal(COleDateTime(row.value));
        value.SetTimeImpl(COleDateTime(row.source));
        EXPECT_EQ(StateOf(value), Valid(row.withTime));
    }
}

TEST(CKrDateTimeBase, AddsPartsAsNumbersAlsoAcrossTheZeroDate)
{
    Value value{COleDateTime(-2.0)}; // 28 December 1899
    value.SetTimeImpl(COleDateTime(0.75));
    EXPECT_EQ(StateOf(value), Valid(-1.25));
    EXPECT_EQ(value.Format(OLESTR("%Y-%m-%d %H")), OLESTR("1899-12-29 06"));
    value.SetVal(COleDateTime(0.75));
    value.SetDateImpl(COleDateTime(-2.0));
    EXPECT_EQ(StateOf(value), Valid(-1.25));
}

TEST(CKrDateTimeBase, TakesTheStatusWithAPart)
{
    for (COleDateTime::DateTimeStatus const status : {COleDateTime::invalid, COleDateTime::null})
    {
        DateState const expected = {status, 0.0};
        Value value{COleDateTime(44197.75)};
        value.SetDateImpl(DateWith(status));
        EXPECT_EQ(StateOf(value), expected);
        value.SetVal(COleDateTime(44197.75));
        value.SetTimeImpl(DateWith(status));
        EXPECT_EQ(StateOf(value), expected);
        value.SetTimeImpl(COleDateTime(44000.25));
        EXPECT_EQ(StateOf(value), Valid(0.25)) << "a valid part makes the value valid";
        value.SetVal(DateWith(status));
        value.SetDateImpl(COleDateTime(44000.25));
        EXPECT_EQ(StateOf(value), Valid(44000.0));
    }
}

TEST(CKrDateTimeBase, TakesNumbersThatAreNoDates)
{
    double const infinity = std::numeric_limits<double>::infinity();
    Value value{COleDateTime(0.25)};
    value.SetDateImpl(COleDateTime(infinity));
    EXPECT_EQ(StateOf(value), Valid(infinity));
    value.SetTimeImpl(COleDateTime(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(value.IsZero());
    EXPECT_EQ(value.Format(OLESTR("%Y")), OLESTR("Invalid DateTime"));
    EXPECT_EQ(value.operator CTime(), CTime());
}

TEST(CKrDateTimeBase, ReadsAMomentInLocalTime)
{
    Zone const zone("America/New_York");
    Value value;
    value.SetVal(CTime(1615795509)); // 08:05:09 UTC
    EXPECT_EQ(value.Format(OLESTR("%Y-%m-%d %H:%M:%S")), OLESTR("2021-03-15 04:05:09"));
    value.SetVal(CTime(-86400 * 200));
    EXPECT_EQ(value.Format(OLESTR("%Y-%m-%d %H:%M:%S")), OLESTR("1969-06-14 20:00:00"));
}

TEST(CKrDateTimeBase, TakesAMomentOf0ForTheZeroDate)
{
    Value value{COleDateTime(44197.75)};
    value.SetVal(CTime(0));
    EXPECT_EQ(StateOf(value), zeroState);
}

TEST(CKrDateTimeBase, IsInvalidForAMomentThatNoDateCanHold)
{
    struct Row
    {
        char const * name;
        std::int64_t seconds;
        bool isValid;
    };
    // clang-format off
    Row const rows[] = {
        { "the end of the year 3000",      32535215999,                               true  },
        { "the year 3001",                 32535216000,                               false },
        { "the highest number",            std::numeric_limits<std::int64_t>::max(),  false },
        { "the lowest number",             std::numeric_limits<std::int64_t>::min(),  false },
        { "1 January 100",                 -59011459200,                              true  },
        { "31 December 99",                -59011459201,                              false },     // two digits: 1999 comes back
        { "the year 0",                    -62135596801,                              false },
    };
    // clang-format on
    Zone const zone("UTC");
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.name);
        Value value{COleDateTime(44197.75)};
        value.SetVal(CTime(row.seconds));
        EXPECT_EQ(value.IsValid(), row.isValid);
        EXPECT_EQ(value.IsValid() ? invalidState : StateOf(value), invalidState);
    }
}

TEST(CKrDateTimeBase, IsAMomentInLocalTime)
{
    struct Row
    {
        COleDateTime date;
        std::int64_t seconds;
        HRESULT result;
    };
    auto const midnight = [](int year, int month, int day) { return COleDateTime(year, month, day, 0, 0, 0); };
    // clang-format off
    Row const rows[] = {
        { COleDateTime(2021, 3, 15, 8, 5, 9),        1615795509,  S_OK         },
        { midnight(1970, 1, 1),                      0,           S_OK         },
        { COleDateTime(1970, 1, 1, 0, 0, 1),         1,           S_OK         },
        { COleDateTime(3000, 12, 31, 23, 59, 59),    32535215999, S_OK         },
        { midnight(3001, 1, 1),                      0,           E_INVALIDARG },
        { midnight(9999, 12, 31),                    0,           E_INVALIDARG },
        { COleDateTime(1969, 12, 31, 23, 59, 59),    0,           E_FAIL       },
        { midnight(1950, 1, 1),                      0,           E_FAIL       },
        { midnight(1900, 1, 1),                      0,           E_FAIL       },
        { COleDateTime(1.999999),                    0,           E_FAIL       },     // rounds up to 1 January 1900
        { COleDateTime(1899, 12, 31, 23, 59, 59),    0,           S_OK         },     // years before 1900 give 0
        { COleDateTime(),                            0,           S_OK         },
        { midnight(100, 1, 1),                       0,           S_OK         },
        { COleDateTime(2958466.0),                   0,           S_OK         },     // outside the calendar
        { COleDateTime(-657435.0),                   0,           S_OK         },
        { DateWith(COleDateTime::null),              0,           S_OK         },
        { DateWith(COleDateTime::invalid),           0,           S_OK         },
    };
    // clang-format on
    Zone const zone("UTC");
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << StateOf(row.date));
        Value const value(row.date);
        CTime time;
        EXPECT_EQ(ThrownResult([&] { time = value; }), row.result);
        EXPECT_EQ(time.GetTime(), row.seconds);
    }
}

TEST(CKrDateTimeBase, CannotBeAMomentBefore1970InUtc)
{
    Zone const zone("Europe/Berlin");
    CTime time(5);
    Value const value{COleDateTime(1970, 1, 1, 0, 0, 0)};
    EXPECT_EQ(ThrownResult([&] { time = value; }), E_INVALIDARG);
    EXPECT_EQ(time.GetTime(), 5);
}

} // namespace kr::test
