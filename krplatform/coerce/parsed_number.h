// A number as it was written, and what it is worth.
#pragma once

#include <krplatform/base/hresult.h>

namespace kr::detail
{

/// Decimal digits with a sign and a power of ten, or the bits of a hexadecimal or octal number.
struct ParsedNumber
{
    /// No double needs more digits to be rounded rightly; of those that follow it only counts whether all are zero.
    static constexpr UINT capacity = 800;

    bool isNegative;
    bool isBits;
    bool hasMore;      ///< digits other than zero follow the kept ones; bits are lost
    ULONGLONG leading; ///< the first digits as a number, `longestScaledDecimal` at most, or the bits
    UINT count;        ///< digits kept; the first is no zero
    LONGLONG exponent; ///< the number is the kept digits, as an integer, times ten to this power
    char digits[capacity];

    /// Zero. The digits stay as they are: to write them all would cost more than to read most numbers.
    void Clear()
    {
        isNegative = isBits = hasMore = false;
        leading = 0;
        count = 0;
        exponent = 0;
    }
};

/// The nearest double; bits are the signed number of 32 or, where they need more, of 64 bits. Too large is an overflow.
/// Deliberate: what is below the smallest double is zero, it is not rounded up to that.
HRESULT NumberToReal(ParsedNumber const & number, double & real);

/// The number of units of ten to the power -`places`, without the sign, rounded half to even. Overflow past 64 bits.
/// Not for bits.
HRESULT NumberToUnits(ParsedNumber const & number, int places, ULONGLONG & units);

} // namespace kr::detail
