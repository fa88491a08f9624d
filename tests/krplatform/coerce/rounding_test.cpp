#include <krplatform/coerce/rounding.h>

#include "tests/reference/exact_decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfenv>
#include <cmath>
#include <random>

namespace kr::test
{

using detail::FitInteger;
using detail::FitMagnitude;
using detail::FitReal;
using detail::RealToAmount;
using detail::RoundAmount;
using detail::RoundHalfToEven;

namespace
{

constexpr double s_infinity = std::numeric_limits<double>::infinity();
constexpr double s_noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr LONGLONG s_lowest = std::numeric_limits<LONGLONG>::min();
constexpr LONGLONG s_highest = std::numeric_limits<LONGLONG>::max();

template <class Integer>
void ExpectFits(double real, Integer expected)
{
    SCOPED_TRACE(real);
    Integer number = 99;
    EXPECT_EQ(FitReal(real, number), S_OK);
    EXPECT_EQ(number, expected);
}

template <class Integer>
void ExpectOverflow(double real)
{
    SCOPED_TRACE(real);
    Integer number = 99;
    EXPECT_EQ(FitReal(real, number), DISP_E_OVERFLOW);
    EXPECT_EQ(number, Integer{99});
}

/// Ten-thousandths of a number from its exact expansion, halves to even.
LONGLONG AmountReference(double real)
{
    ExactDecimal const decimal = Expand(std::abs(real));
    std::string const digits = std::string(40, '0') + decimal.digits + std::string(40, '0');
    std::size_t const point = static_cast<std::size_t>(40 + decimal.exponent + 4);
    if (decimal.exponent < -8)
        return 0;
    ULONGLONG units = std::stoull(digits.substr(0, point));
    std::string const rest = digits.substr(point);
    bool const isAboveHalf = rest[0] > '5' || (rest[0] == '5' && rest.find_first_not_of('0', 1) != std::string::npos);
    bool const isHalf = rest[0] == '5' && !isAboveHalf;
    units += isAboveHalf || (isHalf && units % 2 != 0) ? 1 : 0;
    return real < 0 ? -static_cast<LONGLONG>(units) : static_cast<LONGLONG>(units);
}

} // namespace

TEST(Rounding, HalvesGoToTheEvenNeighbour)
{
    struct Row
    {
        double real;
        double rounded;
    };
    // clang-format off
    Row const rows[] = {
        {  0.5,                  0   },
        {  1.5,                  2   },
        {  2.5,                  2   },
        { -0.5,                  0   },
        { -1.5,                 -2   },
        { -2.5,                 -2   },
        {  0.49999999999999994,  0   },  // plus 0.5 it would be 1
        {  0.50000000000000011,  1   },
        {  1.4,                  1   },
        {  1.6,                  2   },
        {  4503599627370495.5,   4503599627370496 },
        {  4503599627370494.5,   4503599627370494 },
        {  9007199254740993.0,   9007199254740992 },
        {  1e300,                1e300 },
        {  s_infinity,           s_infinity },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.real);
        EXPECT_EQ(RoundHalfToEven(row.real), row.rounded);
    }
    EXPECT_TRUE(std::isnan(RoundHalfToEven(s_noNumber)));
}

TEST(Rounding, DoesNotFollowTheRoundingModeOfTheProgram)
{
    int const before = std::fegetround();
    for (int const mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO})
    {
        std::fesetround(mode);
        double const rounded[] = {RoundHalfToEven(0.5), RoundHalfToEven(1.5), RoundHalfToEven(-1.25)};
        std::fesetround(before);
        EXPECT_EQ(rounded[0], 0.0);
        EXPECT_EQ(rounded[1], 2.0);
        EXPECT_EQ(rounded[2], -1.0);
    }
}

TEST(Rounding, RealsFitUpToTheHalfPastTheLimitsOfAType)
{
    ExpectFits<signed char>(127.4999, 127);
    ExpectFits<signed char>(-128.5, -128); // to even
    ExpectOverflow<signed char>(127.5);
    ExpectOverflow<signed char>(-128.51);
    ExpectFits<BYTE>(-0.5, 0);
    ExpectOverflow<BYTE>(-0.51);
    ExpectOverflow<BYTE>(255.5);
    ExpectFits<LONG>(-2147483648.5, -2147483647 - 1);
    ExpectOverflow<LONG>(2147483647.5);
    ExpectFits<ULONG>(4294967295.49, 4294967295u);
    ExpectOverflow<ULONG>(4294967295.5);
    ExpectFits<LONGLONG>(-9223372036854775808.0, s_lowest);
    ExpectFits<LONGLONG>(9223372036854774784.0, 9223372036854774784);
    ExpectOverflow<LONGLONG>(9223372036854775808.0);
    ExpectOverflow<LONGLONG>(-9223372036854777856.0);
    ExpectFits<ULONGLONG>(18446744073709549568.0, 18446744073709549568u);
    ExpectOverflow<ULONGLONG>(18446744073709551616.0);
}

TEST(Rounding, WhatIsNoNumberOverflows)
{
    for (double const real : {s_infinity, -s_infinity, s_noNumber})
    {
        ExpectOverflow<signed char>(real);
        ExpectOverflow<ULONG>(real);
        ExpectOverflow<LONGLONG>(real);
        ExpectOverflow<ULONGLONG>(real);
    }
}

TEST(Rounding, SignAndMagnitudeMeetTheLimitsOfAType)
{
    LONGLONG wide = 99;
    EXPECT_EQ(FitMagnitude(true, ULONGLONG{1} << 63, wide), S_OK);
    EXPECT_EQ(wide, s_lowest);
    EXPECT_EQ(FitMagnitude(false, ULONGLONG{1} << 63, wide), DISP_E_OVERFLOW);
    EXPECT_EQ(FitMagnitude(true, (ULONGLONG{1} << 63) + 1, wide), DISP_E_OVERFLOW);
    EXPECT_EQ(wide, s_lowest);

    SHORT narrow = 99;
    EXPECT_EQ(FitMagnitude(true, 32768, narrow), S_OK);
    EXPECT_EQ(narrow, -32768);
    EXPECT_EQ(FitMagnitude(false, 32768, narrow), DISP_E_OVERFLOW);

    ULONG unsignedNumber = 99;
    EXPECT_EQ(FitMagnitude(true, 0, unsignedNumber), S_OK);
    EXPECT_EQ(unsignedNumber, 0u);
    EXPECT_EQ(FitMagnitude(true, 1, unsignedNumber), DISP_E_OVERFLOW);
    EXPECT_EQ(FitMagnitude(false, 4294967295u, unsignedNumber), S_OK);
    EXPECT_EQ(FitMagnitude(false, 4294967296u, unsignedNumber), DISP_E_OVERFLOW);
}

TEST(Rounding, IntegersOfOneWidthKeepTheirBitsAndOthersMustFit)
{
    USHORT number = 99;
    EXPECT_EQ(FitInteger(SHORT{-1}, number), S_OK);
    EXPECT_EQ(number, 65535);
    EXPECT_EQ(FitInteger(LONG{-1}, number), DISP_E_OVERFLOW);
    EXPECT_EQ(FitInteger(static_cast<signed char>(-1), number), DISP_E_OVERFLOW);
    EXPECT_EQ(FitInteger(LONGLONG{65536}, number), DISP_E_OVERFLOW);
    EXPECT_EQ(number, 65535);
    EXPECT_EQ(FitInteger(LONGLONG{65534}, number), S_OK);
    EXPECT_EQ(number, 65534);
}

TEST(Rounding, AmountsRoundToWholeUnits)
{
    EXPECT_EQ(RoundAmount(4999), 0u);
    EXPECT_EQ(RoundAmount(5000), 0u);
    EXPECT_EQ(RoundAmount(5001), 1u);
    EXPECT_EQ(RoundAmount(15000), 2u);
    EXPECT_EQ(RoundAmount(25000), 2u);
    EXPECT_EQ(RoundAmount(9223372036854775807), 922337203685478u);
}

TEST(Rounding, RealsBecomeAmountsByTheirExactValue)
{
    struct Row
    {
        double real;
        LONGLONG tenThousandths;
    };
    // clang-format off
    Row const rows[] = {
        {  0.0,                   0 },
        { -0.0,                   0 },
        {  1.5,               15000 },
        { -1.5,              -15000 },
        {  0.00005,               1 },  // the double is a little more than that
        {  0.00015,               1 },  // and this one a little less
        {  0.0001220703125,       1 },
        {  0.00006103515625,      1 },
        {  0.000030517578125,     0 },
        {  0.03125,             312 },  // 312.5, to even
        {  0.09375,             938 },  // 937.5
        {  922337203685477.5,   9223372036854775000 },
        { -922337203685477.5,  -9223372036854775000 },
        {  1e-300,                0 },
        {  4.9406564584124654e-324, 0 },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.real);
        LONGLONG amount = 99;
        EXPECT_EQ(RealToAmount(row.real, amount), S_OK);
        EXPECT_EQ(amount, row.tenThousandths);
    }
    for (double const real : {922337203685477.625, -922337203685477.625, 1e15, 1e300, s_infinity, s_noNumber})
    {
        SCOPED_TRACE(real);
        LONGLONG amount = 99;
        EXPECT_EQ(RealToAmount(real, amount), DISP_E_OVERFLOW);
        EXPECT_EQ(amount, 99);
    }
}

TEST(Rounding, AmountsOfRandomRealsAgreeWithTheExactExpansion)
{
    std::mt19937_64 random(20210315);
    for (int count = 0; count < 50'000; ++count)
    {
        double const significand = static_cast<double>((random() >> 11) | 1) * (random() % 2 == 0 ? 1 : -1);
        double const real = std::ldexp(significand, -3 - static_cast<int>(random() % 90));
        LONGLONG amount = 99;
        if (std::abs(real) < 922337203685477)
        {
            ASSERT_EQ(RealToAmount(real, amount), S_OK);
            ASSERT_EQ(amount, AmountReference(real)) << std::hexfloat << real;
        }
        else
        {
            ASSERT_EQ(RealToAmount(real, amount), DISP_E_OVERFLOW) << std::hexfloat << real;
        }
    }
}

TEST(Rounding, MagnitudesExistForTheLowestNumber)
{
    EXPECT_EQ(detail::MagnitudeOf(0), 0u);
    EXPECT_EQ(detail::MagnitudeOf(-1), 1u);
    EXPECT_EQ(detail::MagnitudeOf(s_highest), 9223372036854775807u);
    EXPECT_EQ(detail::MagnitudeOf(s_lowest), 9223372036854775808u);
}

} // namespace kr::test
