// The text of one formatted number, and what makes it. Internal to the text classes.
#pragma once

#include <krplatform/text/formatspec.h>

#include <string_view>

namespace kr::detail
{

/// The parts of a number's text in their order. The views lie in `buffer` or last for ever.
struct FormattedNumber
{
    /// Longer than the exact digits of any double.
    static constexpr int longestPrecision = 1100;

    std::string_view sign;
    std::string_view baseMark; ///< zeros that fill the width stand behind it
    int leadingZeros = 0;
    std::string_view body;
    int trailingZeros = 0;
    std::string_view exponent;
    bool canFillWithZeros = true;
    char buffer[longestPrecision + 400];

    std::size_t GetLength() const
    {
        return sign.size() + baseMark.size() + static_cast<std::size_t>(leadingZeros) + body.size() +
               static_cast<std::size_t>(trailingZeros) + exponent.size();
    }
};

/// The sign of a number, as the flags ask for it.
std::string_view SignOf(FormatSpec const & spec, bool isNegative);

/// An integer conversion. `argument` is cut to the size of the conversion, or its own where that is less.
void FormatInteger(FormatSpec const & spec, FormatArgument const & argument, FormattedNumber & text);

/// An address: 16 upper-case digits.
void FormatPointer(void const * address, FormattedNumber & text);

/// A floating conversion, correctly rounded, exact ties to even. No locale is looked at.
void FormatReal(FormatSpec const & spec, double value, FormattedNumber & text);

} // namespace kr::detail
