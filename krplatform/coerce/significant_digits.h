// The first decimal digits of a floating point number, rounded from its exact value.
#pragma once

#include <cstdint>

namespace kr::detail
{

/// `d.ddd * 10 ^ exponent`, as the whole number `units` that the digits make and how many of them stand behind the
/// point. There is no zero at the end. Zero has `units` 0.
struct SignificantDigits
{
    std::uint64_t units = 0;
    int places = 0;
    int exponent = 0;
};

/// Rounds a finite number of at least 0; a tie goes up.
SignificantDigits RoundTo15Digits(double magnitude);
SignificantDigits RoundTo7Digits(float magnitude);

} // namespace kr::detail
