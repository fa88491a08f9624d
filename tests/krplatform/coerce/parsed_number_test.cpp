#include <krplatform/coerce/parsed_number.h>

#include "tests/krplatform/coerce/locale_samples.h"
#include "tests/reference/exact_decimal.h"
#include "tests/support/text.h"

#include <krplatform/coerce/number_parse.h>
#include <krplatform/coerce/number_text.h>

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>

namespace kr::test
{

using detail::NumberToReal;
using detail::NumberToUnits;
using detail::ParsedNumber;

namespace
{

constexpr unsigned s_seed = 20210315;
constexpr double s_smallest = std::numeric_limits<double>::denorm_min();
constexpr double s_largest = std::numeric_limits<double>::max();

ParsedNumber Parse(std::string const & text)
{
    ParsedNumber number;
    EXPECT_TRUE(detail::ParseNumber(Widen(text), english, number)) << text;
    return number;
}

double ReadReal(std::string const & text)
{
    double real = -4711;
    EXPECT_EQ(NumberToReal(Parse(text), real), S_OK) << text;
    return real;
}

/// The number halfway to the next larger double, exactly.
ExactDecimal HalfwayAbove(double number)
{
    int const exponent = std::max(std::ilogb(number), std::numeric_limits<double>::min_exponent - 1) - 52;
    std::uint64_t const units = static_cast<std::uint64_t>(std::ldexp(number, -exponent));
    return Expand(2 * units + 1, exponent - 1);
}

/// A number is nearest if it lies between the middles to its neighbours; in a middle it is the even one.
void CheckIsNearest(std::string const & digits, int exponent)
{
    std::string const text = digits + "e" + std::to_string(exponent);
    ExactDecimal const decimal = MakeDecimal(digits, exponent);
    double const real = ReadReal(text);
    bool const isEven = (std::bit_cast<std::uint64_t>(real) & 1) == 0;
    int const above = Compare(decimal, HalfwayAbove(real));
    ASSERT_TRUE(above < 0 || (above == 0 && isEven)) << text << " is above " << std::hexfloat << real;
    if (real > s_smallest)
    {
        int const below = Compare(decimal, HalfwayAbove(std::nextafter(real, 0.0)));
        ASSERT_TRUE(below > 0 || (below == 0 && isEven)) << text << " is below " << std::hexfloat << real;
    }
}

std::string RandomDigits(std::mt19937_64 & random, std::size_t count)
{
    std::string digits;
    for (std::size_t index = 0; index < count; ++index)
        digits += static_cast<char>('0' + random() % 10);
    return digits;
}

} // namespace

TEST(ParsedNumber, GivesTheNearestDouble)
{
    std::mt19937_64 random(s_seed);
    for (int count = 0; count < 20'000; ++count)
    {
        std::string const digits = RandomDigits(random, 1 + random() % 40);
        ASSERT_NO_FATAL_FAILURE(CheckIsNearest(digits, static_cast<int>(random() % 560) - 300));
    }
}

TEST(ParsedNumber, GivesTheNearestDoubleOfTextAsPeopleWriteIt)
{
    std::mt19937_64 random(s_seed);
    for (int count = 0; count < 50'000; ++count)
    {
        std::string const digits = RandomDigits(random, 1 + random() % 20);
        ASSERT_NO_FATAL_FAILURE(CheckIsNearest(digits, static_cast<int>(random() % 50) - 25));
    }
}

TEST(ParsedNumber, GivesTheEvenDoubleHalfwayBetweenTwo)
{
    std::mt19937_64 random(s_seed);
    for (int count = 0; count < 5'000; ++count)
    {
        int const places = static_cast<int>(random() % 60);
        double const number = std::ldexp(static_cast<double>((random() >> 11) | std::uint64_t{1} << 52), -places);
        ExactDecimal const middle = HalfwayAbove(number);
        int const exponent = middle.exponent - static_cast<int>(middle.digits.size());
        ASSERT_NO_FATAL_FAILURE(CheckIsNearest(middle.digits, exponent));
        ASSERT_NO_FATAL_FAILURE(CheckIsNearest(middle.digits + "0000000001", exponent - 10));
    }
}

TEST(ParsedNumber, LooksAtEveryDigitOfALongText)
{
    // Halfway between 1 and the next double, then far behind that what decides.
    std::string const halfway = "1.00000000000000011102230246251565404236316680908203125";
    std::string const zeros(2000, '0');
    EXPECT_EQ(ReadReal(halfway), 1.0);
    EXPECT_EQ(ReadReal(halfway + zeros), 1.0);
    EXPECT_EQ(ReadReal(halfway + zeros + "1"), std::nextafter(1.0, 2.0));
    EXPECT_EQ(ReadReal("1" + zeros + "e-2000"), 1.0);
    EXPECT_EQ(ReadReal("0." + zeros + "1e2001"), 1.0);
}

TEST(ParsedNumber, ReadsBackTheShortestTextOfADouble)
{
    std::mt19937_64 random(s_seed);
    for (int count = 0; count < 50'000; ++count)
    {
        double const number = std::abs(std::bit_cast<double>(std::uint64_t{random()}));
        if (!std::isfinite(number))
            continue;
        char text[32];
        char * const end = std::to_chars(text, text + sizeof text, number).ptr;
        *end = 0;
        ASSERT_EQ(ReadReal(text), number) << text;
    }
}

TEST(ParsedNumber, ReadsBackWhatIsWrittenWithFifteenDigits)
{
    std::mt19937_64 random(s_seed);
    for (int count = 0; count < 50'000; ++count)
    {
        double const number =
            static_cast<double>(random() % 1'000'000'000'000'000) / std::pow(10.0, static_cast<double>(random() % 23));
        std::string const text = Narrow(detail::RealText(number, OLESTR('.')).View());
        ASSERT_EQ(ReadReal(text), number) << text;
    }
}

TEST(ParsedNumber, TooLargeIsAnOverflow)
{
    EXPECT_EQ(ReadReal("1.7976931348623157e308"), s_largest);
    EXPECT_EQ(ReadReal("1.7976931348623158e308"), s_largest);
    for (char const * text : {"1.7976931348623159e308", "1e309", "9e400", "1e99999", "-1e309"})
    {
        SCOPED_TRACE(text);
        double real = 4711;
        EXPECT_EQ(NumberToReal(Parse(text), real), DISP_E_OVERFLOW);
        EXPECT_EQ(real, 4711);
    }
}

TEST(ParsedNumber, WhatIsBelowTheSmallestDoubleIsZeroAndNotRoundedUpToIt)
{
    EXPECT_EQ(ReadReal("5e-324"), s_smallest);
    EXPECT_EQ(ReadReal("4.9406564584124655e-324"), s_smallest);
    EXPECT_EQ(ReadReal("4.9406564584124654417656879286822137236505980e-324"), s_smallest);
    EXPECT_EQ(ReadReal("4.94065645841246544e-324"), 0.0);
    EXPECT_EQ(ReadReal("4.9e-324"), 0.0);
    EXPECT_EQ(ReadReal("1e-324"), 0.0);
    EXPECT_EQ(ReadReal("1e-400"), 0.0);
    EXPECT_EQ(ReadReal("49e-324"), 10 * s_smallest);
}

TEST(ParsedNumber, RoundsToUnitsHalfToEven)
{
    struct Row
    {
        char const * text;
        int places;
        ULONGLONG units;
    };
    // clang-format off
    Row const rows[] = {
        { "0",          0,     0 },
        { "12",         0,    12 },
        { "1.2e1",      0,    12 },
        { "0.4",        0,     0 },
        { "0.5",        0,     0 },
        { "0.50000000000000000000000000000000000001", 0, 1 },
        { "0.6",        0,     1 },
        { "1.5",        0,     2 },
        { "2.5",        0,     2 },
        { "2.50",       0,     2 },
        { "9.5",        0,    10 },
        { "0.09",       0,     0 },
        { "5e-99999",   0,     0 },
        { "1.5",        4, 15000 },
        { "1.23455",    4, 12346 },
        { "1.23445",    4, 12344 },
        { "1.234450001", 4, 12345 },
        { "0.00005",    4,     0 },
        { "0.00015",    4,     2 },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.text);
        ULONGLONG units = 4711;
        EXPECT_EQ(NumberToUnits(Parse(row.text), row.places, units), S_OK);
        EXPECT_EQ(units, row.units);
    }
}

TEST(ParsedNumber, UnitsOverflowPast64Bits)
{
    ULONGLONG units = 4711;
    EXPECT_EQ(NumberToUnits(Parse("18446744073709551615.4"), 0, units), S_OK);
    EXPECT_EQ(units, 18446744073709551615u);
    for (char const * text : {"18446744073709551615.5", "18446744073709551616", "99999999999999999999", "1e20", "1e99"})
    {
        SCOPED_TRACE(text);
        EXPECT_EQ(NumberToUnits(Parse(text), 0, units), DISP_E_OVERFLOW);
        EXPECT_EQ(units, 18446744073709551615u);
    }
    EXPECT_EQ(NumberToUnits(Parse("1844674407370955.1616"), 4, units), DISP_E_OVERFLOW);
}

TEST(ParsedNumber, TheDigitsBehindTheKeptOnesStillRound)
{
    std::string const half = "2.5" + std::string(ParsedNumber::capacity, '0');
    ULONGLONG units = 0;
    EXPECT_EQ(NumberToUnits(Parse(half), 0, units), S_OK);
    EXPECT_EQ(units, 2u);
    EXPECT_EQ(NumberToUnits(Parse(half + "1"), 0, units), S_OK);
    EXPECT_EQ(units, 3u);
}

} // namespace kr::test
