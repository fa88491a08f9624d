// Exact decimal expansions of floating point numbers, slow and obvious: the answer that the quick code has to give.
#pragma once

#include <cstdint>
#include <string>

namespace kr::test
{

/// `0.ddd * 10 ^ exponent`; no zeros at either end of the digits. Zero has no digits.
struct ExactDecimal
{
    std::string digits;
    int exponent = 0;
};

/// All digits of `significand * 2 ^ exponent`.
ExactDecimal Expand(std::uint64_t significand, int exponent);

/// All digits of a finite number of at least 0.
ExactDecimal Expand(double magnitude);

/// At most `count` digits; a tie goes away from zero.
ExactDecimal RoundTo(ExactDecimal const & decimal, std::size_t count);

/// The number as an integer times ten to a power: `digits` may begin and end with zeros.
ExactDecimal MakeDecimal(std::string digits, int exponent);

/// Negative, 0 or positive.
int Compare(ExactDecimal const & left, ExactDecimal const & right);

} // namespace kr::test
