#include <krplatform/coerce/decimal_scaling.h>

#include <krplatform/coerce/powers_of_ten.h>

#include <algorithm>
#include <cmath>

namespace kr::detail
{

namespace
{

constexpr std::int64_t s_largestExactPower = exactPowersOfTen.size() - 1;
constexpr std::uint64_t s_largestExactDigits = std::uint64_t{1} << 53;

/// The sum in full is the sought number, up to a tiny part of the last place of `high`. Stores the nearest double, and
/// tells whether it is the nearest whatever that part is.
bool RoundSum(double high, double low, double & real)
{
    double const doubt = high * 0x1p-100;
    double const rounded = high + (low - doubt);
    bool const isSure = rounded == high + (low + doubt);
    if (isSure)
        real = rounded;
    return isSure;
}

/// The same with what the digits lose where they become a double.
bool ScaleLongDecimal(std::uint64_t digits, double scale, bool isFraction, double & real)
{
    double const leading = static_cast<double>(digits);
    // 19 digits stay below 2^64, and so does the double next to them
    double const rest = static_cast<double>(static_cast<std::int64_t>(digits - static_cast<std::uint64_t>(leading)));
    if (isFraction)
    {
        double const quotient = leading / scale;
        double const remainder = std::fma(-quotient, scale, leading);
        return RoundSum(quotient, (remainder + rest) / scale, real);
    }
    double const product = leading * scale;
    double const error = std::fma(leading, scale, -product);
    return RoundSum(product, error + rest * scale, real);
}

/// Adds what stands behind the `e` at `position`, and gives the place behind it. An `e` without digits is left standing.
WCHAR const * ReadExponent(WCHAR const * position, WCHAR const * end, std::int64_t & exponent)
{
    constexpr int beyondAll = 10000;
    WCHAR const * unit = position + 1;
    bool const isNegative = unit != end && *unit == OLESTR('-');
    if (isNegative || (unit != end && *unit == OLESTR('+')))
        ++unit;
    WCHAR const * const digits = unit;
    int value = 0;
    for (; unit != end && *unit >= OLESTR('0') && *unit <= OLESTR('9'); ++unit)
        value = std::min(value * 10 + (*unit - OLESTR('0')), beyondAll);
    if (unit == digits)
        return position;
    exponent += isNegative ? -value : value;
    return unit;
}

} // namespace

bool ScaleDecimal(std::uint64_t digits, std::int64_t exponent, double & real)
{
    if (exponent < -s_largestExactPower || exponent > s_largestExactPower)
        return false;
    bool const isFraction = exponent < 0;
    double const scale = exactPowersOfTen[static_cast<std::size_t>(isFraction ? -exponent : exponent)];
    if (digits > s_largestExactDigits && exponent != 0)
        return ScaleLongDecimal(digits, scale, isFraction, real);
    double const number = static_cast<double>(digits); // exact, or all there is to round
    real = isFraction ? number / scale : number * scale;
    return true;
}

bool ReadPlainReal(WCHAR const *& position, WCHAR const * end, WCHAR mark, double & real)
{
    std::uint64_t digits = 0; // of too many the value means nothing, and is not asked for
    WCHAR const * behindMark = nullptr;
    WCHAR const * unit = position;
    for (; unit != end; ++unit)
    {
        unsigned const digit = static_cast<unsigned>(*unit) - OLESTR('0');
        if (digit <= 9)
            digits = digits * 10 + digit;
        else if (*unit == mark && !behindMark)
            behindMark = unit + 1;
        else
            break;
    }
    auto const count = unit - position - (behindMark ? 1 : 0);
    if (count <= 0 || count > longestScaledDecimal)
        return false;
    std::int64_t exponent = behindMark ? behindMark - unit : 0;
    if (unit != end && (*unit | 0x20) == OLESTR('e'))
        unit = ReadExponent(unit, end, exponent);
    if (!ScaleDecimal(digits, exponent, real))
        return false;
    position = unit;
    return true;
}

} // namespace kr::detail
