#include <krplatform/coerce/parsed_number.h>

#include <krplatform/coerce/powers_of_ten.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <string_view>

namespace kr::detail
{

namespace
{

constexpr LONGLONG s_largestExactPower = exactPowersOfTen.size() - 1;

// Ten to the power of this is above every double, and a tenth of the other below every one.
constexpr LONGLONG s_tooLarge = 309;
constexpr LONGLONG s_tooSmall = -324;

// The smallest double begins so, at the power -324; nobody writes the digits that follow.
constexpr std::string_view s_smallestDigits = "49406564584124654417656879286822137236505980";

std::string_view DigitsOf(ParsedNumber const & number) { return {number.digits, number.count}; }

/// The exponent of the first digit.
LONGLONG LeadingExponent(ParsedNumber const & number) { return number.exponent + number.count - 1; }

bool IsBelowSmallest(ParsedNumber const & number)
{
    LONGLONG const exponent = LeadingExponent(number);
    return exponent < s_tooSmall || (exponent == s_tooSmall && DigitsOf(number) < s_smallestDigits);
}

/// The sum in full is the sought number, up to a tiny part of the last place of `high`. Stores the nearest double, and
/// tells whether it is the nearest whatever that part is.
bool RoundSum(double high, double low, double & real)
{
    double const doubt = high * 0x1p-100;
    real = high + (low - doubt);
    return real == high + (low + doubt);
}

/// The nearest double of up to 19 digits times or over a power of ten that is exact itself, without a look at the single
/// digits. False for other numbers, and where it cannot be sure.
bool ScaleLeading(ParsedNumber const & number, double & real)
{
    LONGLONG const power = number.exponent < 0 ? -number.exponent : number.exponent;
    if (number.count > ParsedNumber::leadingCapacity || power > s_largestExactPower)
        return false;
    double const scale = exactPowersOfTen[static_cast<std::size_t>(power)];
    double const leading = static_cast<double>(number.leading);
    // 19 digits stay below 2^64, and so does the double next to them
    double const rest = static_cast<double>(static_cast<LONGLONG>(number.leading - static_cast<ULONGLONG>(leading)));
    if (number.exponent < 0)
    {
        double const quotient = leading / scale;
        double const remainder = std::fma(-quotient, scale, leading);
        return RoundSum(quotient, (remainder + rest) / scale, real);
    }
    double const product = leading * scale;
    double const error = std::fma(leading, scale, -product);
    return RoundSum(product, error + rest * scale, real);
}

HRESULT ReadDigits(ParsedNumber const & number, double & real)
{
    char text[ParsedNumber::capacity + 24];
    std::memcpy(text, number.digits, number.count);
    char * end = text + number.count;
    LONGLONG exponent = number.exponent;
    if (number.hasMore)
    {
        *end++ = '1';
        --exponent;
    }
    *end++ = 'e';
    end = std::to_chars(end, text + sizeof text, exponent).ptr;
    bool const isRead = std::from_chars(text, end, real).ec == std::errc();
    return isRead && real <= std::numeric_limits<double>::max() ? S_OK : DISP_E_OVERFLOW;
}

HRESULT MagnitudeToReal(ParsedNumber const & number, double & real)
{
    if (ScaleLeading(number, real))
        return S_OK;
    if (IsBelowSmallest(number))
    {
        real = 0;
        return S_OK;
    }
    return LeadingExponent(number) < s_tooLarge ? ReadDigits(number, real) : DISP_E_OVERFLOW;
}

double BitsToReal(ULONGLONG bits)
{
    if (bits <= std::numeric_limits<ULONG>::max())
        return static_cast<LONG>(static_cast<ULONG>(bits));
    return static_cast<double>(static_cast<LONGLONG>(bits));
}

bool AppendDigit(ULONGLONG & units, unsigned digit)
{
    constexpr ULONGLONG limit = std::numeric_limits<ULONGLONG>::max();
    if (units > (limit - digit) / 10)
        return false;
    units = units * 10 + digit;
    return true;
}

/// Whether the digits from `first` on, a fraction, round the units before them up.
bool RoundsUp(ParsedNumber const & number, std::size_t first, bool isOdd)
{
    std::string_view const fraction = DigitsOf(number).substr(first);
    if (fraction.empty() || fraction[0] != '5')
        return !fraction.empty() && fraction[0] > '5';
    bool const isAboveHalf = fraction.find_first_not_of('0', 1) != std::string_view::npos || number.hasMore;
    return isAboveHalf || isOdd;
}

} // namespace

HRESULT NumberToReal(ParsedNumber const & number, double & real)
{
    if (number.isBits)
    {
        if (number.hasMore)
            return DISP_E_OVERFLOW;
        real = BitsToReal(number.leading);
        return S_OK;
    }
    double magnitude = 0;
    HRESULT const result = number.count != 0 ? MagnitudeToReal(number, magnitude) : S_OK;
    if (SUCCEEDED(result))
        real = number.isNegative ? -magnitude : magnitude;
    return result;
}

HRESULT NumberToUnits(ParsedNumber const & number, int places, ULONGLONG & units)
{
    LONGLONG const point = number.exponent + number.count + places; // how many digits the units have
    if (number.count == 0 || point < 0)
    {
        units = 0;
        return S_OK;
    }
    if (point > std::numeric_limits<ULONGLONG>::digits10 + 1)
        return DISP_E_OVERFLOW;
    ULONGLONG rounded = 0;
    for (UINT index = 0; index < static_cast<UINT>(point); ++index)
    {
        unsigned const digit = index < number.count ? static_cast<unsigned>(number.digits[index] - '0') : 0;
        if (!AppendDigit(rounded, digit))
            return DISP_E_OVERFLOW;
    }
    if (static_cast<UINT>(point) < number.count && RoundsUp(number, static_cast<std::size_t>(point), rounded % 2 != 0))
    {
        if (++rounded == 0)
            return DISP_E_OVERFLOW;
    }
    units = rounded;
    return S_OK;
}

} // namespace kr::detail
