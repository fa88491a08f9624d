// The rounding and the range checks that several targets share. Halves go to the even neighbour.
#pragma once

#include <krplatform/base/hresult.h>

#include <concepts>
#include <limits>
#include <utility>

namespace kr::detail
{

/// The nearest integer; not-a-number and the infinities stay.
double RoundHalfToEven(double real);

/// The nearest number of whole units.
ULONGLONG RoundAmount(ULONGLONG tenThousandths);

/// The nearest count of ten-thousandths of the exact value. Overflow outside 64 bits and for not-a-number.
HRESULT RealToAmount(double real, LONGLONG & tenThousandths);

/// The magnitude of a number, also of the lowest one.
constexpr ULONGLONG MagnitudeOf(LONGLONG number)
{
    return number < 0 ? 0 - static_cast<ULONGLONG>(number) : static_cast<ULONGLONG>(number);
}

/// Puts sign and magnitude together. Overflow where the type has no such number.
template <std::integral Integer>
HRESULT FitMagnitude(bool isNegative, ULONGLONG magnitude, Integer & number)
{
    ULONGLONG const lowest = MagnitudeOf(static_cast<LONGLONG>(std::numeric_limits<Integer>::min()));
    ULONGLONG const limit = isNegative ? lowest : static_cast<ULONGLONG>(std::numeric_limits<Integer>::max());
    if (magnitude > limit)
        return DISP_E_OVERFLOW;
    number = static_cast<Integer>(isNegative ? 0 - magnitude : magnitude);
    return S_OK;
}

/// Rounds to an integer type. Overflow where the type has no such number, and for not-a-number.
template <std::integral Integer>
HRESULT FitReal(double real, Integer & number)
{
    // The limits are powers of two, or 0, and so exact; the upper one is the first number that does not fit.
    constexpr double lowest = static_cast<double>(std::numeric_limits<Integer>::min());
    constexpr Integer halfLimit = std::numeric_limits<Integer>::max() / 2 + 1;
    constexpr double limit = 2.0 * static_cast<double>(halfLimit);
    double const rounded = RoundHalfToEven(real);
    if (!(rounded >= lowest && rounded < limit))
        return DISP_E_OVERFLOW;
    number = static_cast<Integer>(rounded);
    return S_OK;
}

/// Stores an integer of another type. Deliberate: signed and unsigned numbers of one width keep their bits, so that -1
/// becomes the highest number. Other numbers that the type does not have are an overflow.
template <std::integral Integer, std::integral Source>
HRESULT FitInteger(Source source, Integer & number)
{
    if (sizeof(Source) != sizeof(Integer) && !std::in_range<Integer>(source))
        return DISP_E_OVERFLOW;
    number = static_cast<Integer>(source);
    return S_OK;
}

} // namespace kr::detail
