// Numbers to text against the exact decimal expansion of each number, over seeded random bits and the edges.
#include <krplatform/coerce/number_text.h>

#include "tests/reference/exact_decimal.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace kr::test
{

namespace
{

constexpr unsigned s_seed = 20210315;

/// The text form, written down from its description.
std::string WriteReference(double number, std::size_t count)
{
    ExactDecimal const decimal = RoundTo(Expand(std::abs(number)), count);
    std::string const sign = number < 0 ? "-" : "";
    std::string const & digits = decimal.digits;
    int const limit = static_cast<int>(count);
    int const size = static_cast<int>(digits.size());
    int const places = std::max(0, size - decimal.exponent);
    if (digits.empty())
        return "0";
    if (decimal.exponent <= limit && places <= limit)
    {
        if (decimal.exponent <= 0)
            return sign + "0." + std::string(static_cast<std::size_t>(-decimal.exponent), '0') + digits;
        std::size_t const point = static_cast<std::size_t>(decimal.exponent);
        if (size <= decimal.exponent)
            return sign + digits + std::string(point - digits.size(), '0');
        return sign + digits.substr(0, point) + "." + digits.substr(point);
    }
    int const exponent = decimal.exponent - 1;
    std::string power = std::to_string(std::abs(exponent));
    if (power.size() < 2)
        power = "0" + power;
    std::string const fraction = size > 1 ? "." + digits.substr(1) : "";
    return sign + digits[0] + fraction + "E" + (exponent < 0 ? "-" : "+") + power;
}

void CheckDouble(double number)
{
    ASSERT_EQ(Narrow(detail::RealText(number, OLESTR('.')).View()), WriteReference(number, 15))
        << std::hexfloat << number;
}

void CheckFloat(float number)
{
    ASSERT_EQ(Narrow(detail::RealText(number, OLESTR('.')).View()), WriteReference(static_cast<double>(number), 7))
        << std::hexfloat << number;
}

/// The number and its neighbours.
void CheckAround(double number)
{
    for (double const each : {std::nextafter(number, 0.0), number, std::nextafter(number, 1e308)})
        ASSERT_NO_FATAL_FAILURE(CheckDouble(each));
}

} // namespace

TEST(NumberTextExact, DoublesOfRandomBits)
{
    std::mt19937_64 random(s_seed);
    for (int count = 0; count < 20'000;)
    {
        double const number = std::bit_cast<double>(std::uint64_t{random()});
        if (!std::isfinite(number))
            continue;
        ++count;
        ASSERT_NO_FATAL_FAILURE(CheckDouble(number));
    }
}

TEST(NumberTextExact, DoublesOfCommonSize)
{
    std::mt19937_64 random(s_seed);
    std::uniform_real_distribution<double> exponents(-12, 20);
    for (int count = 0; count < 100'000; ++count)
    {
        double const factor = static_cast<double>(random() >> 11) * 0x1p-53;
        ASSERT_NO_FATAL_FAILURE(CheckDouble(factor * std::pow(10.0, exponents(random))));
    }
}

TEST(NumberTextExact, DecimalFractionsAsPeopleWriteThem)
{
    std::mt19937_64 random(s_seed);
    for (int count = 0; count < 100'000; ++count)
    {
        double const numerator = static_cast<double>(random() % 10'000'000'000'000'000);
        double const denominator = std::pow(10.0, static_cast<double>(random() % 23));
        ASSERT_NO_FATAL_FAILURE(CheckDouble(numerator / denominator));
    }
}

TEST(NumberTextExact, NumbersOfFewPlacesWithTheirNeighbours)
{
    // around a thousand million, and with six places and more, is where few places end
    std::mt19937_64 random(s_seed);
    for (int count = 0; count < 20'000; ++count)
    {
        double const denominator = std::pow(10.0, static_cast<double>(random() % 9));
        double const numerator = static_cast<double>(random() % (std::uint64_t{1} << random() % 54));
        ASSERT_NO_FATAL_FAILURE(CheckAround(numerator / denominator));
    }
    for (double const number : {0.000001, 0.0000005, 999999999.999999, 999999999.9999995, 1e9, 1000000000.000001})
        ASSERT_NO_FATAL_FAILURE(CheckAround(number));
}

TEST(NumberTextExact, EveryPowerOfTenAndOfTwoWithItsNeighbours)
{
    for (int exponent = -323; exponent <= 308; ++exponent)
        ASSERT_NO_FATAL_FAILURE(CheckAround(std::pow(10.0, exponent)));
    for (int exponent = -1074; exponent <= 1023; ++exponent)
        ASSERT_NO_FATAL_FAILURE(CheckAround(std::ldexp(1.0, exponent)));
}

TEST(NumberTextExact, NumbersHalfwayBetweenTwoOfFifteenDigits)
{
    // An odd number of 2^-n has n places and ends in 5, so one of 16 digits is such a tie.
    std::mt19937_64 random(s_seed);
    int ties = 0;
    for (int count = 0; count < 200'000; ++count)
    {
        int const places = static_cast<int>(random() % 23);
        double const lowest = 1e15 / std::pow(5.0, places);
        std::uint64_t const significand = (static_cast<std::uint64_t>(lowest) + random() % 1'000'000) | 1;
        double const number = std::ldexp(static_cast<double>(significand), -places);
        if (Expand(number).digits.size() != 16 || significand >= std::uint64_t{1} << 53)
            continue;
        ++ties;
        ASSERT_NO_FATAL_FAILURE(CheckDouble(number));
    }
    EXPECT_GT(ties, 100'000);
    for (double number = 1e15 + 5; number < 1e15 + 10'000; number += 10)
        ASSERT_NO_FATAL_FAILURE(CheckDouble(number));
    for (double number = 1e16 + 50; number < 1e16 + 100'000; number += 100)
        ASSERT_NO_FATAL_FAILURE(CheckDouble(number));
}

TEST(NumberTextExact, FloatsOfRandomBitsAndOfEveryExponent)
{
    std::mt19937 random(s_seed);
    for (int count = 0; count < 100'000;)
    {
        float const number = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (!std::isfinite(number))
            continue;
        ++count;
        ASSERT_NO_FATAL_FAILURE(CheckFloat(number));
    }
    for (int exponent = -149; exponent <= 127; ++exponent)
    {
        float const power = std::ldexp(1.0f, exponent);
        for (float const each : {std::nextafter(power, 0.0f), power, std::nextafter(power, 1e38f)})
            ASSERT_NO_FATAL_FAILURE(CheckFloat(each));
    }
}

TEST(NumberTextExact, FloatsHalfwayBetweenTwoOfSevenDigits)
{
    for (float number = 10'000'005; number < 16'777'216; number += 170)
        ASSERT_NO_FATAL_FAILURE(CheckFloat(number));
    for (float number = 1'000'000.5f; number < 4'194'304; number += 87)
        ASSERT_NO_FATAL_FAILURE(CheckFloat(number));
    for (float number = 100'000.25f; number < 500'000; number += 7.5f)
        ASSERT_NO_FATAL_FAILURE(CheckFloat(number));
}

} // namespace kr::test
