// The second implementation is tested itself, on numbers that are known from elsewhere.
#include "tests/reference/exact_decimal.h"

#include <gtest/gtest.h>

#include <limits>

namespace kr::test
{

TEST(ExactDecimal, GivesEveryDigitOfADouble)
{
    struct Row
    {
        double number;
        char const * digits;
        int exponent;
    };
    // clang-format off
    Row const rows[] = {
        { 0.0,     "",                                                           0 },
        { 1.0,     "1",                                                          1 },
        { 1000.0,  "1",                                                          4 },
        { 1000.5,  "10005",                                                      4 },
        { 0.0625,  "625",                                                       -1 },
        { 0.1,     "1000000000000000055511151231257827021181583404541015625",    0 },
        { 1e22,    "1",                                                         23 },
        { 1e23,    "99999999999999991611392",                                   23 },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.number);
        ExactDecimal const decimal = Expand(row.number);
        EXPECT_EQ(decimal.digits, row.digits);
        EXPECT_EQ(decimal.exponent, row.exponent);
    }
}

TEST(ExactDecimal, ReachesTheEndsOfTheRange)
{
    ExactDecimal const smallest = Expand(std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(smallest.exponent, -323);
    EXPECT_EQ(smallest.digits.size(), 751u);
    EXPECT_EQ(smallest.digits.substr(0, 20), "49406564584124654417");
    EXPECT_EQ(smallest.digits.substr(741), "3447265625");
    ExactDecimal const largest = Expand(std::numeric_limits<double>::max());
    EXPECT_EQ(largest.exponent, 309);
    EXPECT_EQ(largest.digits.substr(0, 20), "17976931348623157081");
    EXPECT_EQ(largest.digits.substr(299), "4124858368");
}

TEST(ExactDecimal, RoundsTiesAwayFromZero)
{
    struct Row
    {
        char const * digits;
        std::size_t count;
        char const * rounded;
        int exponent;
    };
    // clang-format off
    Row const rows[] = {
        { "12345",  5, "12345", 0 },
        { "12345",  4, "1235",  0 },
        { "12335",  4, "1234",  0 },
        { "123449", 4, "1234",  0 },
        { "1299",   3, "13",    0 },
        { "9996",   3, "1",     1 },
        { "1002",   3, "1",     0 },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.digits);
        ExactDecimal const decimal = RoundTo({row.digits, 0}, row.count);
        EXPECT_EQ(decimal.digits, row.rounded);
        EXPECT_EQ(decimal.exponent, row.exponent);
    }
}

TEST(ExactDecimal, ComparesBySize)
{
    EXPECT_EQ(Compare(MakeDecimal("000", 5), MakeDecimal("", 0)), 0);
    EXPECT_EQ(Compare(MakeDecimal("0120", -1), MakeDecimal("12", 0)), 0);
    EXPECT_LT(Compare(MakeDecimal("", 0), MakeDecimal("1", -300)), 0);
    EXPECT_GT(Compare(MakeDecimal("1", -300), MakeDecimal("", 0)), 0);
    EXPECT_LT(Compare(MakeDecimal("9", 0), MakeDecimal("10", 0)), 0);
    EXPECT_LT(Compare(MakeDecimal("12", 0), MakeDecimal("121", -1)), 0);
    EXPECT_GT(Compare(MakeDecimal("13", 0), MakeDecimal("129", -1)), 0);
}

} // namespace kr::test
