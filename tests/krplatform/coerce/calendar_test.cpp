#include <krplatform/coerce/calendar.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <tuple>

namespace kr::detail
{

static bool operator==(CalendarFields const & left, CalendarFields const & right)
{
    auto const tie = [](CalendarFields const & f)
    { return std::tie(f.year, f.month, f.day, f.hour, f.minute, f.second, f.dayOfWeek, f.dayOfYear); };
    return tie(left) == tie(right);
}

static void PrintTo(CalendarFields const & f, std::ostream * stream)
{
    *stream << f.year << '-' << f.month << '-' << f.day << ' ' << f.hour << ':' << f.minute << ':' << f.second
            << " day of week " << f.dayOfWeek << ", of year " << f.dayOfYear;
}

namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();

struct FieldsRow
{
    double date;
    CalendarFields fields;
};

struct DateRow
{
    CalendarFields fields;
    double date;
};

} // namespace

TEST(FieldsOfDate, SplitsDayAndTimeOfDay)
{
    // clang-format off
    FieldsRow const rows[] = {
        // date                  year  month day  h   min s   week year
        {       0.0,           { 1899, 12,   30,  0,  0,  0,  6,   364 } },
        {       0.25,          { 1899, 12,   30,  6,  0,  0,  6,   364 } },
        {      -0.25,          { 1899, 12,   30,  6,  0,  0,  6,   364 } },    // the same moment
        {       2.0,           { 1900,  1,    1,  0,  0,  0,  1,     1 } },
        {      -1.25,          { 1899, 12,   29,  6,  0,  0,  5,   363 } },    // the fraction counts forward
        {   36585.0,           { 2000,  2,   29,  0,  0,  0,  2,    60 } },
        {   44270.75,          { 2021,  3,   15, 18,  0,  0,  1,    74 } },
        { -657434.0,           {  100,  1,    1,  0,  0,  0,  5,     1 } },
        { 2958465.0,           { 9999, 12,   31,  0,  0,  0,  5,   365 } },
        { 2958465.75,          { 9999, 12,   31, 18,  0,  0,  5,   365 } },
    };
    // clang-format on
    for (FieldsRow const & row : rows)
    {
        SCOPED_TRACE(row.date);
        CalendarFields fields = {};
        EXPECT_TRUE(FieldsOfDate(row.date, fields));
        EXPECT_EQ(fields, row.fields);
    }
}

TEST(FieldsOfDate, RoundsToTheNearestSecond)
{
    struct Row
    {
        double seconds;
        int second;
    };
    // clang-format off
    Row const rows[] = {
        { 0.0,       0 },
        { 0.4,       0 },
        { 0.49999,   0 },
        { 0.5,       1 },
        { 0.6,       1 },
        { 58.5,     59 },
        { 59.4,     59 },
    };
    // clang-format on
    for (int const day : {0, 1, 44270, -3, -40000})
    {
        for (Row const & row : rows)
        {
            SCOPED_TRACE(testing::Message() << "day " << day << ", second " << row.seconds);
            double const fraction = row.seconds / secondsPerDay;
            CalendarFields fields = {};
            EXPECT_TRUE(FieldsOfDate(day < 0 ? day - fraction : day + fraction, fields));
            EXPECT_EQ(fields.second, row.second);
            EXPECT_EQ(fields.minute, 0);
        }
    }
}

TEST(FieldsOfDate, LeavesDayOfWeekAndOfYearBehindWhenATimeRoundsUpToMidnight)
{
    // clang-format off
    FieldsRow const rows[] = {
        // date                  year  month day  h   min s   week year
        {   44270.9999999,     { 2021,  3,   16,  0,  0,  0,  1,    74 } },    // a Tuesday, the 75th
        {   44561.9999999,     { 2022,  1,    1,  0,  0,  0,  5,   365 } },
        {      -3.9999999,     { 1899, 12,   28,  0,  0,  0,  3,   361 } },
        {       0.9999999,     { 1899, 12,   31,  0,  0,  0,  6,   364 } },
    };
    // clang-format on
    for (FieldsRow const & row : rows)
    {
        SCOPED_TRACE(row.date);
        CalendarFields fields = {};
        EXPECT_TRUE(FieldsOfDate(row.date, fields));
        EXPECT_EQ(fields, row.fields);
    }
}

TEST(FieldsOfDate, RefusesDatesOutsideTheRangeAndLeavesTheFields)
{
    double const dates[] = {-657435.0, 2958466.0, 2958465.9999999, 1e10,
                            -1e10,     infinity,  -infinity,       std::numeric_limits<double>::quiet_NaN(),
                            -657435.25};
    CalendarFields const untouched = {1, 2, 3, 4, 5, 6, 7, 8};
    for (double const date : dates)
    {
        SCOPED_TRACE(date);
        CalendarFields fields = untouched;
        EXPECT_FALSE(FieldsOfDate(date, fields));
        EXPECT_EQ(fields, untouched);
    }
}

TEST(DateOfFields, JoinsDayAndTimeOfDay)
{
    // clang-format off
    DateRow const rows[] = {
        { { 1899, 12, 30,  0,  0,  0, 0, 0 },       0.0               },
        { { 1899, 12, 29,  6,  0,  0, 0, 0 },      -1.25              },    // the fraction counts forward
        { { 2021,  3, 15, 18,  0,  0, 0, 0 },   44270.75              },
        { {  100,  1,  1,  0,  0,  0, 0, 0 }, -657434.0               },
        { { 9999, 12, 31,  0,  0,  0, 0, 0 }, 2958465.0               },
        { {    0,  1,  1,  0,  0,  0, 0, 0 },   36526.0               },    // 2000
        { {   49,  1,  1,  0,  0,  0, 0, 0 },   54424.0               },    // 2049
        { {   50,  1,  1,  0,  0,  0, 0, 0 },   18264.0               },    // 1950
        { {   99,  1,  1,  0,  0,  0, 0, 0 },   36161.0               },    // 1999
    };
    // clang-format on
    for (DateRow const & row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(row.fields));
        double date = 0.5;
        EXPECT_TRUE(DateOfFields(row.fields, date));
        EXPECT_EQ(date, row.date);
    }
}

TEST(DateOfFields, RollsDaysThatAMonthLacks)
{
    // clang-format off
    DateRow const rows[] = {
        { { 2020,  2, 30, 0, 0, 0, 0, 0 }, 43891 },     // 1 March
        { { 2020,  2, 31, 0, 0, 0, 0, 0 }, 43892 },
        { { 2021,  2, 29, 0, 0, 0, 0, 0 }, 44256 },     // 1 March
        { { 2020,  6, 31, 0, 0, 0, 0, 0 }, 44013 },     // 1 July
        { { 2020,  1,  0, 0, 0, 0, 0, 0 }, 43830 },     // 31 December
        { { 2020, 12,  0, 0, 0, 0, 0, 0 }, 44165 },     // 30 November
        { {  100,  1,  0, 0, 0, 0, 0, 0 }, -657435 },   // even out of the range
    };
    // clang-format on
    for (DateRow const & row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(row.fields));
        double date = 0.5;
        EXPECT_TRUE(DateOfFields(row.fields, date));
        EXPECT_EQ(date, row.date);
    }
}

TEST(DateOfFields, RollsThe31stOfNovemberOnToJanuary)
{
    double date = 0.0;
    EXPECT_TRUE(DateOfFields({2020, 11, 31, 0, 0, 0, 0, 0}, date));
    EXPECT_EQ(date, DayNumber(2021, 1, 1));
    EXPECT_TRUE(DateOfFields({2020, 11, 30, 0, 0, 0, 0, 0}, date));
    EXPECT_EQ(date, DayNumber(2020, 11, 30));
}

TEST(DateOfFields, RefusesFieldsOutOfRangeAndLeavesTheDate)
{
    // clang-format off
    CalendarFields const rows[] = {
        { 10000,  1,  1,  0,  0,  0, 0, 0 },
        {    -1,  1,  1,  0,  0,  0, 0, 0 },
        {  2021,  0,  1,  0,  0,  0, 0, 0 },
        {  2021, 13,  1,  0,  0,  0, 0, 0 },
        {  2021,  1, 32,  0,  0,  0, 0, 0 },
        {  2021,  1, -1,  0,  0,  0, 0, 0 },
        {  2021,  1,  1, 24,  0,  0, 0, 0 },
        {  2021,  1,  1, -1,  0,  0, 0, 0 },
        {  2021,  1,  1,  0, 60,  0, 0, 0 },
        {  2021,  1,  1,  0,  0, 60, 0, 0 },
    };
    // clang-format on
    for (CalendarFields const & fields : rows)
    {
        SCOPED_TRACE(testing::PrintToString(fields));
        double date = 0.5;
        EXPECT_FALSE(DateOfFields(fields, date));
        EXPECT_EQ(date, 0.5);
    }
}

TEST(LinearDate, GrowsWithTimeOnBothSidesOfTheEpoch)
{
    struct Row
    {
        double date;
        double linear;
    };
    // clang-format off
    Row const rows[] = {            // in the order of time
        { -2.25,  -1.75 },
        { -2.75,  -1.25 },
        { -1.0,   -1.0  },
        { -1.25,  -0.75 },
        { -1.75,  -0.25 },
        {  0.0,    0.0  },
        {  0.25,   0.25 },
        {  1.5,    1.5  },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.date);
        EXPECT_EQ(LinearOfDate(row.date), row.linear);
        EXPECT_EQ(DateOfLinear(row.linear), row.date);
    }
}

TEST(LinearDate, TakesTheTimeOfDayOfDay0InEitherSign)
{
    EXPECT_EQ(LinearOfDate(-0.25), 0.25);
    EXPECT_EQ(LinearOfDate(0.25), 0.25);
}

TEST(LinearDate, LeavesWhatIsWithinHalfASecondBelow0)
{
    constexpr double halfSecond = 5.787037037037037e-6;
    double const above = std::nextafter(-halfSecond, 0.0);
    EXPECT_EQ(LinearOfDate(above), above);
    EXPECT_EQ(DateOfLinear(above), above);
    EXPECT_EQ(LinearOfDate(-halfSecond), halfSecond);
    EXPECT_EQ(DateOfLinear(-halfSecond), -2.0 + halfSecond);
}

TEST(FullYear, CompletesTwoDigitsTo1950To2049)
{
    EXPECT_EQ(FullYear(0), 2000);
    EXPECT_EQ(FullYear(49), 2049);
    EXPECT_EQ(FullYear(50), 1950);
    EXPECT_EQ(FullYear(99), 1999);
    EXPECT_EQ(FullYear(100), 100);
    EXPECT_EQ(FullYear(-1), -1);
}

} // namespace kr::detail
