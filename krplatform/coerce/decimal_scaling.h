// The quick way from decimal digits to the nearest double.
#pragma once

#include <krplatform/base/wchar.h>

#include <cstdint>

namespace kr::detail
{

/// Digits that fit into 64 bits whatever they are.
constexpr unsigned longestScaledDecimal = 19;

/// The nearest double to `digits`, which are 19 at most, times ten to the power `exponent`. False, with nothing stored, where
/// only a longer calculation can tell: for large exponents, and where the result lies next to the middle of two doubles.
bool ScaleDecimal(std::uint64_t digits, std::int64_t exponent, double & real);

/// What most numbers are: up to 19 digits, a decimal mark among them or not, and perhaps an exponent. Stores the nearest
/// double and the place behind what was read. False, with nothing stored, for no digits and for more, and as above.
bool ReadPlainReal(WCHAR const *& position, WCHAR const * end, WCHAR mark, double & real);

} // namespace kr::detail
