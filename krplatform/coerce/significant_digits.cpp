#include <krplatform/coerce/significant_digits.h>

#include <krplatform/coerce/powers_of_ten.h>

#include <bit>
#include <charconv>
#include <cmath>

namespace kr::detail
{

namespace
{

// The library rounds ties to even, but outside these limits there are none: a number halfway between two of 15 digits
// has 16 digits and is a double, so it has at most 22 places and at most one zero before the point. A float and
// 7 digits leave even less room.
constexpr double s_smallest = 1e-7;
constexpr double s_largest = 1e18;

std::uint64_t Power(int exponent) { return powersOfTen[static_cast<std::size_t>(exponent)]; }

int DigitCount(std::uint64_t number)
{
    int const atLeast = static_cast<int>(std::bit_width(number)) * 1233 >> 12; // times log10(2): right, or one too low
    return atLeast + (number >= Power(atLeast) ? 1 : 0);
}

/// Rounds the exact product, which is below 2^53; a half goes up.
std::uint64_t RoundProduct(double magnitude, int exponentOfTen)
{
    double const power = exactPowersOfTen[static_cast<std::size_t>(exponentOfTen)];
    double const product = magnitude * power;
    double const error = std::fma(magnitude, power, -product);
    double const whole = std::floor(product);
    double const beyondHalf = (product - whole - 0.5) + error; // its sign is exact
    return static_cast<std::uint64_t>(whole) + (beyondHalf >= 0 ? 1 : 0);
}

/// Drops so many places where they are zeros. Compilers divide quickly by what they know.
template <int count>
void DropZeros(SignificantDigits & digits)
{
    constexpr std::uint64_t power = powersOfTen[count];
    if (digits.places >= count && digits.units % power == 0)
    {
        digits.units /= power;
        digits.places -= count;
    }
}

SignificantDigits WithoutTrailingZeros(std::uint64_t units, int places, int exponent)
{
    SignificantDigits digits{units, places, exponent};
    DropZeros<8>(digits);
    DropZeros<4>(digits);
    DropZeros<2>(digits);
    DropZeros<1>(digits);
    return digits;
}

/// What people enter is mostly the double nearest to a number of few places. Its digits are those of that number, since 15 digits
/// live through being a double. False for all else.
bool RoundFewPlaces(double magnitude, SignificantDigits & digits)
{
    constexpr int places = 6;
    constexpr double scale = exactPowersOfTen[places];
    constexpr double limit = exactPowersOfTen[15 - places];
    if (!(magnitude < limit))
        return false;
    auto const units = static_cast<std::uint64_t>(magnitude * scale + 0.5);
    if (units == 0 || static_cast<double>(units) / scale != magnitude)
        return false;
    int const behindFirst = DigitCount(units) - 1;
    digits = WithoutTrailingZeros(units, behindFirst, behindFirst - places);
    return true;
}

SignificantDigits RoundByProduct(double magnitude, int count)
{
    int binaryExponent = 0;
    std::frexp(magnitude, &binaryExponent);
    int exponent = ((binaryExponent - 1) * 78913) >> 18; // times log10(2): right, or one too low
    std::uint64_t units = RoundProduct(magnitude, count - 1 - exponent);
    if (units > Power(count))
    {
        ++exponent;
        units = RoundProduct(magnitude, count - 1 - exponent);
    }
    if (units == Power(count)) // 9.99 became 10, or the exponent is too low by one for a power of ten
    {
        ++exponent;
        units = Power(count - 1);
    }
    return WithoutTrailingZeros(units, count - 1, exponent);
}

SignificantDigits RoundInteger(std::uint64_t integer, int count)
{
    int digits = count + 1;
    while (integer >= Power(digits))
        ++digits;
    std::uint64_t const divisor = Power(digits - count);
    std::uint64_t units = (integer + divisor / 2) / divisor;
    if (units == Power(count))
    {
        ++digits;
        units = Power(count - 1);
    }
    return WithoutTrailingZeros(units, count - 1, digits - 1);
}

SignificantDigits RoundByLibrary(double magnitude, int count)
{
    char text[32]; // d.dddddddddddddde-324
    char const * const end =
        std::to_chars(text, text + sizeof text, magnitude, std::chars_format::scientific, count - 1).ptr;
    std::uint64_t units = 0;
    char const * position = text;
    for (; *position != 'e'; ++position)
    {
        if (*position != '.')
            units = units * 10 + static_cast<std::uint64_t>(*position - '0');
    }
    position += position[1] == '+' ? 2 : 1;
    int exponent = 0;
    std::from_chars(position, end, exponent);
    return WithoutTrailingZeros(units, count - 1, exponent);
}

SignificantDigits RoundToDigits(double magnitude, int count)
{
    if (magnitude == 0)
        return {};
    if (!(magnitude >= s_smallest && magnitude < s_largest))
        return RoundByLibrary(magnitude, count);
    if (magnitude < static_cast<double>(Power(count)))
        return RoundByProduct(magnitude, count);
    // A half goes up, so what stands behind the point changes nothing.
    return RoundInteger(static_cast<std::uint64_t>(magnitude), count);
}

} // namespace

SignificantDigits RoundTo15Digits(double magnitude)
{
    SignificantDigits digits;
    return RoundFewPlaces(magnitude, digits) ? digits : RoundToDigits(magnitude, 15);
}

SignificantDigits RoundTo7Digits(float magnitude) { return RoundToDigits(static_cast<double>(magnitude), 7); }

} // namespace kr::detail
