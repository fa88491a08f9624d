#include <krplatform/datetime/coledatetime.h>

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

constexpr auto valid = COleDateTime::valid;
constexpr auto invalid = COleDateTime::invalid;
constexpr auto null = COleDateTime::null;

COleDateTime Date(double days, COleDateTime::DateTimeStatus status)
{
    COleDateTime date(days);
    date.SetStatus(status);
    return date;
}

COleDateTimeSpan Span(double days, COleDateTimeSpan::DateTimeSpanStatus status)
{
    COleDateTimeSpan span(days);
    span.SetStatus(status);
    return span;
}

} // namespace

TEST(COleDateTimeSpan, CountsDays)
{
    EXPECT_EQ(COleDateTimeSpan().GetTotalDays(), 0.0);
    EXPECT_EQ(COleDateTimeSpan().GetStatus(), COleDateTimeSpan::valid);
    EXPECT_EQ(COleDateTimeSpan(1.5).GetTotalDays(), 1.5);
    EXPECT_EQ(COleDateTimeSpan(1, 12, 0, 0).GetTotalDays(), 1.5);
    EXPECT_EQ(COleDateTimeSpan(0, 0, 1, 30).GetTotalDays(), 90.0 / 86400);
    EXPECT_EQ(COleDateTimeSpan(0, 36, 0, 0).GetTotalDays(), 1.5);
    EXPECT_EQ(COleDateTimeSpan(1, -12, 0, 0).GetTotalDays(), 0.5);
    EXPECT_EQ(COleDateTimeSpan(0, 6, 0, 0).m_span, 0.25);
}

TEST(COleDateTime, MovesThroughTheEpochInTime)
{
    struct Row
    {
        double date;
        double days;
        double result;
    };
    // clang-format off
    Row const rows[] = {
        { 44270.75,    1.0,   44271.75 },
        { 44270.75,    0.5,   44271.25 },
        {     0.25,   -1.0,      -1.25 },      // the day before, also at 6:00
        {    -1.25,    1.0,       0.25 },
        {    -1.25,    0.25,     -1.5  },      // from 6:00 to 12:00 of the same day
        {    -1.25,   -0.5,      -2.75 },      // to 18:00 of the day before
        {    -1.75,    0.5,       0.25 },
        {    -0.25,    1.0,       1.25 },      // -0.25 is 0.25
        {     1.0,    -2.0,      -1.0  },
        {    -2.0,     2.0,       0.0  },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.date << " + " << row.days);
        COleDateTime const date(row.date);
        COleDateTimeSpan const span(row.days);
        EXPECT_EQ((date + span).m_dt, row.result);
        EXPECT_EQ((date - COleDateTimeSpan(-row.days)).m_dt, row.result);
        COleDateTime moved = date;
        EXPECT_EQ(&(moved += span), &moved);
        EXPECT_EQ(moved.m_dt, row.result);
        EXPECT_EQ(&(moved -= span), &moved);
        EXPECT_TRUE(moved == date);
        EXPECT_EQ((COleDateTime(row.result) - date).GetTotalDays(), row.days);
    }
}

TEST(COleDateTime, PassesTheStatusOnNullBeforeInvalid)
{
    struct Row
    {
        COleDateTime::DateTimeStatus left;
        COleDateTime::DateTimeStatus right;
        COleDateTime::DateTimeStatus result;
    };
    // clang-format off
    Row const rows[] = {
        { valid,   valid,   valid   },
        { valid,   invalid, invalid },
        { invalid, valid,   invalid },
        { invalid, invalid, invalid },
        { null,    valid,   null    },
        { valid,   null,    null    },
        { null,    invalid, null    },
        { invalid, null,    null    },
        { null,    null,    null    },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.left << " with " << row.right);
        COleDateTime const left = Date(44270.0, row.left);
        COleDateTimeSpan const span = Span(1.0, static_cast<COleDateTimeSpan::DateTimeSpanStatus>(row.right));
        EXPECT_EQ((left + span).GetStatus(), row.result);
        EXPECT_EQ((left - span).GetStatus(), row.result);
        EXPECT_EQ(static_cast<int>((left - Date(44269.0, row.right)).GetStatus()), row.result);
    }
}

TEST(COleDateTime, IsInvalidOutsideTheRange)
{
    EXPECT_EQ((COleDateTime(2958465.0) + COleDateTimeSpan(0.75)).GetStatus(), valid);
    EXPECT_EQ((COleDateTime(2958465.0) + COleDateTimeSpan(1.0)).GetStatus(), invalid);
    EXPECT_EQ((COleDateTime(-657434.0) - COleDateTimeSpan(1.0)).GetStatus(), invalid);
    EXPECT_EQ((COleDateTime(-657433.0) - COleDateTimeSpan(1.0)).GetStatus(), valid);
    EXPECT_EQ((COleDateTime(0.0) + COleDateTimeSpan(1e300)).GetStatus(), invalid);
}

TEST(COleDateTime, ComparesMomentsInTime)
{
    double const inOrder[] = {-657434.0, -2.75, -1.0, -1.25, -1.75, 0.0, 0.25, 1.0, 44270.75};
    for (std::size_t left = 0; left < std::size(inOrder); ++left)
    {
        for (std::size_t right = 0; right < std::size(inOrder); ++right)
        {
            SCOPED_TRACE(testing::Message() << inOrder[left] << " and " << inOrder[right]);
            COleDateTime const first(inOrder[left]);
            COleDateTime const second(inOrder[right]);
            EXPECT_EQ(first < second, left < right);
            EXPECT_EQ(first <= second, left <= right);
            EXPECT_EQ(first > second, left > right);
            EXPECT_EQ(first >= second, left >= right);
            EXPECT_EQ(first == second, left == right);
            EXPECT_EQ(first != second, left != right);
        }
    }
    EXPECT_TRUE(COleDateTime(-0.25) == COleDateTime(0.25));
    EXPECT_FALSE(COleDateTime(-0.25) < COleDateTime(0.25));
}

TEST(COleDateTime, ComparesNothingButTheStatusUnlessBothAreValid)
{
    EXPECT_TRUE(Date(1.0, null) == Date(2.0, null));
    EXPECT_TRUE(Date(1.0, invalid) == Date(2.0, invalid));
    EXPECT_FALSE(Date(1.0, null) == Date(1.0, invalid));
    EXPECT_FALSE(Date(1.0, null) == COleDateTime(1.0));
    EXPECT_FALSE(Date(1.0, null) < COleDateTime(2.0));
    EXPECT_FALSE(Date(1.0, null) > COleDateTime(0.0));
    EXPECT_FALSE(Date(1.0, invalid) < Date(2.0, invalid));
    EXPECT_TRUE(Date(1.0, invalid) <= Date(2.0, invalid));
    EXPECT_FALSE(Date(1.0, invalid) <= Date(2.0, null));
}

} // namespace kr::test
