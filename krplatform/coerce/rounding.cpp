#include <krplatform/coerce/rounding.h>

#include <cmath>

namespace kr::detail
{

double RoundHalfToEven(double real)
{
    // Not nearbyint: it follows the rounding mode that a program may set.
    double const rounded = std::round(real);
    bool const isHalf = std::abs(real - std::trunc(real)) == 0.5;
    return isHalf ? 2 * std::round(real / 2) : rounded;
}

ULONGLONG RoundAmount(ULONGLONG tenThousandths)
{
    ULONGLONG const whole = tenThousandths / 10000;
    ULONGLONG const rest = tenThousandths % 10000;
    bool const roundsUp = rest > 5000 || (rest == 5000 && whole % 2 != 0);
    return whole + (roundsUp ? 1 : 0);
}

HRESULT RealToAmount(double real, LONGLONG & tenThousandths)
{
    constexpr double limit = 1e15; // above all amounts; the shift below relies on it
    double const magnitude = std::abs(real);
    if (!(magnitude < limit))
        return DISP_E_OVERFLOW;
    // With the significand as an integer, magnitude * 10000 is significand * 625 / 2^shift, and nothing is lost: the
    // product has 63 bits at most, and one more after a shift of -1, the lowest there is.
    int exponent = 0;
    double const significand = std::frexp(magnitude, &exponent);
    ULONGLONG const product = static_cast<ULONGLONG>(std::ldexp(significand, 53)) * 625;
    int const shift = 53 - 4 - exponent;
    if (shift <= 0)
        return FitMagnitude(real < 0, product << -shift, tenThousandths);
    if (shift >= 64)
        return FitMagnitude(false, 0, tenThousandths);
    ULONGLONG const whole = product >> shift;
    ULONGLONG const rest = product - (whole << shift);
    ULONGLONG const half = ULONGLONG{1} << (shift - 1);
    bool const roundsUp = rest > half || (rest == half && whole % 2 != 0);
    return FitMagnitude(real < 0, whole + (roundsUp ? 1 : 0), tenThousandths);
}

} // namespace kr::detail
