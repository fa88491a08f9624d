// Numbers at the beginning of 16-bit text. Internal to the text functions.
#pragma once

#include <krplatform/base/types.h>

#include <cstddef>
#include <cstdint>
#include <limits>

namespace kr::detail
{

constexpr std::size_t noLimit = std::numeric_limits<std::size_t>::max();

struct ScannedInteger
{
    std::size_t length = 0; ///< units; 0: there is no number
    bool isNegative = false;
    std::uint64_t magnitude = 0; ///< the largest where the number is larger

    /// The number held within `bytes` bytes.
    std::int64_t GetSigned(std::size_t bytes) const;
    /// A negative number is counted down from zero, modulo 2 to the power of 8 `bytes`.
    std::uint64_t GetUnsigned(std::size_t bytes) const;
};

/// A sign and digits 0 to 9, a to z within `limit` units, which ends at the terminator at the latest. In base 16 "0x" may
/// stand before the digits; base 0 takes 16 after "0x", 8 after "0", else 10.
ScannedInteger ScanInteger(WCHAR const * text, std::size_t limit, unsigned base);

struct ScannedReal
{
    std::size_t length = 0; ///< units; 0: there is no number
    double value = 0.0;     ///< the nearest; infinite where the number is too large
};

/// A sign, digits with a point, and an exponent, which counts only if it has digits.
ScannedReal ScanReal(WCHAR const * text, std::size_t limit);

/// The number of white-space units at the beginning.
std::size_t CountSpaces(WCHAR const * text);

} // namespace kr::detail
