#include <krplatform/text/formatnumber.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace kr::detail
{

namespace
{

constexpr int mantissaBits = 52;
constexpr std::uint64_t mantissaMask = (std::uint64_t{1} << mantissaBits) - 1;

std::string_view ViewOf(char const * first, char const * end) { return {first, static_cast<std::size_t>(end - first)}; }

/// The runtime's words for what is no number; `isNegative` stands in the sign.
std::string_view WordOf(double value, bool isUpperCase)
{
    constexpr std::uint64_t quiet = std::uint64_t{1} << (mantissaBits - 1);
    std::uint64_t const mantissa = std::bit_cast<std::uint64_t>(value) & mantissaMask;
    if (mantissa == 0)
        return isUpperCase ? "INF" : "inf";
    if (mantissa == quiet && std::signbit(value))
        return isUpperCase ? "NAN(IND)" : "nan(ind)";
    if ((mantissa & quiet) == 0)
        return isUpperCase ? "NAN(SNAN)" : "nan(snan)";
    return isUpperCase ? "NAN" : "nan";
}

/// Takes what stands in the buffer up to `end`, with a point behind a single digit where '#' asks for one.
void SetBody(FormatSpec const & spec, char * end, FormattedNumber & text)
{
    char * exponent = std::find(text.buffer, end, 'e');
    if (exponent != end && spec.conversion.isUpperCase)
        *exponent = 'E';
    if (spec.isAlternate && std::find(text.buffer, exponent, '.') == exponent)
    {
        std::copy_backward(exponent, end, end + 1);
        ++end;
        *exponent++ = '.';
    }
    text.body = ViewOf(text.buffer, exponent);
    text.exponent = ViewOf(exponent, end);
}

/// `precision` digits behind the point.
void FormatDigits(FormatSpec const & spec, double value, std::chars_format form, int precision, FormattedNumber & text)
{
    int const held = std::min(precision, FormattedNumber::longestPrecision);
    SetBody(spec, std::to_chars(text.buffer, std::end(text.buffer), value, form, held).ptr, text);
    text.trailingZeros = precision - held;
}

/// `precision` significant digits in the shorter of the two forms; zeros at the end stay for '#' only.
void FormatGeneral(FormatSpec const & spec, double value, int precision, FormattedNumber & text)
{
    int const significant = std::max(precision, 1);
    if (!spec.isAlternate)
    {
        int const held = std::min(significant, FormattedNumber::longestPrecision);
        SetBody(spec, std::to_chars(text.buffer, std::end(text.buffer), value, std::chars_format::general, held).ptr,
                text);
        return;
    }
    FormatDigits(spec, value, std::chars_format::scientific, significant - 1, text);
    int exponent = 0;
    std::from_chars(text.exponent.data() + (text.exponent[1] == '+' ? 2 : 1), text.exponent.end(), exponent);
    if (exponent >= -4 && exponent < significant)
        FormatDigits(spec, value, std::chars_format::fixed, significant - 1 - exponent, text);
}

/// 0xh.hhhp+d; 13 digits where no precision is given.
void FormatHexadecimal(FormatSpec const & spec, double value, FormattedNumber & text)
{
    constexpr int allDigits = mantissaBits / 4, bias = 1023;
    std::uint64_t const bits = std::bit_cast<std::uint64_t>(value);
    int const field = static_cast<int>(bits >> mantissaBits) & 0x7FF;
    std::uint64_t mantissa = bits & mantissaMask;
    int exponent = field == 0 ? (mantissa == 0 ? 0 : 1 - bias) : field - bias;
    if (field != 0)
        mantissa |= mantissaMask + 1;

    int const precision = spec.precision < 0 ? allDigits : spec.precision;
    int const held = std::min(precision, allDigits);
    if (held < allDigits)
    {
        int const dropped = 4 * (allDigits - held);
        std::uint64_t const half = std::uint64_t{1} << (dropped - 1);
        std::uint64_t const rest = mantissa & (2 * half - 1);
        mantissa >>= dropped;
        if (rest > half || (rest == half && (mantissa & 1) != 0))
            ++mantissa;
    }
    text.baseMark = spec.conversion.isUpperCase ? "0X" : "0x";
    char const * const digits = spec.conversion.isUpperCase ? "0123456789ABCDEF" : "0123456789abcdef";
    char * out = text.buffer;
    *out++ = digits[mantissa >> (4 * held)];
    if (precision > 0 || spec.isAlternate)
        *out++ = '.';
    for (int digit = held - 1; digit >= 0; --digit)
        *out++ = digits[(mantissa >> (4 * digit)) & 0xF];
    text.body = ViewOf(text.buffer, out);
    text.trailingZeros = precision - held;
    char * const mark = out;
    *out++ = spec.conversion.isUpperCase ? 'P' : 'p';
    *out++ = exponent < 0 ? '-' : '+';
    out = std::to_chars(out, std::end(text.buffer), std::abs(exponent)).ptr;
    text.exponent = ViewOf(mark, out);
}

} // namespace

void FormatReal(FormatSpec const & spec, double value, FormattedNumber & text)
{
    constexpr int defaultPrecision = 6;
    int const precision = spec.precision < 0 ? defaultPrecision : spec.precision;
    bool const isUpperCase = spec.conversion.isUpperCase;
    text.sign = SignOf(spec, std::signbit(value));
    double const magnitude = std::fabs(value);
    if (!std::isfinite(value))
    {
        text.body = WordOf(value, isUpperCase);
        text.canFillWithZeros = false;
        return;
    }
    switch (spec.conversion.letter | 0x20)
    {
    case 'e':
        FormatDigits(spec, magnitude, std::chars_format::scientific, precision, text);
        break;
    case 'f':
        FormatDigits(spec, magnitude, std::chars_format::fixed, precision, text);
        break;
    case 'g':
        FormatGeneral(spec, magnitude, precision, text);
        break;
    default:
        FormatHexadecimal(spec, magnitude, text);
        break;
    }
}

} // namespace kr::detail
